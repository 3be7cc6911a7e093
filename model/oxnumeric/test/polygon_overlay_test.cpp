#include "model/oxnumeric/polygon_overlay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "model/oxnumeric/polygon.h"
#include "model/oxnumeric/polygon_validity.h"

namespace Orlix::Numeric {
namespace {

using Points = std::vector<Vec2<double>>;

Points Box(double y, double z, double width, double depth) {
  return {{y, z}, {y + width, z}, {y + width, z + depth}, {y, z + depth}};
}

Points Turned(const Points& points, double angle, Vec2<double> shift) {
  Points turned;
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (const auto& p : points)
    turned.push_back(shift + Vec2<double>{c * p.x - s * p.y, s * p.x + c * p.y});
  return turned;
}

/// Signed areas: holes subtract themselves when they run against the outline.
double AreaOf(const std::vector<OwnedPolygon>& polygons) {
  double area = 0.0;
  for (const OwnedPolygon& polygon : polygons) {
    area += SignedArea(polygon.outline);
    for (const Points& hole : polygon.holes) area += SignedArea(hole);
  }
  return area;
}

std::vector<PolygonView> Views(const std::vector<OwnedPolygon>& polygons) {
  std::vector<PolygonView> views;
  for (const OwnedPolygon& p : polygons) views.push_back({p.outline, p.holes});
  return views;
}

void ExpectSound(const std::vector<OwnedPolygon>& polygons) {
  for (const OwnedPolygon& polygon : polygons) {
    EXPECT_TRUE(ValidityOf({polygon.outline, polygon.holes}).IsValid());
    EXPECT_NE(polygon.outline.front(), polygon.outline.back());
    EXPECT_GT(SignedArea(polygon.outline), 0.0);
    for (const Points& hole : polygon.holes) EXPECT_LT(SignedArea(hole), 0.0);
  }
}

TEST(Difference, MatchesTheTable) {
  const OwnedPolygon square{Box(0, 0, 4, 4), {}};
  const OwnedPolygon clockwise{{{0, 0}, {0, 4}, {4, 4}, {4, 0}}, {}};
  const OwnedPolygon ring{Box(0, 0, 4, 4), {Box(1, 1, 2, 2)}};
  const struct {
    const char* what;
    std::vector<OwnedPolygon> polygons;
    std::vector<OwnedPolygon> covers;
    double area;
    std::size_t pieces, holes;
  } kCases[] = {
      {"nothing", {}, {square}, 0, 0, 0},
      {"no cover", {clockwise}, {}, 16, 1, 0},
      {"cover across", {square}, {{Box(-1, 1, 6, 1), {}}}, 12, 2, 0},
      {"cover in the hole", {ring}, {{Box(1, 1, 2, 2), {}}}, 12, 1, 1},
      {"cover over half of the hole", {ring}, {{Box(2, 1, 2, 2), {}}}, 10, 1, 0},
      {"ring as the cover", {square}, {ring}, 4, 1, 0},
      {"covers side by side", {square}, {{Box(0, 1, 2, 1), {}}, {Box(2, 1, 2, 1), {}}}, 12, 2, 0},
      {"two polygons", {square, {Box(4, 0, 2, 4), {}}}, {{Box(3, 1, 2, 1), {}}}, 22, 2, 0},
      {"cover short by rounding", {square}, {{Box(0, 0, 4 - 1e-15, 4), {}}}, 0, 0, 0},
      {"crumb", {square, {Box(9, 9, 1e-4, 1e-4), {}}}, {}, 16, 1, 0},
      {"thin, but no sliver", {square}, {{Box(0, 0, 4 - 1e-6, 4), {}}}, 4e-6, 1, 0},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const auto got = Difference(Views(c.polygons), Views(c.covers));
    std::size_t holes = 0;
    for (const OwnedPolygon& polygon : got) holes += polygon.holes.size();
    EXPECT_NEAR(AreaOf(got), c.area, 1e-14);  // rounding of sums of up to 22
    EXPECT_EQ(got.size(), c.pieces);
    EXPECT_EQ(holes, c.holes);
    ExpectSound(got);
  }
}

// Plates that fill the right half of a block, in any position: rounding moves their edges off the
// block's and each other's, and hair left there would reach to the block's far corners.
TEST(Difference, LeavesNoHairAlongCommonEdges) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  for (int i = 0; i < 300; ++i) {
    const double angle = uniform(random) * std::numbers::pi;
    const Vec2<double> shift{10 * uniform(random), 10 * uniform(random)};
    std::vector<OwnedPolygon> covers;
    for (const auto& [z, depth] : {std::pair{0.0, 0.1}, {0.1, 0.2}, {0.3, 0.1}}) {
      covers.push_back({Turned(Box(0.3, z, 0.3, depth), angle, shift), {}});
    }
    const OwnedPolygon polygon{Turned(Box(0, 0, 0.6, 0.4), angle, shift), {}};
    const auto got = Difference(Views({polygon}), Views(covers));
    ASSERT_EQ(got.size(), 1u) << i;
    // Coordinates of up to 10.6 m carry 2e-15 m: times the outline of 2 m and the corners' terms.
    EXPECT_NEAR(AreaOf(got), 0.12, 1e-13);
    EXPECT_TRUE(got[0].holes.empty());
    const Points corners =
        Turned({{0, 0}, {0.3, 0}, {0.3, 0.1}, {0.3, 0.3}, {0.3, 0.4}, {0, 0.4}}, angle, shift);
    for (const auto& v : got[0].outline) {
      EXPECT_TRUE(std::any_of(corners.begin(), corners.end(), [&](const auto& w) {
        return Length(v - w) < 1e-9;
      })) << i;
    }
  }
}

TEST(Difference, KeepsTheAreaThatIsNotCovered) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  const auto box = [&] {
    const double angle = 3 * uniform(random);
    return Turned(Box(-0.2, -0.2, 0.2 + uniform(random), 0.2 + uniform(random)), angle,
                  {uniform(random), uniform(random)});
  };
  for (int i = 0; i < 200; ++i) {
    const OwnedPolygon polygon{box(), {}};
    const OwnedPolygon a{box(), {}};
    const OwnedPolygon b{box(), {}};
    const auto onlyB = Difference(Views({b}), Views({a}));
    const auto got = Difference(Views({polygon}), Views({a, b}));
    ExpectSound(got);
    // A(P) = A(P \ (A ∪ B)) + A(P ∩ A) + A(P ∩ (B \ A)).
    const PolygonView view{polygon.outline, {}};
    double sum = AreaOf(got) + OverlapOf(view, {a.outline, {}}).area;
    for (const OwnedPolygon& part : onlyB) sum += OverlapOf(view, {part.outline, part.holes}).area;
    EXPECT_NEAR(sum, SignedArea(polygon.outline), 1e-9) << i;  // the documented sliver
  }
}

}  // namespace
}  // namespace Orlix::Numeric
