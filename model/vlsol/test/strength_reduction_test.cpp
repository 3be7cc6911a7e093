// Strength reduction of ACI 318-19 by hand: a column of 0.4 x 0.6 m, f'c 28 MPa and Grade 60, whose
// nominal state at a given depth c of the neutral axis is known in closed form.
#include "model/vlsol/strength_reduction/strength_reduction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {
namespace {

using Data::Confinement;
using Data::Design::CurveKind;
using Data::Velmo9::CustomPhi;
using Data::Velmo9::UlSResult;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kWidth = 0.4;
constexpr double kDepth = 0.6;
constexpr double kLever = 0.24;  // of each layer of bars from mid-depth
constexpr double kEffectiveDepth = kDepth / 2 + kLever;
constexpr double kLayer = 15e-4;  // area of a layer [m²]
constexpr double kBlock = 0.85 * 28e6;
constexpr double kYield = 420e6;
constexpr double kModulus = 200e9;
constexpr double kYieldStrain = kYield / kModulus;
constexpr double kCrushing = 0.003;
// Failure is found to 1e-10 of the load.
constexpr double kRelative = 1e-9;

struct Column {
  bool deduct{false};
  Confinement confinement{Confinement::ties};
  std::optional<CustomPhi> custom{};
  double prestrain{};  // of the bottom layer
  bool hasBars{true};
  bool isReduced{true};

  CaseDocument Document() const {
    CaseDocument document(deduct);
    if (isReduced) document.Document().SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
    document.Document().getSection(0).SetConfinement(confinement);
    document.Settings().SetPhiFactors(custom);
    const int concrete = document.AddMaterial(MatType::concrete, {kBlock, 25e9},
                                              {.kind = CurveKind::rectangularBlock,
                                               .epsLimit = kCrushing,
                                               .blockStart = 0.15 * kCrushing},
                                              {});
    const Data::Design::CurveShape side{.kind = CurveKind::bilinear};
    const int steel = document.AddMaterial(MatType::reinforcement, {kYield, kModulus}, side, side);
    const double y = kWidth / 2, z = kDepth / 2;
    document.AddComponent(MatType::concrete, concrete, {{{-y, -z}, {y, -z}, {y, z}, {-y, z}}, {}});
    if (!hasBars) return document;
    document.AddBar(0, {0.0, kLever}, kLayer, steel, 0.0);
    document.AddBar(0, {0.0, -kLever}, kLayer, steel, prestrain);
    return document;
  }

