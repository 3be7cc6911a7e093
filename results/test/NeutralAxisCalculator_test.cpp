#include "results/NeutralAxisCalculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace Orlix {
namespace {

using Data::Velmo9::Deformation;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

void ExpectSame(double got, double want) {
  if (std::isnan(want)) {
    EXPECT_TRUE(std::isnan(got)) << got;
  } else {
    EXPECT_DOUBLE_EQ(got, want);
    EXPECT_EQ(std::signbit(got), std::signbit(want));
  }
}

TEST(NeutralAxisCalculator, FindsTheLineOfZeroStrain) {
  constexpr double kPi = std::numbers::pi;
  const struct {
    Vec3<double> plane;
    double angle;
    double offset;
  } kCases[] = {
      {{0.001, 0.01, 0.0}, 0.0, -0.1},
      {{-0.002, 0.0, 0.02}, kPi / 2, 0.1},
      {{0.001, -0.01, 0.0}, kPi, -0.1},
      {{-0.005, 0.03, 0.04}, std::atan2(0.04, 0.03), 0.1},
      {{0.0, 0.01, 0.0}, 0.0, -0.0},
      {{0.001, 0.0, 0.0}, kNone, kNone},
      // A curvature at the tolerance counts, one just below it does not; each below and the vector
      // above gives an offset alone.
      {{1e-10, 1e-10, 0.0}, 0.0, -1.0},
      {{1e-10, 0.99e-10, 0.0}, kNone, kNone},
      {{1e-10, 0.8e-10, 0.8e-10}, kNone, -1e-10 / std::hypot(0.8e-10, 0.8e-10)},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.plane.x << ' ' << c.plane.y << ' ' << c.plane.z);
    const NeutralAxisData got = NeutralAxisCalculator::ComputeNeutralAxisData(Deformation(c.plane));
    ExpectSame(got.angle, c.angle);
    ExpectSame(got.offset, c.offset);
  }
}

}  // namespace
}  // namespace Orlix
