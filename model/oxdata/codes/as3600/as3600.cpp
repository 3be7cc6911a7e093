#include "model/oxdata/codes/as3600/as3600.h"

#include "model/oxdata/codes/as3600/concrete.h"
#include "model/oxdata/codes/as3600/strength_reduction.h"
#include "model/oxdata/codes/code_grades.h"

namespace Orlix::Data::Design::As3600 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kModulusOfSteel = 200e9;
constexpr double kYield = 500 * kMPa;
// Uniform strains of bars, AS/NZS 4671.
constexpr double kStrainN = 0.05;
constexpr double kStrainL = 0.015;

/// phi_0 is 0.65 for short columns whose imposed load is at least a quarter of the permanent one,
/// 0.60 for all others: a section does not know, and takes the lower.
constexpr StrengthReductionParameters kReduction = {.phiCompression = 0.60,
                                                    .phiLeast = 0.65,
                                                    .phiMost = 0.85,
                                                    .intercept = 1.24,
                                                    .slope = 13.0 / 12.0,
                                                    .phiLowDuctility = 0.65,
                                                    .ductileStrain = kStrainN,
                                                    .balancedDepth = 0.545,
                                                    .squashSteelStrain = 0.0025};

std::vector<CodeConstant> Constants() {
  constexpr double kStrength = 32 * kMPa;
  constexpr auto kDoubtful = ConstantSource::doubtful;
  const StrengthReductionParameters& r = kReduction;
  return {
      {"alpha_2, f'c 32 MPa", BlockStress(kStrength), "AS 3600:2018, 8.1.3"},
      {"gamma, f'c 32 MPa", BlockDepth(kStrength), "AS 3600:2018, 8.1.3"},
      {"least alpha_2 and gamma", 0.67, "AS 3600:2018, 8.1.3"},
      {"eps_cu", kUltimateStrain, "AS 3600:2018, 8.1.3"},
      {"alpha_1, f'c 32 MPa", SquashStress(kStrength), "AS 3600:2018, 10.6.2.2"},
      {"least alpha_1", 0.72, "AS 3600:2018, 10.6.2.2"},
      {"strain of steel, squash load", r.squashSteelStrain, "AS 3600:2018, 10.6.2.2"},
      {"f'_ct.f, f'c 32 MPa", FlexuralStrength(kStrength), "AS 3600:2018, 3.1.1.3", "Pa"},
      {"E_s", kModulusOfSteel, "AS 3600:2018, 3.2.2", "Pa"},
      {"eps_su, class N", kStrainN, "AS 3600:2018, Table 3.2.1"},
      {"eps_su, class L", kStrainL, "AS 3600:2018, Table 3.2.1"},
      {"E structural steel", kModulusOfSteel, "AS 4100:2020, 2.2.4", "Pa", kDoubtful},
      {"phi_0", r.phiCompression, "AS 3600:2018, Table 2.2.2 (d)", "", kDoubtful},
      {"phi bending, least", r.phiLeast, "AS 3600:2018, Table 2.2.2 (b)"},
      {"phi bending, largest", r.phiMost, "AS 3600:2018, Table 2.2.2 (b)"},
      {"phi bending, k_uo = 0", r.intercept, "AS 3600:2018, Table 2.2.2 (b)"},
      {"phi bending, fall with k_uo", r.slope, "AS 3600:2018, Table 2.2.2 (b)"},
      {"phi tension, class N", r.phiMost, "AS 3600:2018, Table 2.2.2 (a)"},
      {"phi bending and tension, class L", r.phiLowDuctility, "AS 3600:2018, Table 2.2.2"},
      {"k_u of N_ub", r.balancedDepth, "AS 3600:2018, 10.6.2.5", "", kDoubtful},
  };
}

/// The standard grades with the mean moduli of Table 3.1.2.
std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fc;  // MPa
    double Ec;  // MPa
  } kGrades[] = {{L"f'c 20 MPa", 20, 24000}, {L"f'c 25 MPa", 25, 26700},
                 {L"f'c 32 MPa", 32, 30100}, {L"f'c 40 MPa", 40, 32800},
                 {L"f'c 50 MPa", 50, 34800}, {L"f'c 65 MPa", 65, 37400},
                 {L"f'c 80 MPa", 80, 39600}, {L"f'c 100 MPa", 100, 42200}};
  std::vector<CMat> concretes;
  for (const auto& g : kGrades) {
    const double fc = g.fc * kMPa;
    concretes.push_back(ConcreteGrade(g.name,
                                      {fc, g.Ec * kMPa, FlexuralStrength(fc), BlockStress(fc), 1.0},
                                      RectangularBlockShape(fc), CurveKind::linear));
  }
  return concretes;
}

/// A bar that breaks at its uniform strain.
CMatRebar Bar(const wchar_t* name, double strength, double uniformStrain) {
  CurveShape uls;
  uls.kind = CurveKind::bilinear;
  uls.epsLimit = uniformStrain;
  CurveShape sls;
  sls.kind = CurveKind::bilinear;
  return ShapedSteel(name, {strength, kModulusOfSteel, 0.0, 1.0, 1.0}, uls, sls);
}

/// Yield strengths of AS/NZS 3679.1 by the thickness of the product.
constexpr SteelGrade kSteels[] = {{L"Grade 300 (to 11 mm)", 320},
                                  {L"Grade 300 (11 to 17 mm)", 300},
                                  {L"Grade 300 (over 17 mm)", 280},
                                  {L"Grade 350 (to 11 mm)", 360},
                                  {L"Grade 350 (11 to 40 mm)", 340}};

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::as3600_2018;
  data.country = country;
  data.name = "AS 3600:2018";
  data.constants = Constants();
  data.concretes = Concretes();
  data.reinforcements = {Bar(L"D500N", kYield, kStrainN), Bar(L"D500L", kYield, kStrainL),
                         Bar(L"D250N", kYield / 2, kStrainN)};
  data.steels = StructuralSteels(kSteels, kModulusOfSteel, 1.0);
  data.usualConcrete = L"f'c 32 MPa";
  data.usualReinforcement = L"D500N";
  data.strengthReduction = kReduction;
  data.barSystem = Util::BarSystem::australian;
  return data;
}

}  // namespace Orlix::Data::Design::As3600
