// Crack widths of sections at a given cracked plane, so that all that is checked is the rule and
// what the geometry gives it.
#include "model/vlsol/cracks/cracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

#include "model/vlsol/test/crack_scan.h"
#include "model/vlsol/test/service_beam.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::CSecGeom;
using Data::Design::CrackWidthRule;
using Data::Design::CurveKind;
using Data::Design::Bs8110::CrackWidthParameters;
using Data::Velmo9::CCrack;
using Data::Velmo9::CrackRemark;
using Data::Velmo9::SlsCaseSolution;

const CrackWidthRule kEn1992 = Data::Design::En1992::CrackWidthParameters{};
const CrackWidthRule kBs8110 = Data::Design::Bs8110::CrackWidthParameters{};

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
    EXPECT_NEAR(crack.width, width, 1e-6 * width);  // of two alike the first
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

// An L of 0.5 m with 200 mm legs, turned, or mirrored first.
ServiceBeam Angle(double turn, double mirror = 1.0) {
  ServiceBeam beam = Beam();
  const auto at = [=](double y, double z) {
    return Vec2<double>{mirror * y * std::cos(turn) - z * std::sin(turn),
                        mirror * y * std::sin(turn) + z * std::cos(turn)};
  };
  beam.Outline({at(0, 0), at(0.5, 0), at(0.5, 0.2), at(0.2, 0.2), at(0.2, 0.5), at(0, 0.5)});
  for (const double s : {0.05, 0.25, 0.45}) {
    beam.Bar(at(s, 0.05), CircleArea(0.02)).Bar(at(0.05, s), CircleArea(0.016));
  }
  return beam;
}

TEST(Cracks, TurnAndMirrorWithTheSection) {
  constexpr double kTurn = 0.7;
  const ServiceBeam straight[] = {SquareColumn(), Angle(0.0)};
  const ServiceBeam turned[] = {SquareColumn(kTurn), Angle(kTurn, -1.0)};
  for (int i = 0; i < 2; ++i) {
    for (const CrackWidthRule& rule : {kEn1992, kBs8110}) {
      ServiceBeam before = straight[i];
      ServiceBeam after = turned[i];
      const CrackModel model = ModelOf(before, rule);
      const CrackModel moved = ModelOf(after, rule);
      for (const double angle : {0.1, 0.9, 2.0, 3.9, 5.5}) {
        for (const double offset : {0.05, -0.1, -0.8}) {  // the last: all in tension
          const double turnedAngle = (i == 0 ? angle : std::numbers::pi - angle) + kTurn;
          const double want = model.LargestWidth(At(Bending(angle, 3e-4, 0.3, offset)));
          const double got = moved.LargestWidth(At(Bending(turnedAngle, 3e-4, 0.3, offset)));
          EXPECT_NEAR(got, want, 1e-9 * want) << i << ' ' << angle << ' ' << offset;
        }
      }
    }
  }
}

TEST(Cracks, AreThoseOfTheWholeWhenTheSectionIsTwoComponentsSideBySide) {
  ServiceBeam whole = Slab();
  ServiceBeam halves = Beam();
  for (const double side : {-1.0, 1.0}) {
    halves.Outline({{0.0, -0.125}, {side * 0.425, -0.125}, {side * 0.425, 0.125}, {0.0, 0.125}});
  }
  for (int i = 0; i < 6; ++i) halves.Bar({-0.375 + 0.15 * i, -0.075}, CircleArea(0.02), 0.0, i / 3);
  for (const CrackWidthRule& rule : {kEn1992, kBs8110}) {
    const SlsCaseSolution solution = At(Bending(-kUp, 0.00096, 0.115, -0.04));
    const double want = ModelOf(whole, rule).LargestWidth(solution);
    const CrackModel model = ModelOf(halves, rule);
    EXPECT_NEAR(model.LargestWidth(solution), want, 1e-12 * want);
    for (const auto& [component, cracks] : model.Cracks(solution)) {
      EXPECT_NEAR(cracks.front().width, want, 1e-12 * want) << component;
      for (const CCrack& crack : cracks) EXPECT_EQ(crack.CrackPos().y, -0.125);  // not in the joint
    }
  }
}

ServiceBeam BeamOf(const Drawn& drawn) {
  ServiceBeam beam = Test::Beam();
  const auto ring = drawn.radius > 0.0
                        ? CSecGeom(Data::ShapeKind::circle, {.diameter = 2.0 * drawn.radius})
                              .Polygons(0.0)[0]
                              .outline
                        : drawn.outline;
  if (drawn.hole.empty()) {
    beam.Outline(ring);
  } else {
    beam.Outline(ring, {drawn.hole});
  }
  for (const Vec2<double>& bar : drawn.bars) beam.Bar(bar, CircleArea(drawn.diameter));
  return beam;
}

