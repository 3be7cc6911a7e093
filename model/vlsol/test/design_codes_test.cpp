// Design capacity of one column under every code against closed forms: 0.3 x 0.5 m, two layers of
// 10 cm², of the code's own grades. Bars do not displace concrete.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/json.h"
#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {
namespace {

constexpr double kWidth = 0.3;
constexpr double kDepth = 0.5;
constexpr double kLever = 0.2;
constexpr double kLayer = 10e-4;
// Failure is found to 1e-10 of the load; pure bending is solved to 1e-12 of the depth.
constexpr double kRelative = 1e-8;

/// What the curves come down to, by hand from each code's expressions.
struct Code {
  const char* codes;
  const wchar_t* concrete;
  const wchar_t* bars;
  double f;        // plateau [MPa]
  double epsPeak;  // of the parabola; 0: a block
  double block;    // depth of the block over that of the neutral axis
  double epsCu;
  double epsAxial;  // largest strain in uniform compression
  double fyd;       // [MPa], E 200 GPa
  bool isReduced;   // phi 0.65 to 0.9
  double cap;       // on the axial force, over the squash load, with ties; 1: none
};

const Code kCodes[] = {
    {R"({"concrete": "EN 1992-1-1:2004"})", L"C30/37", L"B500B", 20, 0.002, 0, 0.0035, 0.002,
     500 / 1.15, false, 1.0},
    {R"({"concrete": "EN 1992-1-1:2004", "annex": "UK"})", L"C30/37", L"B500B", 17, 0.002, 0,
     0.0035, 0.002, 500 / 1.15, false, 1.0},
    {R"({"concrete": "ACI 318-19"})", L"f'c 30 MPa", L"Grade 60", 25.5, 0, 0.85 - 0.1 / 7, 0.003,
     0.003, 420, true, 0.80},
    {R"({"concrete": "ACI 318-14"})", L"f'c 30 MPa", L"Grade 60", 25.5, 0, 0.85 - 0.1 / 7, 0.003,
     0.003, 420, true, 0.80},
    {R"({"concrete": "BS 8110-1:1997"})", L"C40", L"Grade 460", 0.67 * 40 / 1.5,
     2.4e-4 * std::sqrt(40 / 1.5), 0, 0.0035, 0.0035, 460 / 1.05, false, 1.0},
    {R"({"concrete": "BS 8110-1:1997 Amd 3"})", L"C40", L"B500B", 0.67 * 40 / 1.5,
     2.4e-4 * std::sqrt(40 / 1.5), 0, 0.0035, 0.0035, 500 / 1.15, false, 1.0},
    {R"({"concrete": "HK CoP 2013"})", L"C80", L"500B", 0.67 * 80 / 1.5,
     1.34 * (80 / 1.5) / (3460 * std::sqrt(80 / 1.5) + 3210), 0, 0.0035 - 6e-5 * std::sqrt(20.0),
     0.0035 - 6e-5 * std::sqrt(20.0), 500 / 1.15, false, 1.0},
    {R"({"concrete": "IS 456:2000"})", L"M30", L"Fe 250", 0.67 * 30 / 1.5, 0.002, 0, 0.0035, 0.002,
     250 / 1.15, false, 1.0},
    {R"({"concrete": "CSA A23.3-14"})", L"f'c 30 MPa", L"400W", 0.805 * 0.65 * 30, 0, 0.895, 0.0035,
     0.0035, 340, false, 0.80},
};

double Bars(const Code& c, double strain) {
  return kLayer * std::clamp(200e9 * strain, -c.fyd * 1e6, c.fyd * 1e6);
}

/// Force and moment with the ultimate strain at the top and the neutral axis x below it.
Vec3<double> Nominal(const Code& c, double x) {
  const double r = c.epsPeak / c.epsCu;
  const double full = c.epsPeak > 0 ? 1 - r / 3 : c.block;  // of a uniform stress over x
  const double centre = c.epsPeak > 0 ? (0.5 - r / 3 + r * r / 12) / full : c.block / 2;
  const double concrete = -c.f * 1e6 * kWidth * x * full;
  const auto strain = [&](double z) { return c.epsCu * ((kDepth / 2 - z) / x - 1); };
  const double top = Bars(c, strain(kLever)), bottom = Bars(c, strain(-kLever));
  return {concrete + top + bottom, concrete * (kDepth / 2 - centre * x) + kLever * (top - bottom),
          0.0};
}

Vec3<double> PureBending(const Code& c) {
  double low = 1e-3, high = kDepth;
  while (high - low > 1e-13) {
    const double x = (low + high) / 2;
    (Nominal(c, x).x > 0 ? low : high) = x;
  }
  return {0.0, Nominal(c, high).y, 0.0};
}

CaseDocument Column(const Code& c, double width = kWidth) {
  CaseDocument document(false);
  Util::JsonDocument codes;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(c.codes, codes, error)) << error;
  document.Document().SetCodes(codes);
  EXPECT_TRUE(document.Document().ReadProblems().empty());
  const Data::Materials& materials = *document.Document().getMaterials();
  const double y = width / 2, z = kDepth / 2;
  document.AddComponent(MatType::concrete, materials.Find(MatType::concrete, c.concrete),
                        {{{-y, -z}, {y, -z}, {y, z}, {-y, z}}, {}});
  const int bars = materials.Find(MatType::reinforcement, c.bars);
  for (const double lever : {kLever, -kLever}) document.AddBar(0, {0, lever}, kLayer, bars, 0);
  return document;
}

