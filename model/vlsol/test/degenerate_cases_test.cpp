// Sections and loads at the edges of what has an answer: each has a defined one, without NaN.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/vlsol/test/test_section.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::Velmo9::UlsCaseSolution;
using Numeric::SectionInput;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kWidth = 0.3;
constexpr double kDepth = 0.5;
constexpr double kConcreteArea = kWidth * kDepth;
constexpr double kBarArea = 5e-4;
constexpr double kYield = 500e6 / 1.15;
constexpr double kBlockStress = 23.8e6;
// All at the strain 0.002 under uniform compression, which the steel does not yet yield at.
constexpr double kSquash = 17e6 * (kConcreteArea - 4 * kBarArea) + 4 * kBarArea * 0.002 * 200e9;
constexpr double kTensile = 4 * kBarArea * kYield;

TestSection Rectangle(const TestCurve& concrete, double prestrain = 0.0) {
  TestSection section;
  section.shape = Shapes(kWidth, kDepth)[0];
  section.concrete = concrete;
  section.steel = B500();
  for (const double y : {-0.11, 0.11}) {
    for (const double z : {-0.2, 0.2}) section.bars.push_back({{y, z}, kBarArea, prestrain});
  }
  return section;
}

SectionInput Plain(const TestCurve& concrete) {
  TestSection section = Rectangle(concrete);
  section.bars.clear();
  return section.Input();
}

SectionInput OnlyBars(const std::vector<Vec2<double>>& positions) {
  SectionInput input;
  input.curves = {B500().input};
  for (const Vec2<double>& p : positions) input.points.push_back({p, kBarArea, 0, 0.0, {}, -1});
  return input;
}

// With a second outline that encloses nothing.
SectionInput WithFlatRing(SectionInput input) {
  input.regions.push_back(input.regions[0]);
  input.regions.back().rings = {{{{0.0, 0.0}, {0.1, 0.1}, {0.05, 0.05}}, false}};
  return input;
}

SectionInput OnlyFlatRing() {
  SectionInput input = WithFlatRing(Plain(C30()));
  input.regions.erase(input.regions.begin());
  return input;
}

void ExpectWithoutNaN(const UlsCaseSolution& s) {
  for (const Vec3<double>& v : {s.deformation, s.loadAtFailure, s.deformationAtFailure}) {
    EXPECT_TRUE(IsFinite(v));
  }
  for (const double v : {s.loadUtilisation, s.deformationUtilisation, s.momentRatio}) {
    EXPECT_GE(v, 0.0);  // false for NaN
  }
}

TEST(DegenerateCases, HaveTheirDefinedAnswers) {
  const SectionInput rectangle = Rectangle(C30()).Input();
  const TestCurve block = Block(kBlockStress, 0.00045, 0.003);
  const std::vector<Vec2<double>> line{{0.0, -0.2}, {0.0, 0.2}};
  // Mean stress 17/21 f over the depth x, its centre 99/238 x below the top.
  const double x = 1e5 / (17.0 / 21.0 * 17e6 * kWidth);
  const double thrustMoment = 1e5 * (kDepth / 2 - 99.0 / 238.0 * x);
  const double lineMoment = 2 * kBarArea * kYield * 0.2;
  const struct {
    const char* what;
    SectionInput section;
    Vec3<double> load;
    bool carried;
    double utilisation;
    double momentRatio;
  } kCases[] = {
      {"pure compression", rectangle, {-1e6, 0, 0}, true, 1e6 / kSquash, 0},
      {"compression beyond the squash load",
       rectangle,
       {-4e6, 0, 0},
       false,
       4e6 / kSquash,
       kInfinity},
      {"pure tension, all bars yield", rectangle, {5e5, 0, 0}, true, 5e5 / kTensile, 0},
      {"tension at the yield force", rectangle, {kTensile, 0, 0}, true, 1.0, 0},
      {"tension beyond the yield force", rectangle, {1e6, 0, 0}, false, 1e6 / kTensile, kInfinity},
      {"zero load", rectangle, {}, true, 0, 0},
      {"zero load, prestressed", Rectangle(C30(), 0.002).Input(), {}, true, 0, 0},
      {"zero load, prestress beyond the steel's limit",
       Rectangle(C30(), 0.05).Input(),
       {},
       false,
       0,
       0},
      {"load, prestress beyond the steel's limit",
       Rectangle(C30(), 0.05).Input(),
       {-1e6, 0, 0},
       false,
       kInfinity,
       kInfinity},
      {"one bar in tension", OnlyBars({{0, 0}}), {1e5, 0, 0}, true, 1e5 / (kBarArea * kYield), 0},
      {"one bar in bending", OnlyBars({{0, 0}}), {0, 1e4, 0}, false, kInfinity, kInfinity},
      {"two bars, bending in their line",
       OnlyBars(line),
       {0, 4e4, 0},
       true,
       4e4 / lineMoment,
       4e4 / lineMoment},
      {"two bars, bending off their line",
       OnlyBars(line),
       {0, 0, 1e4},
       false,
       kInfinity,
       kInfinity},
      {"two bars, axial force off their line",
       OnlyBars(line),
       {1e5, 0, 1e4},
       false,
       kInfinity,
       kInfinity},
      {"no bars, compression", Plain(C30()), {-1e6, 0, 0}, true, 1e6 / (17e6 * kConcreteArea), 0},
      {"no bars, tension", Plain(C30()), {1e4, 0, 0}, false, kInfinity, kInfinity},
      {"no bars, bending", Plain(C30()), {0, 1e4, 0}, false, kInfinity, kInfinity},
      {"no bars, thrust outside the section",
       Plain(C30()),
       {-1e5, 1e5, 0},
       false,
       kInfinity,
       1e5 / thrustMoment},
      {"an outline without area beside a sound one",
       WithFlatRing(rectangle),
       {-1e6, 0, 0},
       true,
       1e6 / kSquash,
       0},
      {"nothing but an outline without area",
       OnlyFlatRing(),
       {-1e6, 0, 0},
       false,
       kInfinity,
       kInfinity},
      {"nothing at all, no load", {}, {}, true, 0, 0},
      {"nothing at all, loaded", {}, {-1e6, 0, 0}, false, kInfinity, kInfinity},
      {"stress block under a small axial load",
       Plain(block),
       {-1e4, 0, 0},
       true,
       1e4 / (kBlockStress * kConcreteArea),
       0},
      {"a moment of round-off size", rectangle, {-1e6, 1e-9, 0}, true, 1e6 / kSquash, 0},
      {"an axial force of round-off size", rectangle, {-1e-9, 0, 0}, true, 1e-9 / kSquash, 0},
      {"a load beyond all measure", rectangle, {-1e15, 0, 0}, false, 1e15 / kSquash, kInfinity},
      {"no number", rectangle, {kNaN, 0, 0}, false, kInfinity, kInfinity},
      {"infinite moment", rectangle, {0, kInfinity, 0}, false, kInfinity, kInfinity},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const UlsCaseSolution s = SolveUlsLoad(Compile(c.section), c.load);
    ExpectWithoutNaN(s);
    EXPECT_EQ(s.carried, c.carried);
    if (std::isinf(c.utilisation)) {
      EXPECT_EQ(s.loadUtilisation, kInfinity);
      EXPECT_EQ(s.loadAtFailure, Vec3<double>{});
      EXPECT_EQ(s.deformationAtFailure, Vec3<double>{});
    } else {
      EXPECT_NEAR(s.loadUtilisation, c.utilisation, 1e-9 * c.utilisation);
    }
    if (std::isinf(c.momentRatio)) {
      EXPECT_EQ(s.momentRatio, kInfinity);
    } else {
      EXPECT_NEAR(s.momentRatio, c.momentRatio, 1e-9 * c.momentRatio + 1e-14);
    }
  }
}

