#include "model/oxdata/materials/service_curves.h"

#include <gtest/gtest.h>

#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Data::Design {
namespace {

constexpr CurveScale kScale{30e6, 30e9};

CurveShape Shape(CurveKind kind, double epsPeak = 0.0, double epsLimit = 0.0) {
  CurveShape shape;
  shape.kind = kind;
  shape.epsPeak = epsPeak;
  shape.epsLimit = epsLimit;
  return shape;
}

CMatCurveParam Concrete(const CurveShape& compression, const CurveShape& tension) {
  CMatCurveParam curve(MatType::concrete);
  CTableT<double> points(2);
  const Vec2<double> kRows[] = {{-0.004, -20e6}, {-0.002, -25e6}, {-0.001, -15e6},
                                {0.0001, 3e6},   {0.0001, 1e6},   {0.0005, 0.0}};
  for (const auto& [strain, stress] : kRows) points.AddRow({strain, stress});
  curve.SetExplicitPoints(points);
  curve.SetShapes(compression, tension, kScale);
  return curve;
}

struct Named {
  const char* what;
  CMatCurveParam curve;
};

std::vector<Named> PlainCurves() {
  using enum CurveKind;
  CurveShape sloped = Shape(linear, 0.0, 0.0008);
  sloped.slope = 12e9;
  CurveShape hardening = Shape(bilinear, 0.0, 0.004);
  hardening.hardening = 1.2;
  hardening.epsHardening = 0.003;
  CurveShape parabola = Shape(parabolaRectangle, 0.002, 0.0035);
  parabola.uniformLimit = 0.002;
  CurveShape power = parabola;
  power.exponent = 1.5;
  CurveShape block = Shape(rectangularBlock, 0.0, 0.0035);
  block.blockStart = 0.0007;
  block.blockFactor = 0.9;
  return {
      {"linear", Concrete(Shape(linear), sloped)},
      {"bilinear", Concrete(hardening, Shape(bilinear))},
      {"bilinear with a peak", Concrete(Shape(bilinear, 0.00175, 0.0035), Shape(none))},
      {"parabola-rectangle", Concrete(parabola, Shape(explicitPoints))},
      {"power", Concrete(power, Shape(none))},
      {"block", Concrete(block, Shape(none))},
      {"non-linear", Concrete(Shape(nonLinear, 0.0022, 0.0035), Shape(none))},
      {"explicit", Concrete(Shape(explicitPoints), Shape(explicitPoints))},
  };
}

TEST(Stretched, HasTheStressOfTheStrainOverTheFactor) {
  for (const auto& [what, curve] : PlainCurves()) {
    SCOPED_TRACE(what);
    EXPECT_EQ(UncrackedCurve(curve, 0.0), curve);
    EXPECT_EQ(CrackedCurve(curve, 2.0, 5e9), Stretched(curve, 3.0));
    for (const double factor : {1.5, 3.7}) {
      const CMatCurveParam got = UncrackedCurve(curve, factor - 1);
      ASSERT_EQ(got.Segments().size(), curve.Segments().size());
      for (int i = -500; i <= 500; ++i) {
        const double strain = (i + 0.3) * 1e-5;  // off the steps
        // Some tens of roundings of up to 150 MPa.
        EXPECT_NEAR(got.Stress(factor * strain), curve.Stress(strain), 1e-14 * 150e6) << strain;
      }
      const auto expectLimit = [&](LoadSign sign, double stretched, double limit) {
        EXPECT_DOUBLE_EQ(stretched, curve.IsLimitCap(sign) ? limit : factor * limit);
        EXPECT_EQ(got.IsLimitCap(sign), curve.IsLimitCap(sign));
      };
      expectLimit(LoadSign::compression, got.CompressionLimit(), curve.CompressionLimit());
      expectLimit(LoadSign::tension, got.TensionLimit(), curve.TensionLimit());
      EXPECT_DOUBLE_EQ(got.UniformCompressionLimit(), factor * curve.UniformCompressionLimit());
    }
  }
}

TEST(ServiceCurves, WholeModelsMatchTheTable) {
  const CurveKind kExplicit = CurveKind::explicitPoints;
  const CurveKind k20 = CurveKind::bs8110Tension;
  const CurveKind k22 = CurveKind::interpolated;
  const struct {
    const char* what;
    CurveKind compression, tension;
    double creep;
    double modulus;         // of compression, and of tension before cracking [Pa]
    double tensionModulus;  // given [Pa]
    double cracked;         // modulus of tension after cracking [Pa]
  } kCases[] = {
      {"22 with creep", k22, k22, 2.0, 10e9, 7e9, 0.0},
      {"20 with creep: the tension is given", k20, k20, 2.0, 10e9, 7e9, 7e9},
      {"20 with a slope far below the strength", k20, k20, 0.0, 30e9, 1e5, 1e5},
      {"20 without tension", k20, k20, 0.0, 30e9, 0.0, 0.0},
      {"20 beside explicit compression", kExplicit, k20, 0.0, 0.0, 7e9, 7e9},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CurveShape limited = Shape(c.tension);
    limited.epsLimit = 0.002;  // counts for nothing
    const CMatCurveParam sls = Concrete(Shape(c.compression), limited);
    const CMatCurveParam before = UncrackedCurve(sls, c.creep);
    const CMatCurveParam after = CrackedCurve(sls, c.creep, c.tensionModulus);
    const double modulus = kScale.modulus / (1 + c.creep);
    const bool isLinear = c.compression != kExplicit;
    for (const double strain : {1e-6, 1e-3, 0.5}) {
      EXPECT_DOUBLE_EQ(before.Stress(-strain), -modulus * strain);
      EXPECT_DOUBLE_EQ(after.Stress(-strain), -c.cracked * strain);
      if (isLinear) {
        EXPECT_DOUBLE_EQ(before.Stress(strain), c.modulus * strain);
      }
      EXPECT_EQ(after.Stress(strain), before.Stress(strain));
    }
    for (const CMatCurveParam* curve : {&before, &after}) {
      EXPECT_EQ(curve->TensionLimit(), 1.0);
      EXPECT_TRUE(curve->IsLimitCap(LoadSign::tension));
      EXPECT_EQ(curve->CompressionLimit(), isLinear ? 1.0 : 0.004);
    }
  }
}

}  // namespace
}  // namespace Orlix::Data::Design