TEST(Cracks, AreFoundAgainOnAGrid) {
  std::vector<Vec2<double>> circle;
  for (int i = 0; i < 16; ++i) {
    const double angle = std::numbers::pi / 8 * (i + 0.3);
    circle.push_back({0.44 * std::cos(angle), 0.44 * std::sin(angle)});
  }
  const std::vector<Vec2<double>> rectangle = {
      {-0.15, -0.25}, {0.15, -0.25}, {0.15, 0.25}, {-0.15, 0.25}};
  const std::vector<Vec2<double>> inRectangle = {{-0.1, -0.2}, {-0.033, -0.2}, {0.033, -0.2},
                                                 {0.1, -0.2},  {-0.1, 0.2},    {0.1, 0.2}};
  const std::vector<Vec2<double>> box = {{-0.4, -0.3}, {0.4, -0.3}, {0.4, 0.3}, {-0.4, 0.3}};
  const std::vector<Vec2<double>> inBox = {{-0.35, -0.25}, {-0.15, -0.25}, {0.0, -0.25},
                                           {0.15, -0.25},  {0.35, -0.25},  {-0.35, 0.25},
                                           {0.35, 0.25},   {-0.35, 0.0},   {0.35, 0.0}};
  const Drawn kSections[] = {
      {"rectangle, biaxial",
       rectangle,
       {},
       0.0,
       inRectangle,
       0.02,
       Bending(-2.0, 0.0012, 0.25, 0.02)},
      {"rectangle, uniaxial",
       rectangle,
       {},
       0.0,
       inRectangle,
       0.025,
       Bending(-kUp, 0.0012, 0.25, -0.07)},
      {"box, a hole out of its middle",
       box,
       {{-0.25, -0.15}, {0.1, -0.15}, {0.1, 0.2}, {-0.25, 0.2}},
       0.0,
       inBox,
       0.025,
       Bending(-1.52, 0.0012, 0.3, -0.05)},
      {"circle", {}, {}, 0.5, circle, 0.025, Bending(0.6, 0.0015, 0.5, -0.1)},
  };
  for (const Drawn& drawn : kSections) {
    SCOPED_TRACE(drawn.what);
    ServiceBeam beam = BeamOf(drawn);
    const Scan scan(drawn);
    // A cell at the edge of an area or strip is in it or not: half a cell over 50 mm at the most.
    constexpr double kGrid = 1e-2;
    const double tie = ModelOf(beam, kEn1992).LargestWidth(At(drawn.plane));
    EXPECT_NEAR(tie, scan.TieWidth(), kGrid * tie);
    const double surface = ModelOf(beam, kBs8110).LargestWidth(At(drawn.plane));
    EXPECT_NEAR(surface, scan.SurfaceWidth(), 0.3 * kGrid * surface);  // the stiffening's part
  }
}

TEST(Cracks, CountFromDecompression) {
  const auto width = [](const CrackWidthRule& rule, double prestrain) {
    ServiceBeam beam = Beam();
    beam.Rectangle(0.4, 0.5);
    for (const double y : {-0.15, 0.0, 0.15}) beam.Bar({y, -0.2}, CircleArea(0.02), prestrain);
    return ModelOf(beam, rule).LargestWidth(At(Bending(-kUp, 1e-3, 0.3)));
  };
  EXPECT_EQ(width(kBs8110, 0.002), width(kBs8110, 0.0));
  EXPECT_GT(width(kEn1992, 0.002), 1.2 * width(kEn1992, 0.0));  // for the bond alone
}