TEST(DegenerateCases, ImposedDeformationsHaveTheirDefinedAnswers) {
  const SectionInput rectangle = Rectangle(C30()).Input();
  const struct {
    const char* what;
    SectionInput section;
    Vec3<double> plane;
    bool carried;
    double utilisation;  ///< of the deformation
    double axial;        ///< N of the response
  } kCases[] = {
      {"no deformation", rectangle, {}, true, 0, 0},
      {"no deformation, prestressed",
       Rectangle(C30(), 0.002).Input(),
       {},
       true,
       0,
       4 * kBarArea * 0.002 * 200e9},
      {"uniform compression at its limit", rectangle, {-0.002, 0, 0}, true, 1, -kSquash},
      {"uniform compression at half its limit",
       rectangle,
       {-0.001, 0, 0},
       true,
       0.5,
       -17e6 * 0.75 * (kConcreteArea - 4 * kBarArea) - 4 * kBarArea * 0.001 * 200e9},
      {"nothing but an outline without area", OnlyFlatRing(), {0.001, 0, 0}, true, 0, 0},
      {"no number", rectangle, {0, kNaN, 0}, false, kInfinity, 0},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const UlsCaseSolution s = SolveUlsDeformation(Compile(c.section), c.plane);
    EXPECT_EQ(s.carried, c.carried);
    EXPECT_DOUBLE_EQ(s.deformationUtilisation, c.utilisation);
    EXPECT_NEAR(s.load.x, c.axial, 1e-13 * kSquash);
    if (!IsFinite(c.plane)) continue;  // the record repeats what was imposed
    ExpectWithoutNaN(s);
  }
}

// The load of a plane whose top bars sit on the edge of the stress block, with half of the concrete
// they displace taken out: in equilibrium nearby with all of it taken out and with none.
TEST(DegenerateCases, BarsOnTheStepOfAStressBlockFindTheirPlane) {
  const Numeric::CompiledSection section =
      Compile(Rectangle(Block(kBlockStress, 0.00045, 0.003)).Input());
  const double curvature = 0.004;
  const Vec3<double> plane{-0.00045 + 0.2 * curvature, -curvature, 0.0};
  const double above = kDepth / 2 - 0.2;  // depth of the block
  const double block = -kBlockStress * kWidth * above;
  const double displaced = -kBlockStress * 0.5 * 2 * kBarArea;
  const double top = 2 * kBarArea * (-0.00045 * 200e9) - displaced;
  const double bottom = 2 * kBarArea * std::min(kYield, (plane.x + 0.2 * curvature) * 200e9);
  const Vec3<double> load{block + top + bottom, block * (kDepth - above) / 2 + 0.2 * (top - bottom),
                          0.0};
  const UlsCaseSolution s = SolveUlsLoad(section, load);
  ExpectWithoutNaN(s);
  EXPECT_TRUE(s.carried);
  const Vec3<double> carried = SolveUlsDeformation(section, s.deformation).load;
  EXPECT_NEAR(carried.x, load.x, 1e-9 * kSquash);  // ten times the equilibrium's tolerance
  EXPECT_NEAR(carried.y, load.y, 1e-9 * kSquash);
  EXPECT_NEAR(s.deformation.y, plane.y, 0.01 * curvature);
  EXPECT_NEAR(s.deformation.z, 0.0, 1e-11);
}

}  // namespace
}  // namespace Orlix::VlSol::Test
