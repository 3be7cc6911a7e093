#include "model/oxnumeric/polygon_validity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace Orlix::Numeric {
namespace {

using Points = std::vector<Vec2<double>>;

Points Square(double y, double z, double side) {
  return {{y, z}, {y + side, z}, {y + side, z + side}, {y, z + side}};
}

TEST(ValidityOf, MatchesTheTable) {
  const double kNan = std::numeric_limits<double>::quiet_NaN();
  const double kInf = std::numeric_limits<double>::infinity();
  const struct {
    const char* what;
    Points outline;
    std::vector<Points> holes;
    PolygonFault want;
    Vec2<double> place{};
  } kCases[] = {
      {"square", Square(0, 0, 1), {}, PolygonFault::none},
      {"clockwise", {{0, 0}, {0, 1}, {1, 0}}, {}, PolygonFault::none},
      {"duplicate vertices", {{0, 0}, {0, 0}, {1, 0}, {1, 1}, {1, 1}}, {}, PolygonFault::none},
      {"closed by its first vertex", {{0, 0}, {1, 0}, {1, 1}, {0, 0}}, {}, PolygonFault::none},
      {"slender plate", {{0, 0}, {10, 0}, {10, 1e-4}, {0, 1e-4}}, {}, PolygonFault::none},
      {"empty", {}, {}, PolygonFault::tooFewVertices},
      {"two distinct", {{1, 2}, {3, 4}, {1, 2}, {3, 4}}, {}, PolygonFault::tooFewVertices, {1, 2}},
      {"not a number", {{0, 0}, {1, kNan}, {1, 1}}, {}, PolygonFault::notFinite},
      {"infinite", {{0, 0}, {1, 0}, {1, kInf}}, {}, PolygonFault::notFinite},
      {"on a line", {{0, 0}, {1, 1}, {2, 2}}, {}, PolygonFault::noArea, {0, 0}},
      {"sliver", {{0, 0}, {1, 0}, {1, 1e-13}}, {}, PolygonFault::noArea, {0, 0}},
      {"bow tie", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, {}, PolygonFault::crossing, {1, 1}},
      {"spike",
       {{0, 0}, {2, 0}, {2, 2}, {2, 3}, {2, 2}, {0, 2}},
       {},
       PolygonFault::crossing,
       {2, 2}},
      {"touches itself",
       {{0, 0}, {4, 0}, {4, 3}, {2, 0}, {0, 3}},
       {},
       PolygonFault::crossing,
       {2, 0}},
      {"hole", Square(0, 0, 4), {Square(1, 1, 1)}, PolygonFault::none},
      {"hole touches in a point", Square(0, 0, 4), {{{0, 2}, {1, 1}, {1, 3}}}, PolygonFault::none},
      {"holes touch in a point",
       Square(0, 0, 4),
       {Square(1, 1, 1), Square(2, 2, 1)},
       PolygonFault::none},
      {"hole along an edge", Square(0, 0, 4), {Square(0, 1, 1)}, PolygonFault::holeOutside},
      {"hole crosses", Square(0, 0, 4), {Square(3, 1, 2)}, PolygonFault::holeOutside},
      {"hole outside", Square(0, 0, 4), {Square(5, 1, 2)}, PolygonFault::holeOutside},
      {"hole is the outline", Square(0, 0, 4), {Square(0, 0, 4)}, PolygonFault::holeOutside},
      {"hole around the outline", Square(0, 0, 4), {Square(-1, -1, 6)}, PolygonFault::holeOutside},
      {"holes cross",
       Square(0, 0, 9),
       {Square(1, 1, 2), Square(2, 2, 2)},
       PolygonFault::holesOverlap},
      {"hole in a hole",
       Square(0, 0, 9),
       {Square(1, 1, 5), Square(2, 2, 2)},
       PolygonFault::holesOverlap},
      {"hole twice",
       Square(0, 0, 9),
       {Square(1, 1, 5), Square(1, 1, 5)},
       PolygonFault::holesOverlap},
      {"bow tie as a hole",
       Square(0, 0, 9),
       {{{1, 1}, {3, 3}, {3, 1}, {1, 3}}},
       PolygonFault::crossing,
       {2, 2}},
      {"hole without area",
       Square(0, 0, 9),
       {Square(1, 1, 1), {{5, 5}, {6, 6}, {7, 7}}},
       PolygonFault::noArea,
       {5, 5}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const PolygonValidity got = ValidityOf({c.outline, c.holes});
    EXPECT_EQ(got.fault, c.want) << got.reason;
    EXPECT_EQ(got.reason.empty(), c.want == PolygonFault::none);
    const bool placed = c.want == PolygonFault::crossing || c.want == PolygonFault::noArea ||
                        c.want == PolygonFault::tooFewVertices;
    if (placed) {
      EXPECT_EQ(got.place, c.place) << got.place.x << " " << got.place.y;
    }
  }
}

TEST(ValidityOf, NamesTheHole) {
  const std::vector<Points> holes = {Square(1, 1, 1), {{5, 5}, {6, 6}, {7, 7}}};
  EXPECT_EQ(ValidityOf({Square(0, 0, 9), holes}).reason, "hole 2 encloses no area");
}

TEST(OverlapOf, MatchesTheTable) {
  const Points third = {{0, 0}, {1, 1.0 / 3}, {1, 2}, {0, 2}};
  const Points below = {{0.3, 0.1}, {0.6, 0.2}, {0.6, -1}, {0.3, -1}};  // along 1/3, but rounded
  const std::vector<Points> hole = {Square(1, 1, 2)};
  const struct {
    const char* what;
    Points a;
    std::vector<Points> holesOfA;
    Points b;
    double area;
    Vec2<double> low, high;  // box that holds the place
  } kCases[] = {
      {"apart", Square(0, 0, 1), {}, Square(2, 0, 1), 0, {}, {}},
      {"common edge", Square(0, 0, 1), {}, Square(1, 0, 1), 0, {}, {}},
      {"common corner", Square(0, 0, 1), {}, Square(1, 1, 1), 0, {}, {}},
      {"quarter", Square(0, 0, 2), {}, Square(1, 1, 2), 1, {1, 1}, {2, 2}},
      {"within", Square(0, 0, 9), {}, Square(4, 4, 1), 1, {4, 4}, {5, 5}},
      {"in the hole", Square(0, 0, 4), hole, Square(1, 1, 2), 0, {}, {}},
      {"over the hole", Square(0, 0, 4), hole, Square(0, 0, 4), 12, {0, 0}, {4, 4}},
      {"slanting common edge, rounded", third, {}, below, 0, {0, 0}, {1, 1}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const PolygonView a{c.a, c.holesOfA};
    const PolygonView b{c.b, {}};
    const PolygonOverlap overlap = OverlapOf(a, b);
    EXPECT_NEAR(overlap.area, c.area, 1e-15);
    EXPECT_TRUE(c.low.x <= overlap.place.x && overlap.place.x <= c.high.x);
    EXPECT_TRUE(c.low.y <= overlap.place.y && overlap.place.y <= c.high.y);
    EXPECT_EQ(InteriorsOverlap(a, b), c.area > 0);
    EXPECT_EQ(InteriorsOverlap(b, a), c.area > 0);
  }
}

}  // namespace
}  // namespace Orlix::Numeric
