#include "model/oxdata/codes/csaA23/csaA23.h"

#include <string>

#include "model/oxdata/codes/code_grades.h"
#include "model/oxdata/codes/csaA23/concrete.h"

namespace Orlix::Data::Design::CsaA23 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kPhiC = 0.65;
constexpr double kPhiS = 0.85;
constexpr double kPhiSteel = 0.90;
constexpr double kModulusOfSteel = 200 * kGPa;

/// P_r,max over P_ro, 10.10.4: ties (0.2 + 0.002 h) up to 0.80 with h in mm, spirals 0.90.
constexpr AxialCapRule kAxialCap = {0.90, 0.2, 2.0, 0.80};

std::vector<CodeConstant> Constants() {
  constexpr double kStrength = 30 * kMPa;
  return {
      {"phi_c", kPhiC, "CSA A23.3-14, 8.4.2"},
      {"phi_s", kPhiS, "CSA A23.3-14, 8.4.3"},
      {"alpha_1, f'c 30 MPa", BlockStress(kStrength), "CSA A23.3-14, 10.1.7"},
      {"beta_1, f'c 30 MPa", BlockDepth(kStrength), "CSA A23.3-14, 10.1.7"},
      {"least alpha_1 and beta_1", 0.67, "CSA A23.3-14, 10.1.7"},
      {"eps_cu", kUltimateStrain, "CSA A23.3-14, 10.1.3"},
      {"E_c, f'c 30 MPa", Modulus(kStrength), "CSA A23.3-14, 8.6.2.3", "Pa"},
      {"f_r, f'c 30 MPa", ModulusOfRupture(kStrength), "CSA A23.3-14, 8.6.4", "Pa"},
      {"E_s", kModulusOfSteel, "CSA A23.3-14, 8.5.4.1", "Pa"},
      {"P_r,max/P_ro, spirals", kAxialCap.spiral, "CSA A23.3-14, 10.10.4", "",
       ConstantSource::doubtful},
      {"P_r,max/P_ro, ties, h 300 mm and more", AxialCapShare(kAxialCap, false, 0.3),
       "CSA A23.3-14, 10.10.4", "", ConstantSource::doubtful},
      {"P_r,max/P_ro, ties, h 200 mm", AxialCapShare(kAxialCap, false, 0.2),
       "CSA A23.3-14, 10.10.4", "", ConstantSource::doubtful},
      {"phi structural steel", kPhiSteel, "CSA S16-14, 13.1 a)"},
      {"E structural steel", kModulusOfSteel, "CSA S16-14, Symbols", "Pa",
       ConstantSource::doubtful},
  };
}

std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fc;  // MPa
  } kStrengths[] = {{L"f'c 20 MPa", 20}, {L"f'c 25 MPa", 25}, {L"f'c 30 MPa", 30},
                    {L"f'c 35 MPa", 35}, {L"f'c 40 MPa", 40}, {L"f'c 45 MPa", 45},
                    {L"f'c 50 MPa", 50}, {L"f'c 55 MPa", 55}, {L"f'c 60 MPa", 60},
                    {L"f'c 70 MPa", 70}, {L"f'c 80 MPa", 80}};
  std::vector<CMat> concretes;
  for (const auto& c : kStrengths) {
    const double fc = c.fc * kMPa;
    concretes.push_back(
        ConcreteGrade(c.name, {fc, Modulus(fc), ModulusOfRupture(fc), BlockStress(fc), 1.0 / kPhiC},
                      RectangularBlockShape(fc), CurveKind::linear));
  }
  return concretes;
}

/// Bars of CSA G30.18: R and the weldable W have the same yield strengths.
constexpr SteelGrade kBars[] = {{L"400R", 400}, {L"400W", 400}, {L"500R", 500}, {L"500W", 500}};
constexpr SteelGrade kSteels[] = {{L"300W", 300}, {L"350W", 350}};

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::csaA23_2014;
  data.country = country;
  data.name = "CSA A23.3-14";
  data.constants = Constants();
  data.concretes = Concretes();
  data.reinforcements = Bars(kBars, kModulusOfSteel, 1.0 / kPhiS);
  data.steels = StructuralSteels(kSteels, kModulusOfSteel, 1.0 / kPhiSteel);
  data.usualConcrete = L"f'c 30 MPa";
  data.usualReinforcement = L"400W";
  data.axialCap = kAxialCap;
  data.barSystem = Util::BarSystem::canadian;
  return data;
}

}  // namespace Orlix::Data::Design::CsaA23