// A width along a path of planes or bars moves no more than 1e4 times its size for a unit of it:
// the steps are a millionth of that, and a jump of a thousandth would be seen.
void ExpectContinuous(const std::function<double(double)>& width, double from, double to) {
  constexpr double kStep = 1e-9;
  constexpr int kPlaces = 24;
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
    const char* what;
    ServiceBeam beam;
    const CrackWidthRule& rule;
  } kSections[] = {{"square, EN", SquareColumn(), kEn1992}, {"square, BS", SquareColumn(), kBs8110},
                   {"slab, EN", Slab(), kEn1992},           {"slab, BS", Slab(), kBs8110},
                   {"pier, EN", Pier(), kEn1992},           {"pier, BS", Pier(), kBs8110},
                   {"angle, EN", Angle(0.3), kEn1992},      {"angle, BS", Angle(0.3), kBs8110}};
  for (auto section : kSections) {
    SCOPED_TRACE(section.what);
    const CrackModel model = ModelOf(section.beam, section.rule);
    const auto turning = [&](double angle) {
      return model.LargestWidth(At(Bending(angle, 1e-3, 0.3, -0.02)));
    };
    ExpectContinuous(turning, 0.0, 3.2);
    const auto sinking = [&](double axial) {  // from bending to more tension
      return model.LargestWidth(At({axial * 1e-3, 1.5e-3, 1e-3}));
    };
    ExpectContinuous(sinking, -0.45, 1.1);            // from all bars in compression
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

// Through the solver: the load grows from first cracking on, turns, gains axial force.
TEST(Cracks, WidthsOfCasesDoNotJump) {
  const struct {
    const char* what;
    const wchar_t* code;
    CurveKind model;
    double prestrain;
  } kBeams[] = {{"EN", L"EN 1992-1-1:2004", CurveKind::interpolated, 0.0},
                {"EN, prestressed", L"EN 1992-1-1:2004", CurveKind::interpolated, 1e-3},
                {"BS", L"BS 8110-1:1997", CurveKind::bs8110Tension, 0.0},
                {"BS, without tension", L"BS 8110-1:1997", CurveKind::none, 0.0}};
  for (const auto& c : kBeams) {
    SCOPED_TRACE(c.what);
    ServiceBeam beam(c.model);
    beam.Rectangle(0.3, 0.5).Creep({Data::Velmo9::LoadTerm::longTerm, 2.0, 1.0});
    for (const double y : {-0.1, 0.0, 0.1}) beam.Bar({y, -0.2}, CircleArea(0.02), c.prestrain);
    for (const double y : {-0.1, 0.1}) beam.Bar({y, 0.2}, CircleArea(0.016));
    beam.Code(c.code);
    const double first = c.prestrain > 0.0 ? 120e3 : 60e3;
    const auto along = [&](double t) {
      const double m = first * (1.0 + 0.5 * t);
      const double width =
          beam.Under({0.4 * first * t, -m * std::cos(t), -0.3 * m * std::sin(t)}).CrackWidth();
      EXPECT_TRUE(width > 0.0 && width < 1.0);
      return width;
    };
    ExpectContinuous(along, 0.0, 1.0);
  }
}

// BS 8110-2 says with which modulus strains are found, IS 456 likewise.
TEST(Cracks, WidthsByTheStrainOfTheSurfaceDoNotDependOnCreep) {
  const struct {
    const wchar_t* code;
    double creep;  // that gives the modulus of the rule
  } kCodes[] = {{L"BS 8110-1:1997", 1.0}, {L"HK CoP 2013", 1.0}, {L"IS 456:2000", 0.0}};
  for (const auto& c : kCodes) {
    for (const CurveKind model :
         {CurveKind::bs8110Tension, CurveKind::interpolated, CurveKind::none}) {
      const auto width = [&](double creep) {
        ServiceBeam beam(model);
        beam.Rectangle(0.3, 0.5).Creep({Data::Velmo9::LoadTerm::longTerm, creep, 1.0});
        for (const double y : {-0.1, 0.0, 0.1}) beam.Bar({y, -0.2}, CircleArea(0.02));
        beam.Code(c.code);
        return beam.Under({-1e5, -1e5, 2e4}).CrackWidth();
      };
      const double want = width(c.creep);
      EXPECT_GT(want, 1e-5);
      // Equilibria to 1e-11 of the load; the slope of the tension to 1e-11 of itself.
      for (const double creep : {0.0, 1.0, 3.0}) EXPECT_NEAR(width(creep), want, 1e-8 * want);
    }
  }
}

TEST(Cracks, AModelThatNeverCracksHasNoWidth) {
  ServiceBeam beam(CurveKind::linear);
  beam.Rectangle(0.3, 0.5).Bar({0.0, -0.2}, CircleArea(0.032));
  EXPECT_EQ(beam.Under({0.0, -3e4, 0.0}).CrackWidth(), 0.0);
  const SlsCaseSolution solution = At(Bending(-kUp, 1e-3, 0.3));
  const CrackModel model = ModelOf(beam, kEn1992);
  EXPECT_EQ(model.LargestWidth(solution), std::numeric_limits<double>::infinity());
  EXPECT_EQ(model.Cracks(solution).at(0).front().remark, CrackRemark::noCrackedState);
}

}  // namespace
}  // namespace Orlix::VlSol::Test
