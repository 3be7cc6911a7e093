#include "model/oxdata/codes/hongkong/hongkong.h"

#include <string>

#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/oxdata/codes/code_grades.h"
#include "model/oxdata/codes/hongkong/concrete.h"

namespace Orlix::Data::Design::HongKong {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kGammaC = 1.5;
constexpr double kGammaS = 1.15;
constexpr double kModulusOfBars = 200 * kGPa;
constexpr double kModulusOfSteel = 205 * kGPa;

/// The rule of 7.2.3 is that of BS 8110-2, 3.8.3, with its numbers.
constexpr Bs8110::CrackWidthParameters kCrackWidth;

std::vector<CodeConstant> Constants() {
  constexpr double kStrength = 40 * kMPa;
  return {
      {"gamma_m concrete", kGammaC, "HK CoP 2013, Table 2.2"},
      {"gamma_m reinforcement", kGammaS, "HK CoP 2013, Table 2.2"},
      {"stress in the member / f_cu", kMemberStress, "HK CoP 2013, Figure 6.1"},
      {"E_d, f_cu 40 N/mm²", InitialModulus(kStrength, kGammaC), "HK CoP 2013, Figure 6.1", "Pa"},
      {"eps_0, f_cu 40 N/mm²", PeakStrain(kStrength, kGammaC), "HK CoP 2013, Figure 6.1"},
      {"eps_cu, f_cu <= 60 N/mm²", UltimateStrain(kStrength), "HK CoP 2013, Figure 6.1"},
      {"eps_cu, f_cu 100 N/mm²", UltimateStrain(100 * kMPa), "HK CoP 2013, Figure 6.1"},
      {"E_c, f_cu 40 N/mm²", Modulus(kStrength), "HK CoP 2013, 3.1.5", "Pa"},
      {"E_s", kModulusOfBars, "HK CoP 2013, 3.2", "Pa", ConstantSource::doubtful},
      {"largest strain of the steel for crack widths / (f_y/E_s)", kCrackWidth.steelStrainShare,
       "HK CoP 2013, 7.2.3"},
      {"modulus of the concrete for crack widths / E_c", kCrackWidth.concreteModulusShare,
       "HK CoP 2013, 7.2.3", "", ConstantSource::doubtful},
      {"concrete's stress at the steel for crack widths", kCrackWidth.stiffeningStress,
       "HK CoP 2013, 7.2.3", "Pa"},
      {"E structural steel", kModulusOfSteel,
       "HK Code of Practice for the Structural Use of Steel 2011, 3.1", "Pa",
       ConstantSource::doubtful},
      {"gamma_m structural steel", 1.0,
       "HK Code of Practice for the Structural Use of Steel 2011, 4.1", "",
       ConstantSource::doubtful},
  };
}

/// The code gives no tensile strength that the default model at SLS reads.
std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fcu;  // MPa
  } kGrades[] = {{L"C20", 20}, {L"C25", 25},  {L"C30", 30}, {L"C35", 35}, {L"C40", 40},
                 {L"C45", 45}, {L"C50", 50},  {L"C55", 55}, {L"C60", 60}, {L"C65", 65},
                 {L"C70", 70}, {L"C75", 75},  {L"C80", 80}, {L"C85", 85}, {L"C90", 90},
                 {L"C95", 95}, {L"C100", 100}};
  std::vector<CMat> concretes;
  for (const auto& g : kGrades) {
    const double fcu = g.fcu * kMPa;
    concretes.push_back(ConcreteGrade(g.name, {fcu, Modulus(fcu), 0.0, kMemberStress, kGammaC},
                                      ParabolaRectangleShape(fcu, kGammaC),
                                      CurveKind::bs8110Tension));
  }
  return concretes;
}

/// Bars of CS2:2012.
constexpr SteelGrade kBars[] = {{L"250", 250}, {L"500B", 500}, {L"500C", 500}};

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::hongKong_2013;
  data.country = country;
  data.name = "HK CoP 2013";
  data.constants = Constants();
  data.concretes = Concretes();
  data.reinforcements = Bars(kBars, kModulusOfBars, kGammaS);
  data.steels = StructuralSteels(kSteelsFromS275, kModulusOfSteel, 1.0);
  data.crackWidth = kCrackWidth;
  data.usualConcrete = L"C35";
  data.usualReinforcement = L"500B";
  return data;
}

}  // namespace Orlix::Data::Design::HongKong
