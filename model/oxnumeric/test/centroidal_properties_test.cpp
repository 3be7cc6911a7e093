#include "model/oxnumeric/centroidal_properties.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace Orlix::Numeric {
namespace {

// A rectangle 2 x 1 m in plan, turned by an angle and put in a place far from the origin.
std::vector<Vec2<double>> TurnedRectangle(double angle) {
  std::vector<Vec2<double>> outline{{-1, -0.5}, {1, -0.5}, {1, 0.5}, {-1, 0.5}};
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  for (Vec2<double>& p : outline) p = {3.0 + c * p.x - s * p.y, -7.0 + s * p.x + c * p.y};
  return outline;
}

TEST(CentroidalProperties, PrincipalAxesTurnWithTheRegion) {
  // The rectangle is stiffest about the axis across its length.
  for (const double turn : {0.0, 0.1, 0.7, 1.5, -0.4, -1.2}) {
    SCOPED_TRACE(turn);
    const CentroidalProperties p = CentroidalPropertiesOf(MomentsOf(TurnedRectangle(turn)));
    // About the origin the second moments are a hundred times those about the centroid.
    constexpr double kTolerance = 1e-13 * 100;
    EXPECT_NEAR(p.area, 2.0, kTolerance);
    EXPECT_NEAR(p.centroid.x, 3.0, kTolerance);
    EXPECT_NEAR(p.centroid.y, -7.0, kTolerance);
    EXPECT_NEAR(p.major, 2.0 / 3.0, kTolerance);  // 1 * 2³ / 12
    EXPECT_NEAR(p.minor, 1.0 / 6.0, kTolerance);
    EXPECT_NEAR(std::sin(p.angle - turn - std::numbers::pi / 2.0), 0.0, kTolerance);
    EXPECT_NEAR(p.iyy + p.izz, p.major + p.minor, kTolerance);
    EXPECT_NEAR(p.iyy * p.izz - p.iyz * p.iyz, p.major * p.minor, kTolerance);
    EXPECT_LE(std::abs(p.angle), std::numbers::pi / 2.0);
  }
}

TEST(CentroidalProperties, SymmetryGivesCleanNumbersAndNoAreaGivesNone) {
  const std::vector<Vec2<double>> square{{-0.1, -0.1}, {0.1, -0.1}, {0.1, 0.1}, {-0.1, 0.1}};
  const CentroidalProperties p = CentroidalPropertiesOf(MomentsOf(square));
  EXPECT_EQ(p.angle, 0.0);
  EXPECT_EQ(p.iyz, 0.0);
  EXPECT_EQ(p.centroid, (Vec2<double>{0.0, 0.0}));
  EXPECT_EQ(CentroidalPropertiesOf(MomentsOf(TurnedRectangle(0.0))).angle, std::numbers::pi / 2.0);

  const CentroidalProperties none = CentroidalPropertiesOf({});
  EXPECT_EQ(none.area, 0.0);
  EXPECT_TRUE(std::isnan(none.iyy) && std::isnan(none.centroid.x) && std::isnan(none.angle));
}

}  // namespace
}  // namespace Orlix::Numeric