TEST(DesignCodes, CapacityIsThatOfTheClosedFormAtTheFourPointsOfTheDiagram) {
  for (const Code& c : kCodes) {
    SCOPED_TRACE(c.codes);
    const double yield = c.fyd * 1e6 / 200e9;
    const double squash = -c.f * 1e6 * kWidth * kDepth + 2 * Bars(c, -c.epsAxial);
    const double balanced = (kDepth / 2 + kLever) * c.epsCu / (c.epsCu + yield);
    const double phi = c.isReduced ? 0.65 : 1.0;  // compression-controlled
    const double phiTension = c.isReduced ? 0.90 : 1.0;
    const struct {
      const char* what;
      Vec3<double> load;
    } kPoints[] = {{"compression", {c.cap * phi * squash, 0, 0}},
                   {"balanced", phi * Nominal(c, balanced)},
                   {"bending", phiTension * PureBending(c)},
                   {"tension", {phiTension * 2 * Bars(c, 1.0), 0, 0}}};
    for (const auto& point : kPoints) {
      SCOPED_TRACE(point.what);
      EXPECT_NEAR(Column(c).Solve(LoadAction::load, point.load).LoadUtilisation(), 1.0, kRelative);
    }
  }
}

TEST(DesignCodes, CapOfCsaA23GrowsWithTheLeastDimensionAndLeavesTheMomentsBelowItAlone) {
  const Code& csa = kCodes[std::size(kCodes) - 1];
  const struct {
    double width;
    Data::Confinement confinement;
    double cap;
  } kCases[] = {{0.15, Data::Confinement::ties, 0.5},
                {0.25, Data::Confinement::ties, 0.7},
                {0.4, Data::Confinement::ties, 0.8},
                {0.15, Data::Confinement::spiral, 0.9}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.cap);
    CaseDocument column = Column(csa, c.width);
    column.Document().getSection(0).SetConfinement(c.confinement);
    const double squash = -csa.f * 1e6 * c.width * kDepth - 2 * kLayer * csa.fyd * 1e6;
    const Vec3<double> atCap{c.cap * squash, 0, 0};
    EXPECT_NEAR(column.Solve(LoadAction::load, atCap).LoadUtilisation(), 1.0, kRelative);
    // A moment that the force at the cap leaves room for does not move it.
    const auto bent = column.Solve(LoadAction::load, atCap + Vec3<double>{0, 1e3, 0});
    EXPECT_NEAR(bent.LoadUtilisation(), 1.0, kRelative);
    EXPECT_TRUE(std::isinf(
        column.Solve(LoadAction::load, 1.01 * atCap + Vec3<double>{0, 1e3, 0}).MomentRatio()));
  }
}

TEST(DesignCodes, EditionsOfAci318PartBetweenYieldAndTensionControl) {
  // Strain of the lower bars 0.0045: -19 has phi 0.65 + 0.25 (0.0045 - 0.0021)/0.003, -14 the same
  // rise to 0.005.
  const double x = (kDepth / 2 + kLever) * 0.003 / 0.0075;
  for (const auto& [code, phi] : {std::pair{&kCodes[2], 0.65 + 0.25 * 0.0024 / 0.003},
                                  std::pair{&kCodes[3], 0.65 + 0.25 * 0.0024 / 0.0029}}) {
    const auto result = Column(*code).Solve(LoadAction::load, phi * Nominal(*code, x));
    EXPECT_NEAR(result.LoadUtilisation(), 1.0, kRelative) << code->codes;
  }
}

}  // namespace
}  // namespace Orlix::VlSol::Test
