// Crack widths of sections at a given cracked plane, so that all that is checked is the rule and
// what the geometry gives it.
#include "model/vlsol/cracks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>

#include "model/vlsol/test/service_beam.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::CSecGeom;
using Data::Design::CrackWidthRule;
using Data::Design::Bs8110::CrackWidthParameters;
using Data::Velmo9::CCrack;
using Data::Velmo9::CrackRemark;
using Data::Velmo9::SlsCaseSolution;

const CrackWidthRule kEn1992 = Data::Design::En1992::CrackWidthParameters{};
const CrackWidthRule kBs8110 = Data::Design::Bs8110::CrackWidthParameters{};

double CircleArea(double diameter) { return std::numbers::pi / 4 * diameter * diameter; }

// A beam whose concrete has no tension between cracks.
ServiceBeam Beam() { return ServiceBeam(Data::Design::CurveKind::interpolated); }

CrackModel ModelOf(ServiceBeam& beam, const CrackWidthRule& rule) {
  beam.Under({1.0, 0.0, 0.0});
  const auto& document = beam.Document().Document();
  const auto& section = document.Section(0);
  return {rule,
          CrackComponent::Of(document, section, 0, *section.Task(0).Results()->crackedComponents),
          0.0};
}

SlsCaseSolution At(const Vec3<double>& plane) {
  SlsCaseSolution solution;
  solution.cracked = solution.crackPlane = plane;
  solution.crackingUtilisation = 2.0;
  solution.solved = true;
  return solution;
}

// Strain growing at an angle from +y towards +z, `strain` at a distance from the line of zero
// strain, which is `offset` from the origin.
Vec3<double> Bending(double angle, double strain, double distance, double offset = 0.0) {
  const double kappa = strain / distance;
  return {-kappa * offset, kappa * std::sin(angle), -kappa * std::cos(angle)};
}

constexpr double kUp = std::numbers::pi / 2;

ServiceBeam SquareColumn(double turn = 0.0) {
  ServiceBeam beam = Beam();
  const auto turned = [turn](double y, double z) {
    return Vec2<double>{y * std::cos(turn) - z * std::sin(turn),
                        y * std::sin(turn) + z * std::cos(turn)};
  };
  beam.Outline({turned(-0.2, -0.2), turned(0.2, -0.2), turned(0.2, 0.2), turned(-0.2, 0.2)});
  for (const double y : {-0.15, 0.0, 0.15}) {
    for (const double z : {-0.15, 0.0, 0.15}) {
      if (y != 0.0 || z != 0.0) beam.Bar(turned(y, z), CircleArea(0.025));
    }
  }
  return beam;
}

ServiceBeam Pier() {
  ServiceBeam beam = Beam();
  beam.Outline(CSecGeom(Data::ShapeKind::circle, {.diameter = 0.6}).Polygons(0.0)[0].outline);
  for (int i = 0; i < 8; ++i) {
    const double angle = std::numbers::pi / 4 * i;
    beam.Bar({0.25 * std::cos(angle), 0.25 * std::sin(angle)}, CircleArea(0.02));
  }
  return beam;
}

// Slab 250 mm deep, tension below: bars of 20 mm at 150 mm, 40 mm of cover.
ServiceBeam Slab() {
  ServiceBeam beam = Beam();
  beam.Rectangle(0.85, 0.25);
  for (int i = 0; i < 6; ++i) beam.Bar({-0.375 + 0.15 * i, -0.075}, CircleArea(0.02));
  return beam;
}

ServiceBeam PlainBeam() { return Beam().Rectangle(0.2, 0.3); }

// Each by the equations of the code, step by step; f_ct 2.9 MPa, n = 200/33, short-term load.
//  square: the line of zero strain through two corners. h - x = 282.8, h_c,ef = 94.28 mm, one bar
//    in a corner of 94.28² mm² with c = 37.5 mm: rho 0.05522, s_r,max 204.46 mm; 200 MPa less
//    42.05 MPa between cracks.
//  pier: zero strain across the middle. h_c,ef = 100 mm, one bar in a segment of 30975 mm² with
//    c = 40 mm: rho 0.010142, s_r,max 471.23 mm; 0.6 of the steel's strain.
//  slab, EN: x = 85 mm, h_c,ef = 55 mm: rho 0.040320, s_r,max 220.33 mm; 192 MPa less 53.70 MPa.
//  slab, BS: a_cr = 80.139 mm between two bars; 0.00137739 at the surface less 0.00017792.
//  plain: x = 150 mm: 1.3 and 1.5 times 150 mm times 0.001.
const struct {
  const char* what;
  ServiceBeam (*beam)();
  const CrackWidthRule& rule;
  Vec3<double> plane;
  double width;      // [m]
  double tolerance;  // relative, of the hand calculation's digits; of the pier's polygon
  CrackRemark remark;
} kByHand[] = {
    {"square bent about its diagonal", [] { return SquareColumn(); }, kEn1992,
     Bending(std::numbers::pi / 4, 0.001, 0.15 * std::numbers::sqrt2), 0.161469e-3, 1e-5,
     CrackRemark::none},
    {"pier", Pier, kEn1992, Bending(kUp, 0.001, 0.25), 0.282736e-3, 1e-3, CrackRemark::none},
    {"slab", Slab, kEn1992, Bending(-kUp, 0.00096, 0.115, -0.04), 0.152355e-3, 1e-5,
     CrackRemark::none},
    {"slab", Slab, kBs8110, Bending(-kUp, 0.00096, 0.115, -0.04), 0.193989e-3, 1e-5,
     CrackRemark::none},
    {"plain concrete", PlainBeam, kEn1992, Bending(kUp, 0.001, 0.15), 0.195e-3, 1e-12,
     CrackRemark::noBars},
    {"plain concrete", PlainBeam, kBs8110, Bending(kUp, 0.001, 0.15), 0.225e-3, 1e-12,
     CrackRemark::noBars},
};

