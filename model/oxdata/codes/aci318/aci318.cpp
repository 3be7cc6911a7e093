#include "model/oxdata/codes/aci318/aci318.h"

#include <string>

#include "model/oxdata/codes/aci318/concrete.h"
#include "model/oxdata/codes/aci318/strength_reduction.h"
#include "model/oxdata/codes/code_grades.h"

namespace Orlix::Data::Design::Aci318 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kModulusOfSteel = 200e9;

/// An edition: what is the same in both is not repeated.
struct Edition {
  ConcCode code;
  const char* name;
  double strainMargin;   // of eps_ty up to tension-controlled
  double tensionStrain;  // tension-controlled, whatever eps_ty
};

constexpr Edition k2014 = {ConcCode::aci318_2014, "ACI 318-14", 0.0, 0.005};
constexpr Edition k2019 = {ConcCode::aci318_2019, "ACI 318-19", 0.003, 0.0};

StrengthReductionParameters Rule(const Edition& edition) {
  StrengthReductionParameters rule;
  rule.phiTied = 0.65;
  rule.phiSpiral = 0.75;
  rule.phiTension = 0.90;
  rule.strainMargin = edition.strainMargin;
  rule.tensionStrain = edition.tensionStrain;
  rule.prestressedYield = 0.002;
  rule.capTied = 0.80;
  rule.capSpiral = 0.85;
  rule.concreteFactor = 0.85;
  return rule;
}

std::vector<CodeConstant> Constants(const Edition& edition) {
  const StrengthReductionParameters rule = Rule(edition);
  const auto clause = [&edition](const char* number) {
    return std::string(edition.name) + ", " + number;
  };
  constexpr double kStrength = 28 * kMPa;
  return {
      {"alpha_1", kBlockStress, clause("22.2.2.4.1")},
      {"beta_1, f'c <= 28 MPa", BlockDepth(kStrength), clause("Table 22.2.2.4.3")},
      {"beta_1, f'c >= 55 MPa", BlockDepth(55 * kMPa), clause("Table 22.2.2.4.3")},
      {"eps_cu", kUltimateStrain, clause("22.2.2.1")},
      {"E_c, f'c 28 MPa", Modulus(kStrength), clause("19.2.2.1(b)"), "Pa"},
      {"f_r, f'c 28 MPa", ModulusOfRupture(kStrength), clause("19.2.3.1"), "Pa"},
      {"E_s", kModulusOfSteel, clause("20.2.2.2"), "Pa"},
      {"E structural steel", kModulusOfSteel, "ANSI/AISC 360-16, Symbols", "Pa"},
      {"phi compression-controlled, ties", rule.phiTied, clause("Table 21.2.2")},
      {"phi compression-controlled, spirals", rule.phiSpiral, clause("Table 21.2.2")},
      {"phi tension-controlled", rule.phiTension, clause("Table 21.2.2")},
      edition.tensionStrain > 0.0
          ? CodeConstant{"eps_t, tension-controlled", rule.tensionStrain, clause("Table 21.2.2")}
          : CodeConstant{"eps_t - eps_ty, tension-controlled", rule.strainMargin,
                         clause("Table 21.2.2")},
      {"eps_ty prestressed", rule.prestressedYield, clause("21.2.2.2")},
      {"P_n,max/P_o, ties", rule.capTied, clause("Table 22.4.2.1")},
      {"P_n,max/P_o, spirals", rule.capSpiral, clause("Table 22.4.2.1")},
      {"factor of f'c in P_o", rule.concreteFactor, clause("22.4.2.2")},
  };
}

std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fc;  // MPa
  } kStrengths[] = {{L"f'c 20 MPa", 20}, {L"f'c 25 MPa", 25}, {L"f'c 28 MPa", 28},
                    {L"f'c 30 MPa", 30}, {L"f'c 35 MPa", 35}, {L"f'c 40 MPa", 40},
                    {L"f'c 45 MPa", 45}, {L"f'c 50 MPa", 50}, {L"f'c 55 MPa", 55}};
  std::vector<CMat> concretes;
  for (const auto& c : kStrengths) {
    const double fc = c.fc * kMPa;
    concretes.push_back(ConcreteGrade(c.name,
                                      {fc, Modulus(fc), ModulusOfRupture(fc), kBlockStress, 1.0},
                                      RectangularBlockShape(fc), CurveKind::linear));
  }
  return concretes;
}

/// Nominal strengths; the default curve is that of 20.2.2.1. Bars of ASTM A615 (Grade 40, 60, 80)
/// and A706 (Grade 60, 80), in SI units 280, 420 and 550.
constexpr SteelGrade kBars[] = {{L"Grade 40", 280}, {L"Grade 60", 420}, {L"Grade 80", 550}};
/// ASTM A36 (36 ksi) and A992 (50 ksi).
constexpr SteelGrade kSteels[] = {{L"A36", 250}, {L"A992", 345}};

CConcCodeData Make(const Edition& edition, CCountry::Code country) {
  CConcCodeData data;
  data.code = edition.code;
  data.country = country;
  data.name = edition.name;
  data.constants = Constants(edition);
  data.concretes = Concretes();
  data.reinforcements = Bars(kBars, kModulusOfSteel, 1.0);
  data.steels = StructuralSteels(kSteels, kModulusOfSteel, 1.0);
  data.usualConcrete = L"f'c 30 MPa";
  data.usualReinforcement = L"Grade 60";
  data.strengthReduction = Rule(edition);
  data.barSystem = Util::BarSystem::us;
  return data;
}

}  // namespace

CConcCodeData MakeData2014(CCountry::Code country) { return Make(k2014, country); }

CConcCodeData MakeData2019(CCountry::Code country) { return Make(k2019, country); }

}  // namespace Orlix::Data::Design::Aci318