  UlSResult Under(const Vec3<double>& load) const {
    return Document().Solve(LoadAction::load, load);
  }
};

// The plane with the crushing strain at the top that gives the bottom layer a net tensile strain.
Vec3<double> NominalPlane(double tensileStrain) {
  const double curvature = (tensileStrain + kCrushing) / kEffectiveDepth;
  return {curvature * kDepth / 2 - kCrushing, -curvature, 0.0};
}

// Its load: the block, 0.85 of the neutral axis's depth, and two layers of bars.
Vec3<double> NominalLoad(double tensileStrain, double prestrain = 0.0) {
  const Vec3<double> plane = NominalPlane(tensileStrain);
  const double c = kCrushing / -plane.y;
  const auto bars = [&](double z, double offset) {
    const double strain = plane.x + z * plane.y + offset;
    return kLayer * std::clamp(kModulus * strain, -kYield, kYield);
  };
  const double block = -kBlock * kWidth * 0.85 * c;
  const double top = bars(kLever, 0.0);
  const double bottom = bars(-kLever, prestrain);
  return {block + top + bottom, block * (kDepth / 2 - 0.85 * c / 2) + kLever * (top - bottom), 0.0};
}

// At the design capacity all three measures are used up together.
void ExpectAtTheLimit(const UlSResult& result) {
  EXPECT_FALSE(result.IsFail());
  EXPECT_NEAR(result.LoadUtilisation(), 1.0, kRelative);
  // With all bars yielding only the front of the block counts, and planes near each other share it.
  EXPECT_NEAR(result.DeformationUtilisation(), 1.0, 1e-4);
  EXPECT_NEAR(result.MomentRatio(), 1.0, 1e-7);  // phi is found to 1e-10 of its range first
}

TEST(StrengthReduction, PhiFollowsTheNetTensileStrain) {
  const CustomPhi own{0.001, 0.004, 0.5, 0.8};
  const struct {
    const char* what;
    Column column;
    double strain;
    double phi;
  } kCases[] = {
      {"below yield", {}, 0.0005, 0.65},
      {"at yield", {}, kYieldStrain, 0.65},
      {"half way", {}, kYieldStrain + 0.0015, 0.775},
      {"at the tension-controlled limit", {}, kYieldStrain + 0.003, 0.90},
      {"beyond it", {}, 0.012, 0.90},
      {"spiral, below yield", {.confinement = Confinement::spiral}, 0.0005, 0.75},
      {"spiral, a third", {.confinement = Confinement::spiral}, kYieldStrain + 0.001, 0.80},
      {"own factors, below", {.custom = own}, 0.0008, 0.5},
      {"own factors, between", {.custom = own}, 0.002, 0.6},
      {"own factors, above", {.custom = own}, 0.0045, 0.8},
      {"prestressed at 0.002", {.prestrain = 0.001}, 0.002, 0.65},
      {"prestressed half way", {.prestrain = 0.001}, 0.0035, 0.775},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const Vec3<double> nominal = NominalLoad(c.strain, c.column.prestrain);
    const UlSResult result = c.column.Under(nominal);
    EXPECT_TRUE(result.IsFail());
    EXPECT_NEAR(result.ReductionFactor(), c.phi, kRelative);
    EXPECT_NEAR(result.LoadUtilisation(), 1.0 / c.phi, 2 * kRelative);
    EXPECT_NEAR(result.LoadAtFailure().Vector().y, c.phi * nominal.y, kRelative * -nominal.y);
    EXPECT_NEAR(result.DeformationAtFailure().Vector().y, NominalPlane(c.strain).y, 1e-9);
    ExpectAtTheLimit(c.column.Under(c.phi * nominal));

    const UlSResult imposed =
        c.column.Document().Solve(LoadAction::deformation, NominalPlane(c.strain));
    EXPECT_NEAR(imposed.ReductionFactor(), c.phi, kRelative);
    EXPECT_NEAR(imposed.Load().Vector().x, c.phi * nominal.x, 1e-3);
    EXPECT_NEAR(imposed.LoadAtFailure().Vector().y, c.phi * nominal.y, 1e-3);
    EXPECT_NEAR(imposed.LoadUtilisation(), 1.0, kRelative);
  }
}

// phi is that of the failure, not of the plane imposed: half of the failure plane has less load,
// but the same factor.
TEST(StrengthReduction, ImposedPlanesHaveTheFactorOfTheirFailure) {
  const Vec3<double> plane = NominalPlane(kYieldStrain + 0.0015);
  CaseDocument document = Column{}.Document();
  const UlSResult result = document.Solve(LoadAction::deformation, 0.5 * plane);
  EXPECT_NEAR(result.DeformationUtilisation(), 0.5, 1e-12);
  EXPECT_NEAR(result.ReductionFactor(), 0.775, kRelative);
  CaseDocument unreduced = Column{.isReduced = false}.Document();
  const Vec3<double> nominal =
      unreduced.Solve(LoadAction::deformation, 0.5 * plane).Load().Vector();
  EXPECT_NEAR(result.Load().Vector().y, 0.775 * nominal.y, 1e-3);
  // That load again, as a load: its own ray fails elsewhere, but its utilisation is the same.
  const UlSResult under = document.Solve(LoadAction::load, result.Load().Vector());
  EXPECT_NEAR(under.LoadUtilisation(), result.LoadUtilisation(), kRelative);
  EXPECT_NEAR(under.MomentRatio(), result.MomentRatio(), 1e-7);
}

TEST(StrengthReduction, AxialForceIsCapped) {
  for (const bool deduct : {false, true}) {
    for (const bool isSpiral : {false, true}) {
      SCOPED_TRACE(testing::Message() << deduct << isSpiral);
      const Column column{.deduct = deduct,
                          .confinement = isSpiral ? Confinement::spiral : Confinement::ties};
      const double concrete = kWidth * kDepth - (deduct ? 2 * kLayer : 0.0);
      const double nominal = kBlock * concrete + kYield * 2 * kLayer;  // P_o
      const double design = isSpiral ? 0.75 * 0.85 * nominal : 0.65 * 0.80 * nominal;
      // With an eccentricity small enough for the cap to decide, and without.
      for (const double eccentricity : {0.0, 0.02}) {
        for (const double part : {0.5, 0.99, 1.01}) {
          const Vec3<double> load{-part * design, -part * design * eccentricity, 0.0};
          const UlSResult result = column.Under(load);
          EXPECT_NEAR(result.LoadUtilisation(), part, kRelative);
          EXPECT_EQ(result.IsFail(), part > 1.0);
          EXPECT_NEAR(result.LoadAtFailure().Vector().x, -design, kRelative * design);
          EXPECT_LT(result.DeformationUtilisation(), 1.0);
          if (part > 1.0) {
            EXPECT_EQ(result.MomentRatio(), kInfinity);
          } else if (eccentricity == 0.0) {
            EXPECT_EQ(result.MomentRatio(), 0.0);
          } else {
            EXPECT_LT(result.MomentRatio(), part);
          }
        }
      }
    }
  }
}

// phi(d) F(d) = (N, mu M): the moments at the ratio are at the limit of the load as a whole.
TEST(StrengthReduction, MomentRatioHoldsTheDesignAxialForce) {
  CaseDocument document = Column{.deduct = true}.Document();
  for (const double axial : {4e5, -1e5, -8e5, -1.2e6, -1.6e6, -2.4e6, -3.2e6}) {
    for (const Vec2<double>& moment : {Vec2<double>{-2e5, 0.0}, {3e5, 0.0}, {-1e5, 1e5}}) {
      SCOPED_TRACE(testing::Message() << axial << ", " << moment.x << ", " << moment.y);
      const double ratio =
          document.Solve(LoadAction::load, {axial, moment.x, moment.y}).MomentRatio();
      ASSERT_TRUE(std::isfinite(ratio));
      ExpectAtTheLimit(
          document.Solve(LoadAction::load, {axial, moment.x / ratio, moment.y / ratio}));
    }
  }
  // A tension that only the phi of tension control lets the section carry.
  const double ratio = document.Solve(LoadAction::load, {1e6, -1e4, 0.0}).MomentRatio();
  const UlSResult limit = document.Solve(LoadAction::load, {1e6, -1e4 / ratio, 0.0});
  EXPECT_NEAR(limit.LoadUtilisation(), 1.0, kRelative);
  EXPECT_NEAR(limit.MomentRatio(), 1.0, 1e-7);
}

TEST(StrengthReduction, ConstantFactorsScaleTheCapacity) {
  const Vec3<double> load{-6e5, -2.5e5, 4e4};
  const UlSResult nominal = Column{.isReduced = false}.Under(load);
  for (const double phi : {1.0, 0.7}) {
    const UlSResult result = Column{.custom = CustomPhi{0.002, 0.005, phi, phi}}.Under(load);
    EXPECT_NEAR(result.LoadUtilisation(), nominal.LoadUtilisation() / phi, kRelative);
    EXPECT_EQ(result.ReductionFactor(), phi);
    const UlSResult scaled = Column{.isReduced = false}.Under((1.0 / phi) * load);
    EXPECT_NEAR(result.MomentRatio(), scaled.MomentRatio(), kRelative);
    EXPECT_NEAR(result.DeformationUtilisation(), scaled.DeformationUtilisation(), kRelative);
  }
}

TEST(StrengthReduction, NoFactorLeavesNoCapacity) {
  const Column column{.custom = CustomPhi{0.002, 0.005, 0.0, 0.9}};
  const UlSResult compression = column.Under(NominalLoad(0.0005));
  EXPECT_TRUE(compression.IsFail());
  EXPECT_EQ(compression.LoadUtilisation(), kInfinity);
  EXPECT_EQ(compression.MomentRatio(), kInfinity);
  EXPECT_EQ(compression.LoadAtFailure().Vector(), Vec3<double>{});
  EXPECT_EQ(compression.DeformationAtFailure().Vector(), Vec3<double>{});
  EXPECT_EQ(compression.DeformationUtilisation(), kInfinity);
  const UlSResult imposed =
      column.Document().Solve(LoadAction::deformation, 0.5 * NominalPlane(0.0005));
  EXPECT_EQ(imposed.Load().Vector(), Vec3<double>{});
  EXPECT_EQ(imposed.ReductionFactor(), 0.0);

  const UlSResult tension = column.Under(0.9 * NominalLoad(0.008));
  EXPECT_FALSE(tension.IsFail());
  EXPECT_NEAR(tension.LoadUtilisation(), 1.0, kRelative);
}

TEST(StrengthReduction, WithoutBarsOrWithoutConcrete) {
  // The block is centred on the thrust.
  const double eccentricity = 0.18;
  const double capacity = 0.65 * kBlock * kWidth * 2 * (kDepth / 2 - eccentricity);
  const double thrust = 0.8 * capacity;
  const UlSResult plain = Column{.hasBars = false}.Under({-thrust, -thrust * eccentricity, 0.0});
  EXPECT_EQ(plain.ReductionFactor(), 0.65);
  EXPECT_NEAR(plain.LoadUtilisation(), 0.8, kRelative);

  CaseDocument steel(true);
  steel.Document().SetCodes(OrlixString<wchar_t>(L"ACI 318-19"));
  const Data::Design::CurveShape side{.kind = CurveKind::bilinear};
  const int grade = steel.AddMaterial(MatType::steel, {250e6, kModulus}, side, side);
  steel.AddComponent(MatType::steel, grade, {{{0, 0}, {0.1, 0}, {0.1, 0.2}, {0, 0.2}}, {}});
  const double yield = 250e6 * 0.02;
  for (const double sign : {-1.0, 1.0}) {
    const double axial = sign * 0.5 * 0.65 * yield;
    const UlSResult result = steel.Solve(LoadAction::load, {axial, 0.1 * axial, -0.05 * axial});
    EXPECT_NEAR(result.LoadUtilisation(), 0.5, kRelative) << sign;
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
