#include "model/oxnumeric/section/StressCurve.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/oxnumeric/section/test/sections.h"

namespace Orlix::Numeric {
namespace {

using namespace Testing;

double StressAt(const PiecewiseCurve& curve, double eps) {
  return curve[curve.Locate(eps)].Stress(eps);
}

TEST(CSegment, MirrorIsTheCurveTurnedAboutTheOrigin) {
  const CSegment kSegments[] = {CSegment::Constant(0.001, 0.003, 5.0),
                                CSegment::Line(-0.001, 0.004, -2.0, 7.0),
                                CSegment::Cubic(0.0, 0.003, 0.001, {1.0, 2e3, -3e5, 4e7}),
                                CSegment::Power(0.0, 0.002, 0.002, 20.0, -20.0, -500.0, 1.6),
                                CSegment::Rational(0.0, 0.003, 0.0, 3e4, -4e6, 20.0)};
  for (const CSegment& s : kSegments) {
    SCOPED_TRACE(static_cast<int>(s.kind));
    const CSegment m = s.Mirrored();
    EXPECT_EQ(m.Mirrored(), s);
    for (int i = 0; i <= 4; ++i) {
      const double e = s.from + (s.to - s.from) * i / 4;
      const double scale = std::abs(s.Stress(e)) + 1.0;
      EXPECT_NEAR(m.Stress(-e), -s.Stress(e), 1e-14 * scale);  // rounding of one formula
      EXPECT_NEAR(m.Tangent(-e), s.Tangent(e), 1e-13 * (std::abs(s.Tangent(e)) + 1.0));
      if (i == 0 || i == 4) continue;
      const double h = 1e-7 * (s.to - s.from);
      const double slope = (s.Stress(e + h) - s.Stress(e - h)) / (2 * h);
      EXPECT_NEAR(s.Tangent(e), slope, 1e-6 * (std::abs(slope) + scale / (s.to - s.from)));
    }
  }
}

TEST(StressCurve, GoesOnBeyondItsLimitsWithASmallSlope) {
  const StressCurve c = MakeStressCurve(ParabolaRectangle(20e6));
  EXPECT_DOUBLE_EQ(c.lower, -0.0035);
  EXPECT_DOUBLE_EQ(c.upper, 1.0);
  EXPECT_DOUBLE_EQ(c.modulus, 20e9);  // 2 f / eps_c2
  EXPECT_DOUBLE_EQ(StressAt(c.exact, -0.0045), -20e6 - 0.001 * 0.02 * 20e9);
  EXPECT_DOUBLE_EQ(StressAt(c.exact, -0.001), -15e6);
  EXPECT_DOUBLE_EQ(StressAt(c.exact, 0.5), 0.0);
  EXPECT_FALSE(c.hasSteps);
  EXPECT_FALSE(c.softens);
}

TEST(StressCurve, LocatesTheHalfOpenSegmentOfEveryStrain) {
  const StressCurve c = MakeStressCurve(Steel());
  for (std::size_t i = 0; i < c.exact.size(); ++i) {
    EXPECT_EQ(c.exact.Locate(c.exact[i].from), i);
    if (i + 1 < c.exact.size()) {
      EXPECT_EQ(c.exact.Locate(std::nextafter(c.exact[i].to, -1.0)), i);
    }
  }
  EXPECT_EQ(c.exact.Locate(std::numeric_limits<double>::infinity()), c.exact.size() - 1);
  EXPECT_LT(c.exact.Locate(std::nan("")), c.exact.size());
}

TEST(StressCurve, TwinsReplaceAStepByARampAroundIt) {
  const double f = 17e6;
  const StressCurve c = MakeStressCurve(Block(f, 0.0007, 0.0035));
  EXPECT_TRUE(c.hasSteps);
  EXPECT_DOUBLE_EQ(c.modulus, 4 * f / 0.0035);
  const struct {
    const PiecewiseCurve& curve;
    double width;
  } kTwins[] = {{c.ramp, 3.5e-6}, {c.displaced, f / 100e9}};
  for (const auto& twin : kTwins) {
    EXPECT_DOUBLE_EQ(StressAt(twin.curve, -0.0007 - 0.51 * twin.width), -f);
    EXPECT_NEAR(StressAt(twin.curve, -0.0007), -f / 2, 1e-9 * f);
    EXPECT_DOUBLE_EQ(StressAt(twin.curve, -0.0007 + 0.51 * twin.width), 0.0);
  }
}

TEST(StressCurve, TellsSofteningFromRoundOff) {
  EXPECT_TRUE(MakeStressCurve(Rational()).softens);
  CurveInput drop = Steel();
  drop.segments.back() = CSegment::Constant(drop.segments.back().from, 0.045, 400e6);
  EXPECT_TRUE(MakeStressCurve(drop).softens);
  CurveInput noisy = Steel();
  noisy.segments.back() =
      CSegment::Constant(noisy.segments.back().from, 0.045, 435e6 * (1 - 1e-12));
  EXPECT_FALSE(MakeStressCurve(noisy).softens);
}

}  // namespace
}  // namespace Orlix::Numeric