TEST(Cracks, MatchHandCalculation) {
  for (const auto& c : kByHand) {
    SCOPED_TRACE(c.what);
    ServiceBeam beam = c.beam();
    const CrackModel model = ModelOf(beam, c.rule);
    const double width = model.LargestWidth(At(c.plane));
    EXPECT_NEAR(width, c.width, c.tolerance * c.width);
    const CCrack crack = model.Cracks(At(c.plane)).at(0).front();
    EXPECT_EQ(crack.width, width);
    EXPECT_NEAR(crack.spacing * crack.strain, width, 1e-12 * width);
    EXPECT_EQ(crack.remark, c.remark);
  }
}

TEST(Cracks, NoWidthWithoutCracksASolutionOrTheRulesRange) {
  ServiceBeam beam = Slab();
  const CrackModel model = ModelOf(beam, kBs8110);
  SlsCaseSolution solution = At(Bending(-kUp, 0.0021, 0.115, -0.04));  // over 0.8 of f_y/E
  EXPECT_EQ(model.LargestWidth(solution), std::numeric_limits<double>::infinity());
  EXPECT_EQ(model.Cracks(solution).at(0).front().remark, CrackRemark::steelBeyondRange);
  solution.crackingUtilisation = 1.0;
  EXPECT_EQ(model.LargestWidth(solution), 0.0);
  EXPECT_TRUE(model.Cracks(solution).empty());
  solution.solved = false;
  EXPECT_EQ(model.LargestWidth(solution), std::numeric_limits<double>::infinity());
  EXPECT_EQ(model.LargestWidth(At({-1e-3, 0.0, 0.0})), 0.0);  // all in compression
}

TEST(Cracks, TurnWithTheSection) {
  constexpr double kTurn = 0.7;
  ServiceBeam straight = SquareColumn();
  ServiceBeam turned = SquareColumn(kTurn);
  for (const CrackWidthRule& rule : {kEn1992, kBs8110}) {
    for (const double angle : {0.1, 0.9, 2.0}) {
      for (const double offset : {0.05, -0.1, -0.5}) {  // the last: all in tension
        const double want =
            ModelOf(straight, rule).LargestWidth(At(Bending(angle, 5e-4, 0.3, offset)));
        const double got =
            ModelOf(turned, rule).LargestWidth(At(Bending(angle + kTurn, 5e-4, 0.3, offset)));
        EXPECT_NEAR(got, want, 1e-9 * want) << angle << ' ' << offset;
      }
    }
  }
}

// A width along a path of planes or bars moves no more than 1e4 times its size for a unit of it:
// the steps are a millionth of that, and a jump of a thousandth would be seen.
void ExpectContinuous(const std::function<double(double)>& width, double from, double to) {
  constexpr double kStep = 1e-9;
  constexpr int kPlaces = 60;
  // Each stretch between two places is bisected towards where it changes most.
  for (int i = 0; i < kPlaces; ++i) {
    double a = from + (to - from) * i / kPlaces;
    double b = from + (to - from) * (i + 1) / kPlaces;
    double wa = width(a);
    double wb = width(b);
    while (b - a > kStep) {
      const double middle = 0.5 * (a + b);
      const double w = width(middle);
      if (std::abs(w - wa) > std::abs(w - wb)) {
        b = middle;
        wb = w;
      } else {
        a = middle;
        wa = w;
      }
    }
    ASSERT_NEAR(wa, wb, 1e-4 * std::max(wa, wb)) << a;
  }
}

TEST(Cracks, WidthsDoNotJumpAsTheLoadMoves) {
  const struct {
    ServiceBeam beam;
    const CrackWidthRule& rule;
  } kSections[] = {{SquareColumn(), kEn1992}, {Slab(), kEn1992}};
  for (auto section : kSections) {
    const CrackModel model = ModelOf(section.beam, section.rule);
    const auto turning = [&](double angle) {
      return model.LargestWidth(At(Bending(angle, 1e-3, 0.3, -0.02)));
    };
    ExpectContinuous(turning, 0.0, 3.2);
    const auto sinking = [&](double axial) {  // from bending to more tension
      return model.LargestWidth(At({axial * 1e-3, 1.5e-3, 1e-3}));
    };
    ExpectContinuous(sinking, -0.2, 1.1);
    const auto straightening = [&](double bending) {  // from uniform tension
      return model.LargestWidth(At({1e-3, bending * 1.5e-3, bending * 1e-3}));
    };
    ExpectContinuous(straightening, 1e-6, 1.0);
  }
}

TEST(Cracks, WidthsDoNotJumpAsABarMoves) {
  for (const CrackWidthRule& rule : {kEn1992, kBs8110}) {
    for (const bool upwards : {true, false}) {
      const auto moving = [&](double way) {
        ServiceBeam beam = Beam();
        beam.Rectangle(0.4, 0.5).Bar({-0.15, -0.2}, CircleArea(0.02));
        beam.Bar({upwards ? 0.0 : way, upwards ? way - 0.2 : -0.2}, CircleArea(0.025));
        return ModelOf(beam, rule).LargestWidth(At(Bending(-1.3, 1e-3, 0.3)));
      };
      ExpectContinuous(moving, 0.0, 0.15);
    }
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
