#include "model/oxdata/materials/CMatCurveParam.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Data::Design {
namespace {

constexpr double kMPa = 1e6;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

CurveShape Shape(CurveKind kind, double epsPeak = 0.0, double epsLimit = 0.0) {
  CurveShape shape;
  shape.kind = kind;
  shape.epsPeak = epsPeak;
  shape.epsLimit = epsLimit;
  return shape;
}

CurveShape Parabola(double peak, double exponent, double limit) {
  CurveShape shape = Shape(CurveKind::parabolaRectangle, peak, limit);
  shape.exponent = exponent;
  return shape;
}

CurveShape Hardening(double hardening, double epsHardening, double epsLimit) {
  CurveShape shape = Shape(CurveKind::bilinear, 0.0, epsLimit);
  shape.hardening = hardening;
  shape.epsHardening = epsHardening;
  return shape;
}

CurveShape Block(double start, double factor, double limit) {
  CurveShape shape = Shape(CurveKind::rectangularBlock, 0.0, limit);
  shape.blockStart = start;
  shape.blockFactor = factor;
  return shape;
}

/// A curve with the same shape on both sides.
CMatCurveParam Symmetric(MatType type, const CurveShape& shape, const CurveScale& scale) {
  CMatCurveParam curve(type);
  curve.SetShapes(shape, shape, scale);
  return curve;
}

struct Case {
  const char* what;
  MatType type;
  CurveShape shape;
  CurveScale scale;
  double limit;
  std::vector<Vec2<double>> values;  // strain, stress [MPa]

