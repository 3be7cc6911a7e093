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
  using enum PolygonFault;
  const double kNan = std::numeric_limits<double>::quiet_NaN();
  const Points box = Square(0, 0, 9);
  const Points line = {{5, 5}, {6, 6}, {7, 7}};
  const struct {
    const char* what;
    PolygonFault want;
    Points outline;
    std::vector<Points> holes{};
    Vec2<double> place{};
  } kCases[] = {
      {"clockwise", none, {{0, 0}, {0, 1}, {1, 0}}},
      {"duplicate vertices, closed", none, {{0, 0}, {0, 0}, {1, 0}, {1, 1}, {1, 1}, {0, 0}}},
      {"slender plate", none, {{0, 0}, {10, 0}, {10, 1e-4}, {0, 1e-4}}},
      {"empty", tooFewVertices, {}},
      {"two distinct", tooFewVertices, {{1, 2}, {3, 4}, {1, 2}, {3, 4}}, {}, {1, 2}},
      {"not a number", notFinite, {{0, 0}, {1, kNan}, {1, 1}}},
      {"infinite", notFinite, {{0, 0}, {1, 0}, {1, HUGE_VAL}}},
      {"on a line", noArea, line, {}, {5, 5}},
      {"sliver", noArea, {{0, 0}, {1, 0}, {1, 1e-13}}},
      {"bow tie", crossing, {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, {}, {1, 1}},
      {"spike", crossing, {{0, 0}, {2, 0}, {2, 2}, {2, 3}, {2, 2}, {0, 2}}, {}, {2, 2}},
      {"touches itself", crossing, {{0, 0}, {4, 0}, {4, 3}, {2, 0}, {0, 3}}, {}, {2, 0}},
      {"hole touches in a point", none, box, {{{0, 2}, {1, 1}, {1, 3}}}},
      {"holes touch in a point", none, box, {Square(1, 1, 1), Square(2, 2, 1)}},
      {"hole along an edge", holeOutside, box, {Square(0, 1, 1)}},
      {"hole crosses", holeOutside, box, {Square(8, 1, 2)}},
      {"hole is the outline", holeOutside, box, {box}},
      {"hole around the outline", holeOutside, box, {Square(-1, -1, 16)}},
      {"holes cross", holesOverlap, box, {Square(1, 1, 2), Square(2, 2, 2)}},
      {"hole in a hole", holesOverlap, box, {Square(1, 1, 5), Square(2, 2, 2)}},
      {"hole twice", holesOverlap, box, {Square(1, 1, 5), Square(1, 1, 5)}},
      {"bow tie as a hole", crossing, box, {{{1, 1}, {3, 3}, {3, 1}, {1, 3}}}, {2, 2}},
      {"hole without area", noArea, box, {Square(1, 1, 1), line}, {5, 5}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const PolygonValidity got = ValidityOf({c.outline, c.holes});
    EXPECT_EQ(got.fault, c.want) << got.reason;
    EXPECT_EQ(got.reason.empty(), c.want == none);
    if (c.want == crossing || c.want == noArea || c.want == tooFewVertices) {
      EXPECT_EQ(got.place, c.place) << got.place.x << " " << got.place.y;
    }
  }
  const std::vector<Points> holes = {Square(1, 1, 1), line};
  EXPECT_EQ(ValidityOf({box, holes}).reason, "hole 2 encloses no area");
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
      {"common edge", Square(0, 0, 1), {}, Square(1, 0, 1), 0, {}, {}},
      {"quarter", Square(0, 0, 2), {}, Square(1, 1, 2), 1, {1, 1}, {2, 2}},
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
