#include "model/oxnumeric/polygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace Orlix::Numeric {
namespace {

using Points = std::vector<Vec2<double>>;

TEST(Orientation, IsExactWhereTheProductsRound) {
  // Kettner et al. 2008: on this grid the rounded determinant gives wrong signs. In units of 2^-53
  // everything is an integer, and so is the determinant.
  const Vec2<double> b{12, 12};
  const Vec2<double> c{24, 24};
  const double step = std::ldexp(1.0, -53);
  for (int i = 0; i < 64; ++i) {
    for (int j = 0; j < 64; ++j) {
      const int want = (j > i) - (j < i);  // above the diagonal is left of b to c
      ASSERT_EQ(Orientation({0.5 + i * step, 0.5 + j * step}, b, c), want) << i << " " << j;
    }
  }
}

TEST(ConvexHull, MatchesTheTable) {
  const struct {
    const char* what;
    Points points;
    Points want;
  } kCases[] = {
      {"no point", {}, {}},
      {"one point, twice", {{1, 1}, {1, 1}}, {{1, 1}}},
      {"points on a line", {{0, 0}, {2, 2}, {1, 1}, {3, 3}}, {{0, 0}, {3, 3}}},
      {"tee",
       {{-3, 1}, {-3, 2}, {3, 2}, {3, 1}, {1, 1}, {1, -2}, {-1, -2}, {-1, 1}},
       {{-3, 1}, {-1, -2}, {1, -2}, {3, 1}, {3, 2}, {-3, 2}}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(ConvexHull(c.points), c.want);
  }
}

TEST(ConvexHull, HoldsEveryPoint) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  for (int round = 0; round < 20; ++round) {
    Points points;
    for (int i = 0; i < 200; ++i) points.push_back({uniform(random), uniform(random)});
    const Points hull = ConvexHull(points);
    for (std::size_t i = 0; i < hull.size(); ++i) {
      const auto& a = hull[i];
      const auto& b = hull[(i + 1) % hull.size()];
      EXPECT_EQ(Orientation(a, b, hull[(i + 2) % hull.size()]), 1);
      for (const auto& p : points) ASSERT_GE(Orientation(a, b, p), 0);
    }
  }
}

TEST(Contains, MatchesTheTable) {
  const Points square = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  const Points diamond = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
  const Points notch = {{0, 0}, {4, 0}, {4, 4}, {2, 2}, {0, 4}};
  const Points pentagram = {{0, 3}, {2, -3}, {-3, 1}, {3, 1}, {-2, -3}};
  const struct {
    const char* what;
    const Points& outline;
    Vec2<double> point;
    Location want;
  } kCases[] = {
      {"vertex", square, {1, 1}, Location::onBoundary},
      {"edge", square, {0.25, 0}, Location::onBoundary},
      {"on the line of an edge, beyond it", square, {1.5, 0}, Location::outside},
      {"level with two vertices, inside", diamond, {0, 0}, Location::inside},
      {"level with the top vertex, left", diamond, {-1, 1}, Location::outside},
      {"level with the notch, left part", notch, {1, 2}, Location::inside},
      {"bottom of the notch", notch, {2, 2}, Location::onBoundary},
      {"wound around twice", pentagram, {0, 0}, Location::outside},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Contains(c.outline, c.point), c.want);
    const Points reversed(c.outline.rbegin(), c.outline.rend());
    EXPECT_EQ(Contains(reversed, c.point), c.want);
  }
}

TEST(WithoutDuplicates, DropsNeighboursAndTheClosingVertex) {
  const Points ring = {{0, 0}, {0, 0}, {1, 0}, {1, 1e-9}, {1, 1}, {0, 0}, {0, 0}};
  EXPECT_EQ(WithoutDuplicates(ring, 0.0), (Points{{0, 0}, {1, 0}, {1, 1e-9}, {1, 1}}));
  EXPECT_EQ(WithoutDuplicates(ring, 1e-6), (Points{{0, 0}, {1, 0}, {1, 1}}));
  EXPECT_EQ(WithoutDuplicates(Points{{2, 2}, {2, 2}}, 0.0), (Points{{2, 2}}));
}

}  // namespace
}  // namespace Orlix::Numeric
