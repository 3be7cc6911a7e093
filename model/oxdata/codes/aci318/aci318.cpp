#include "model/oxdata/codes/aci318/aci318.h"

#include "model/oxdata/codes/aci318/concrete.h"

namespace Orlix::Data::Design::Aci318 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kModulusOfSteel = 200e9;

StrengthReductionRule Rule() {
  StrengthReductionRule rule;
  rule.phiTied = 0.65;
  rule.phiSpiral = 0.75;
  rule.phiTension = 0.90;
  rule.strainMargin = 0.003;
  rule.prestressedYield = 0.002;
  rule.capTied = 0.80;
  rule.capSpiral = 0.85;
  rule.concreteFactor = 0.85;
  return rule;
}

std::vector<CodeConstant> Constants() {
  const StrengthReductionRule rule = Rule();
  constexpr double kStrength = 28 * kMPa;
  return {
      {"alpha_1", kBlockStress, "ACI 318-19, 22.2.2.4.1"},
      {"beta_1, f'c <= 28 MPa", BlockDepth(kStrength), "ACI 318-19, Table 22.2.2.4.3"},
      {"beta_1, f'c >= 55 MPa", BlockDepth(55 * kMPa), "ACI 318-19, Table 22.2.2.4.3"},
      {"eps_cu", kUltimateStrain, "ACI 318-19, 22.2.2.1"},
      {"E_c, f'c 28 MPa", Modulus(kStrength), "ACI 318-19, 19.2.2.1(b)"},
      {"f_r, f'c 28 MPa", ModulusOfRupture(kStrength), "ACI 318-19, 19.2.3.1"},
      {"E_s", kModulusOfSteel, "ACI 318-19, 20.2.2.2"},
      {"E structural steel", kModulusOfSteel, "ANSI/AISC 360-16, Symbols"},
      {"phi compression-controlled, ties", rule.phiTied, "ACI 318-19, Table 21.2.2"},
      {"phi compression-controlled, spirals", rule.phiSpiral, "ACI 318-19, Table 21.2.2"},
      {"phi tension-controlled", rule.phiTension, "ACI 318-19, Table 21.2.2"},
      {"eps_t - eps_ty, tension-controlled", rule.strainMargin, "ACI 318-19, Table 21.2.2"},
      {"eps_ty prestressed", rule.prestressedYield, "ACI 318-19, 21.2.2.2"},
      {"P_n,max/P_o, ties", rule.capTied, "ACI 318-19, Table 22.4.2.1"},
      {"P_n,max/P_o, spirals", rule.capSpiral, "ACI 318-19, Table 22.4.2.1"},
      {"factor of f'c in P_o", rule.concreteFactor, "ACI 318-19, 22.4.2.2"},
  };
}

/// The default curve at SLS stays: linear in compression, no tension.
CMat Concrete(const wchar_t* name, double fc) {
  CMat concrete(MatType::concrete);
  concrete.SetName(name);
  concrete.SetProperties({fc, Modulus(fc), ModulusOfRupture(fc), kBlockStress, 1.0});
  concrete.SetShape(LoadState::ULS, LoadSign::compression, RectangularBlockShape(fc));
  return concrete;
}

std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fc;  // MPa
  } kStrengths[] = {{L"f'c 20 MPa", 20}, {L"f'c 25 MPa", 25}, {L"f'c 28 MPa", 28},
                    {L"f'c 30 MPa", 30}, {L"f'c 35 MPa", 35}, {L"f'c 40 MPa", 40},
                    {L"f'c 45 MPa", 45}, {L"f'c 50 MPa", 50}, {L"f'c 55 MPa", 55}};
  std::vector<CMat> concretes;
  for (const auto& c : kStrengths) concretes.push_back(Concrete(c.name, c.fc * kMPa));
  return concretes;
}

/// A steel with the default curve, E eps up to the yield strength and horizontal from there on, as
/// ACI 318-19, 20.2.2.1 has it; strengths are nominal.
template <class Mat>
Mat Steel(Mat steel, const wchar_t* name, double strength) {
  steel.SetName(name);
  steel.SetProperties({strength, kModulusOfSteel, 0.0, 1.0, 1.0});
  return steel;
}

/// Bars of ASTM A615 (Grade 40, 60, 80) and A706 (Grade 60, 80), in SI units 280, 420 and 550.
std::vector<CMatRebar> Reinforcements() {
  return {Steel(CMatRebar(), L"Grade 40", 280 * kMPa), Steel(CMatRebar(), L"Grade 60", 420 * kMPa),
          Steel(CMatRebar(), L"Grade 80", 550 * kMPa)};
}

/// ASTM A36 (36 ksi) and A992 (50 ksi).
std::vector<CMat> Steels() {
  return {Steel(CMat(MatType::steel), L"A36", 250 * kMPa),
          Steel(CMat(MatType::steel), L"A992", 345 * kMPa)};
}

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::aci318_2019;
  data.country = country;
  data.name = "ACI 318-19";
  data.constants = Constants();
  data.concretes = Concretes();
  data.reinforcements = Reinforcements();
  data.steels = Steels();
  data.strengthReduction = Rule();
  data.barSystem = Util::BarSystem::us;
  return data;
}

}  // namespace Orlix::Data::Design::Aci318
