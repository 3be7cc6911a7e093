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
    const char* what;
    Vec3<double> plane;
    double angle;
    double offset;
  } kCases[] = {
      {"bending about y", {0.001, 0.01, 0.0}, 0.0, -0.1},
      {"bending about z", {-0.002, 0.0, 0.02}, kPi / 2, 0.1},
      {"reversed bending about y", {0.001, -0.01, 0.0}, kPi, -0.1},
      {"both", {-0.005, 0.03, 0.04}, std::atan2(0.04, 0.03), 0.1},
      {"through the origin", {0.0, 0.01, 0.0}, 0.0, -0.0},
      {"no curvature", {0.001, 0.0, 0.0}, kNone, kNone},
      {"curvature at the tolerance counts", {1e-10, 1e-10, 0.0}, 0.0, -1.0},
      {"just below it does not", {1e-10, 0.99e-10, 0.0}, kNone, kNone},
      {"each below it, the vector above",
       {1e-10, 0.8e-10, 0.8e-10},
       kNone,
       -1e-10 / std::hypot(0.8e-10, 0.8e-10)},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const NeutralAxisData got = NeutralAxisCalculator::ComputeNeutralAxisData(Deformation(c.plane));
    ExpectSame(got.angle, c.angle);
    ExpectSame(got.offset, c.offset);
  }
}

TEST(NeutralAxisCalculator, TheStrainIsZeroAlongTheLine) {
  const Deformation plane(Vec3<double>{0.0007, -0.004, 0.011});
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(plane);
  const double c = std::cos(axis.angle);
  const double s = std::sin(axis.angle);
  for (const double along : {-2.0, 0.0, 3.0}) {
    const Vec2<double> point{along * c - axis.offset * s, along * s + axis.offset * c};
    EXPECT_NEAR(plane.StrainAt(point), 0.0, 1e-16);  // a few roundings of terms of 1e-2
  }
}

}  // namespace
}  // namespace Orlix