  bool IsCap() const { return shape.epsLimit == 0.0 && type != MatType::FRP; }
};

/// Rows as calls, which are laid out more closely than nested lists.
Case Row(const char* what, MatType type, const CurveShape& shape, const CurveScale& scale,
         double limit, const std::vector<Vec2<double>>& values) {
  return {what, type, shape, scale, limit, values};
}

/// Strengths in round numbers, so that the values follow by hand.
std::vector<Case> Cases() {
  const CurveScale conc{20 * kMPa, 30e9};
  const CurveScale yield{400 * kMPa, 200e9};
  const CurveScale k175{30 * kMPa, 25e9};  // k = 1.05 * 25000 * 0.002 / 30 = 1.75
  const MatType concrete = MatType::concrete;
  const MatType steel = MatType::steel;
  const MatType bar = MatType::reinforcement;
  using enum CurveKind;
  return {
      Row("none", concrete, Shape(none), conc, 1.0, {{0.5, 0}}),
      Row("linear FRP breaks at its strength", MatType::FRP, Shape(linear), yield, 0.002,
          {{0.001, 200}, {0.01, 400}}),
      Row("bilinear", steel, Shape(bilinear), yield, 0.05, {{0.001, 200}, {0.03, 400}}),
      Row("bilinear with a peak strain", concrete, Shape(bilinear, 0.00175, 0.0035), conc, 0.0035,
          {{0.000875, 10}, {0.003, 20}}),
      Row("bilinear cut before its strength", steel, Hardening(1.0, 0.0, 0.001), yield, 0.001,
          {{0.0005, 100}, {0.002, 200}}),
      Row("hardening, then horizontal", bar, Hardening(1.25, 0.052, 0.08), yield, 0.08,
          {{0.002, 400}, {0.027, 450}, {0.052, 500}, {0.08, 500}}),
      Row("parabola of degree 2", concrete, Parabola(0.002, 2, 0.0035), conc, 0.0035,
          {{0.001, 15}, {0.002, 20}, {0.0035, 20}}),
      Row("parabola of degree 3", concrete, Parabola(0.002, 3, 0.0), conc, 1.0,
          {{0.001, 17.5}, {0.9, 20}}),
      Row("power", concrete, Parabola(0.002, 1.5, 0.003), conc, 0.003,
          {{0.0015, 17.5}, {0.002, 20}}),
      Row("power without plateau", concrete, Parabola(0.0026, 1.4, 0.0026), conc, 0.0026,
          {{0.0026, 20}}),
      Row("block", concrete, Block(0.0007, 0.9, 0.0035), conc, 0.0035,
          {{0.0006, 0}, {0.001, 18}, {0.01, 18}}),
      // (1.75 h - h²) / (1 - 0.25 h) at h = 0.5 and 1.5: 5/7 and 0.6.
      Row("non-linear", concrete, Shape(nonLinear, 0.002, 0.003), k175, 0.003,
          {{0.001, 150.0 / 7}, {0.002, 30}, {0.003, 18}}),
      Row("interpolated service model", concrete, Shape(interpolated), conc, 1.0, {}),
  };
}

TEST(CMatCurveParam, HasTheStressesOfItsShape) {
  for (const Case& c : Cases()) {
    SCOPED_TRACE(c.what);
    const CMatCurveParam curve = Symmetric(c.type, c.shape, c.scale);
    ASSERT_FALSE(curve.Segments().empty());
    for (const auto& v : c.values) {
      // Some tens of roundings.
      EXPECT_NEAR(curve.Stress(v.x), v.y * kMPa, 1e-14 * c.scale.strength) << v.x;
      EXPECT_NEAR(curve.Stress(-v.x), -v.y * kMPa, 1e-14 * c.scale.strength) << -v.x;
    }
    EXPECT_EQ(curve.CompressionLimit(), c.limit);
    EXPECT_EQ(curve.TensionLimit(), c.limit);
    EXPECT_EQ(curve.IsLimitCap(LoadSign::compression), c.IsCap());
    EXPECT_EQ(curve.IsLimitCap(LoadSign::tension), c.IsCap());
    EXPECT_EQ(curve.Stress(2 * c.limit), curve.Stress(c.limit));
    EXPECT_EQ(curve.Stress(-2 * c.limit), curve.Stress(-c.limit));
  }
}

TEST(CMatCurveParam, IsContinuousButForStepsAndInvertedByStrain) {
  for (const Case& c : Cases()) {
    SCOPED_TRACE(c.what);
    const CMatCurveParam curve = Symmetric(c.type, c.shape, c.scale);
    const auto& segments = curve.Segments();
    bool stepped = false;
    for (std::size_t i = 1; i < segments.size(); ++i) {
      ASSERT_LT(segments[i].from, segments[i].to);
      ASSERT_EQ(segments[i].from, segments[i - 1].to);
      const double jump =
          segments[i].Stress(segments[i].from) - segments[i - 1].Stress(segments[i].from);
      stepped = stepped || std::abs(jump) > 1e-14 * c.scale.strength;  // a few roundings
    }
    EXPECT_EQ(stepped, c.shape.kind == CurveKind::rectangularBlock);

    double peak = 0.0;
    for (int i = 0; i <= 1000; ++i) peak = std::max(peak, curve.Stress(i * c.limit / 1000.0));
    double last = 0.0;
    for (const double share : {1e-9, 0.3, 0.99, 0.999999}) {
      const double strain = curve.Strain(share * peak);
      EXPECT_GE(strain, last);
      last = strain;
      // The slope near a peak loses half the digits of the strain, none of the stress.
      if (!stepped) {
        EXPECT_NEAR(curve.Stress(strain), share * peak, 1e-13 * peak);
      }
      if (c.shape.kind != CurveKind::interpolated) {
        EXPECT_DOUBLE_EQ(curve.Strain(-share * peak), -strain);
      }
    }
  }
}

TEST(CMatCurveParam, StrainOfPlateausPeaksAndSteps) {
  const CurveScale steel{400 * kMPa, 200e9};
  const CurveScale concrete{20 * kMPa, 30e9};
  const struct {
    const char* what;
    CurveShape shape;
    CurveScale scale;
    double stress;
    double want;
  } kCases[] = {
      {"above the plateau", Shape(CurveKind::bilinear), steel, 500 * kMPa, 0.002},
      {"above hardening", Hardening(1.25, 0.052, 0.08), steel, 600 * kMPa, 0.052},
      {"peak of the parabola", Parabola(0.002, 2, 0.0035), concrete, 20 * kMPa, 0.002},
      {"above the non-linear peak", Shape(CurveKind::nonLinear, 0.0022, 0.0035), concrete,
       30 * kMPa, 0.0022},
      {"within a step", Block(0.0007, 1, 0.0035), concrete, 10 * kMPa, 0.0007},
      {"no stress", Shape(CurveKind::none), concrete, 10 * kMPa, 0.0},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const CMatCurveParam curve = Symmetric(MatType::concrete, c.shape, c.scale);
    EXPECT_DOUBLE_EQ(curve.Strain(c.stress), c.want);
    EXPECT_DOUBLE_EQ(curve.Strain(-c.stress), -c.want);
  }
}

TEST(CMatCurveParam, ShapesWithoutSenseLeaveNoCurve) {
  const CurveScale scale{20 * kMPa, 30e9};
  CurveShape uniform = Parabola(0.002, 2, 0.0035);
  uniform.uniformLimit = 0.004;
  const struct {
    const char* what;
    CurveShape shape;
    CurveScale scale;
  } kCases[] = {
      {"peak beyond the limit", Parabola(0.004, 2, 0.0035), scale},
      {"no peak", Parabola(0.0, 2, 0.0035), scale},
      {"exponent below 1", Parabola(0.002, 0.5, 0.0035), scale},
      {"negative limit", Parabola(0.002, 2, -0.0035), scale},
      {"limit not a number", Parabola(0.002, 2, kNan), scale},
      {"uniform limit beyond the limit", uniform, scale},
      {"no strength", Parabola(0.002, 2, 0.0035), {0.0, 30e9}},
      {"linear without modulus", Shape(CurveKind::linear), {20 * kMPa, 0.0}},
      {"hardening ends before yielding", Hardening(1.1, 0.0001, 0.01), scale},
      {"block starts at the limit", Block(0.0035, 1, 0.0035), scale},
      {"non-linear that does not rise", Shape(CurveKind::nonLinear, 0.0005, 0.001), scale},
      {"non-linear beyond its zero", Shape(CurveKind::nonLinear, 0.002, 0.1), scale},
      {"explicit without points", Shape(CurveKind::explicitPoints), scale},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const CMatCurveParam curve = Symmetric(MatType::concrete, c.shape, c.scale);
    EXPECT_TRUE(curve.Segments().empty());
    EXPECT_EQ(curve.Stress(0.001), 0.0);
    EXPECT_EQ(curve.CompressionLimit(), 0.0);
  }
}

struct ExplicitCase {
  const char* what;
  MatType type;
  double tensionLimit, compressionLimit;
  std::vector<Vec2<double>> rows;    // strain, stress [MPa], tension positive
  std::vector<Vec2<double>> values;  // strain, stress [MPa], compression positive
};

TEST(CMatCurveParam, ExplicitPointsAreTensionPositive) {
  const MatType concrete = MatType::concrete;
  const MatType steel = MatType::steel;
  const ExplicitCase kCases[] = {
      ExplicitCase("both sides", concrete, 0.0002, 0.003,
                   {{-0.003, -30}, {-0.001, -20}, {0, 0}, {0.0001, 2}, {0.0002, 0}},
                   {{0.001, 20}, {0.002, 25}, {0.01, 30}, {-0.00005, -1}, {-0.00015, -1}, {-1, 0}}),
      ExplicitCase("unsorted, one row twice", concrete, 0.0001, 0.003,
                   {{0.0001, 2}, {-0.003, -30}, {0.0001, 2}, {-0.001, -20}},
                   {{0.0005, 10}, {0.002, 25}, {-0.00005, -1}}),
      ExplicitCase("steel mirrors tension", steel, 0.05, 0.05, {{0.002, 400}, {0.05, 500}},
                   {{0.001, 200}, {-0.001, -200}, {0.026, 450}}),
      ExplicitCase("bars mirror compression", MatType::reinforcement, 0.05, 0.05,
                   {{-0.002, -400}, {-0.05, -400}}, {{0.001, 200}, {-0.03, -400}}),
      ExplicitCase("FRP does not mirror", MatType::FRP, 0.01, 0.05, {{0.01, 1000}},
                   {{0.01, 0}, {-0.005, -500}}),
      ExplicitCase("step, from zero down", concrete, 1.0, 0.0035,
                   {{0, 0}, {-0.0007, 0}, {-0.0007, -20}, {-0.0035, -20}},
                   {{0.0006, 0}, {0.0008, 20}}),
      ExplicitCase("step at zero strain", steel, 0.05, 0.05,
                   {{-0.05, -400}, {0, -400}, {0, 400}, {0.05, 400}},
                   {{0.001, 400}, {-0.001, -400}}),
  };
  for (const ExplicitCase& c : kCases) {
    SCOPED_TRACE(c.what);
    CTableT<double> table(2);
    for (const auto& row : c.rows) table.AddRow({row.x, row.y * kMPa});
    CMatCurveParam curve = Symmetric(c.type, Shape(CurveKind::explicitPoints), {});
    curve.SetExplicitPoints(table);
    ASSERT_FALSE(curve.Segments().empty());
    EXPECT_EQ(curve.TensionLimit(), c.tensionLimit);
    EXPECT_EQ(curve.CompressionLimit(), c.compressionLimit);
    for (const auto& v : c.values) EXPECT_NEAR(curve.Stress(v.x), v.y * kMPa, 1e-6) << v.x;
  }
}

TEST(CMatCurveParam, RefusesTablesItCannotUse) {
  CMatCurveParam curve = Symmetric(MatType::steel, Shape(CurveKind::explicitPoints), {});
  EXPECT_THROW(curve.SetExplicitPoints(CTableT<double>(3)), std::invalid_argument);
  for (const auto& row : std::vector<std::vector<double>>{{0.0, 400e6}, {kNan, 1.0}, {0.1, kNan}}) {
    CTableT<double> table(2);
    table.AddRow(row);
    curve.SetExplicitPoints(table);
    EXPECT_TRUE(curve.Segments().empty());
  }
}

}  // namespace
}  // namespace Orlix::Data::Design
