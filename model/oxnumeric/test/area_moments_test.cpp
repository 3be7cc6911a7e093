#include "model/oxnumeric/area_moments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace Orlix::Numeric {
namespace {

TEST(MomentsOf, MatchesClosedForms) {
  // Right triangle, legs b = 3 and h = 2, centroid (2, 8/3): bh/2, and about the centroid b³h/36,
  // bh³/36, -b²h²/72. The numbers are below 25, there are few of them.
  std::vector<Vec2<double>> outline = {{1, 2}, {4, 2}, {1, 4}};
  for (const double sign : {1.0, -1.0}) {
    const AreaMoments got = MomentsOf(outline);
    EXPECT_NEAR(got.area, sign * 3, 1e-14);
    EXPECT_NEAR(got.sy, sign * 6, 1e-14);
    EXPECT_NEAR(got.sz, sign * 8, 1e-14);
    EXPECT_NEAR(got.syy, sign * (1.5 + 3 * 4), 1e-14);
    EXPECT_NEAR(got.szz, sign * (2.0 / 3 + 3 * 64.0 / 9), 1e-14);
    EXPECT_NEAR(got.syz, sign * (-0.5 + 3 * 16.0 / 3), 1e-14);
    std::reverse(outline.begin(), outline.end());
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

}  // namespace
}  // namespace Orlix::Numeric
