#include "model/oxdata/codes/is456/is456.h"

#include <string>

#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/oxdata/codes/code_grades.h"
#include "model/oxdata/codes/is456/concrete.h"

namespace Orlix::Data::Design::Is456 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kGammaC = 1.5;
constexpr double kGammaS = 1.15;
constexpr double kModulusOfBars = 200 * kGPa;
constexpr double kModulusOfSteel = 200 * kGPa;

/// The rule of Annex F is that of BS 8110-2, 3.8.3, but for the concrete's modulus, that
/// of 6.2.3.1.
constexpr Bs8110::CrackWidthParameters kCrackWidth{.concreteModulusShare = 1.0};
constexpr double kGammaM0 = 1.10;

/// A corner of the curve of cold-worked bars.
struct Corner {
  double stress;     // over f_y, or over f_y/gamma_m
  double inelastic;  // strain
};

/// Figure 23A.
constexpr Corner kColdWorked[] = {{0.80, 0.0},    {0.85, 0.0001}, {0.90, 0.0003},
                                  {0.95, 0.0007}, {0.975, 0.001}, {1.0, 0.002}};

std::vector<CodeConstant> Constants() {
  constexpr double kStrength = 25 * kMPa;
  std::vector<CodeConstant> constants = {
      {"gamma_m concrete", kGammaC, "IS 456:2000, 36.4.2.1"},
      {"gamma_m steel", kGammaS, "IS 456:2000, 36.4.2.1"},
      {"stress in the member / f_ck", kMemberStress, "IS 456:2000, 38.1 c)"},
      {"strain at the vertex", kPeakStrain, "IS 456:2000, Figure 21"},
      {"largest strain in bending", kUltimateStrain, "IS 456:2000, 38.1 b)"},
      {"largest strain in axial compression", kPeakStrain, "IS 456:2000, 39.1 a)"},
      {"E_c, f_ck 25 N/mm²", Modulus(kStrength), "IS 456:2000, 6.2.3.1", "Pa"},
      {"f_cr, f_ck 25 N/mm²", FlexuralStrength(kStrength), "IS 456:2000, 6.2.2", "Pa"},
      {"E_s", kModulusOfBars, "IS 456:2000, 5.6.3", "Pa"},
      {"largest strain of the steel for crack widths / (f_y/E_s)", kCrackWidth.steelStrainShare,
       "IS 456:2000, F-1"},
      {"modulus of the concrete for crack widths / E_c", kCrackWidth.concreteModulusShare,
       "IS 456:2000, F-1"},
      {"concrete's stress at the steel for crack widths", kCrackWidth.stiffeningStress,
       "IS 456:2000, F-1", "Pa"},
      {"E structural steel", kModulusOfSteel, "IS 800:2007, 2.2.4.1", "Pa"},
      {"gamma_m0 structural steel", kGammaM0, "IS 800:2007, Table 5"},
  };
  const char* const kNames[] = {"0.80", "0.85", "0.90", "0.95", "0.975", "1.00"};
  int i = 0;
  for (const Corner& corner : kColdWorked) {
    constants.push_back({std::string("inelastic strain, cold-worked, at ") + kNames[i++] + " f_y",
                         corner.inelastic, "IS 456:2000, Figure 23A; SP 16, Table A"});
  }
  return constants;
}

std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fck;  // MPa
  } kGrades[] = {{L"M20", 20}, {L"M25", 25}, {L"M30", 30}, {L"M35", 35},
                 {L"M40", 40}, {L"M45", 45}, {L"M50", 50}, {L"M55", 55}};
  std::vector<CMat> concretes;
  for (const auto& g : kGrades) {
    const double fck = g.fck * kMPa;
    concretes.push_back(
        ConcreteGrade(g.name, {fck, Modulus(fck), FlexuralStrength(fck), kMemberStress, kGammaC},
                      ParabolaRectangleShape(), CurveKind::linear));
  }
  return concretes;
}

/// The corners of Figure 23A for a strength, then horizontal: the code limits the strain of bars
/// nowhere, and the last point is where a bar without a limit of its own ends elsewhere too.
CTableT<double> ColdWorkedPoints(double strength) {
  constexpr double kLastStrain = 0.1;
  CTableT<double> points(2);
  points.AddRow({0.0, 0.0});
  for (const Corner& corner : kColdWorked) {
    const double stress = corner.stress * strength;
    points.AddRow({corner.inelastic + stress / kModulusOfBars, stress});
  }
  points.AddRow({kLastStrain, strength});
  return points;
}

CMatRebar ColdWorked(const wchar_t* name, double fy) {
  CMatRebar bar = BilinearSteel(CMatRebar(), name, fy, kModulusOfBars, kGammaS);
  for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
    const CTableT<double> points =
        ColdWorkedPoints(state == LoadState::ULS ? bar.DesignStrength() : fy);
    bar.SetExplicitPoints(state, LoadSign::tension, points);
    bar.SetExplicitPoints(state, LoadSign::compression, points);
  }
  return bar;
}

std::vector<CMatRebar> Reinforcements() {
  return {BilinearSteel(CMatRebar(), L"Fe 250", 250 * kMPa, kModulusOfBars, kGammaS),
          ColdWorked(L"Fe 415", 415 * kMPa), ColdWorked(L"Fe 500", 500 * kMPa)};
}

/// Yield strengths of IS 2062 below 20 mm and from 20 to 40 mm.
constexpr SteelGrade kSteels[] = {
    {L"E250", 250}, {L"E250 (20 to 40 mm)", 240}, {L"E350", 350}, {L"E350 (20 to 40 mm)", 330}};

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::is456_2000;
  data.country = country;
  data.name = "IS 456:2000";
  data.constants = Constants();
  data.concretes = Concretes();
  data.reinforcements = Reinforcements();
  data.steels = StructuralSteels(kSteels, kModulusOfSteel, kGammaM0);
  data.crackWidth = kCrackWidth;
  data.usualConcrete = L"M30";
  data.usualReinforcement = L"Fe 500";
  return data;
}

}  // namespace Orlix::Data::Design::Is456
