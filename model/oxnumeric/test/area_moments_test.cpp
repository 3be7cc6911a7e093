#include "model/oxnumeric/area_moments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Orlix::Numeric {
namespace {

void ExpectNear(const AreaMoments& got, const AreaMoments& want, double tolerance) {
  EXPECT_NEAR(got.area, want.area, tolerance);
  EXPECT_NEAR(got.sy, want.sy, tolerance);
  EXPECT_NEAR(got.sz, want.sz, tolerance);
  EXPECT_NEAR(got.syy, want.syy, tolerance);
  EXPECT_NEAR(got.szz, want.szz, tolerance);
  EXPECT_NEAR(got.syz, want.syz, tolerance);
}

TEST(MomentsOf, MatchesClosedForms) {
  const struct {
    const char* what;
    std::vector<Vec2<double>> outline;
    AreaMoments want;
  } kCases[] = {
      {"rectangle 2 by 3 from the origin",
       {{0, 0}, {2, 0}, {2, 3}, {0, 3}},
       {6, 6, 9, 2.0 * 2 * 2 * 3 / 3, 2.0 * 3 * 3 * 3 / 3, 9}},
      {"right triangle, legs 3 and 2: b³h/12, bh³/12, b²h²/24",
       {{3, 0}, {0, 2}, {0, 0}},
       {3, 3, 2, 4.5, 2, 1.5}},
      {"two vertices enclose nothing", {{1, 1}, {2, 2}}, {}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    ExpectNear(MomentsOf(c.outline), c.want, 1e-14);  // the numbers are below 20, n is at most 4
    std::vector<Vec2<double>> reversed(c.outline.rbegin(), c.outline.rend());
    AreaMoments sum = MomentsOf(reversed);
    sum += c.want;
    ExpectNear(sum, {}, 1e-14);
  }
}

TEST(MomentsOf, KeepsTheAreaFarFromTheOrigin) {
  // A 1 mm square 1000 km away: the coordinates are exact, so the area must be too.
  const double d = 1048576.0;
  const double s = 1.0 / 1024.0;
  const std::vector<Vec2<double>> outline = {{d, d}, {d + s, d}, {d + s, d + s}, {d, d + s}};
  const AreaMoments m = MomentsOf(outline);
  EXPECT_EQ(m.area, s * s);
  const AreaMoments own = Shifted(m, {-(d + s / 2), -(d + s / 2)});
  EXPECT_NEAR(own.sy, 0.0, 1e-15 * m.sy);
}

TEST(Shifted, IsTheShiftOfTheOutline) {
  const std::vector<Vec2<double>> outline = {{0.1, 0.2}, {1.3, -0.4}, {0.9, 1.1}, {-0.2, 0.8}};
  std::vector<Vec2<double>> moved = outline;
  for (auto& v : moved) v = v + Vec2<double>{0.7, -1.9};
  ExpectNear(MomentsOf(moved), Shifted(MomentsOf(outline), {0.7, -1.9}), 1e-14);
}

}  // namespace
}  // namespace Orlix::Numeric
