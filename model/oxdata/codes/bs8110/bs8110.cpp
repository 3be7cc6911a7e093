#include "model/oxdata/codes/bs8110/bs8110.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <string>

#include "model/oxdata/codes/bs8110/concrete.h"
#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/oxdata/codes/bs8110/tension_stiffening.h"
#include "model/oxdata/codes/code_grades.h"

namespace Orlix::Data::Design::Bs8110 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kGammaC = 1.5;
constexpr double kModulusOfBars = 200 * kGPa;
constexpr double kModulusOfWire = 205 * kGPa;
constexpr double kModulusOfStrand = 195 * kGPa;
constexpr double kModulusOfSteel = 205 * kGPa;
constexpr double kTendonLinearRatio = 0.8;  // end of the first branch over f_pu
constexpr double kTendonOffset = 0.005;     // inelastic strain at f_pu/gamma_m

/// An edition: what is the same in both is not repeated.
struct Edition {
  ConcCode code;
  const char* name;
  const char* gammaClause;
  double gammaS;
  bool barsOf2005;  // BS 4449:2005 beside the older Grade 460
};

constexpr Edition k1997 = {ConcCode::bs8110_1997, "BS 8110-1:1997", "BS 8110-1:1997, Table 2.2",
                           1.05, false};
constexpr Edition k2005 = {ConcCode::bs8110_2005, "BS 8110-1:1997 Amd 3",
                           "BS 8110-1:1997, Table 2.2 with Amendment 3 (2005)", 1.15, true};

std::vector<CodeConstant> Constants(const Edition& edition) {
  constexpr double kStrength = 40 * kMPa;
  return {
      {"gamma_m concrete", kGammaC, "BS 8110-1:1997, Table 2.2"},
      {"gamma_m reinforcement", edition.gammaS, edition.gammaClause},
      {"stress in the member / f_cu", kMemberStress, "BS 8110-1:1997, Figure 2.1"},
      {"eps_0, f_cu 40 N/mm²", PeakStrain(kStrength, kGammaC), "BS 8110-1:1997, Figure 2.1"},
      {"eps_cu", kUltimateStrain, "BS 8110-1:1997, Figure 2.1"},
      {"E_c,28, f_cu 40 N/mm²", Modulus(kStrength), "BS 8110-2:1985, 7.2", "Pa"},
      {"E_s", kModulusOfBars, "BS 8110-1:1997, Figure 2.2", "Pa"},
      {"E wire", kModulusOfWire, "BS 8110-1:1997, Figure 2.3", "Pa", ConstantSource::doubtful},
      {"E strand", kModulusOfStrand, "BS 8110-1:1997, Figure 2.3", "Pa", ConstantSource::doubtful},
      {"end of the tendons' first branch / f_pu", kTendonLinearRatio, "BS 8110-1:1997, Figure 2.3"},
      {"inelastic strain at f_pu/gamma_m", kTendonOffset, "BS 8110-1:1997, Figure 2.3"},
      {"tension at the steel, short-term", TensionAtSteelLevel(0.0), "BS 8110-2:1985, 3.6", "Pa"},
      {"tension at the steel, long-term", TensionAtSteelLevel(1.0), "BS 8110-2:1985, 3.6", "Pa"},
      {"largest strain of the steel for crack widths / (f_y/E_s)",
       CrackWidthParameters{}.steelStrainShare, "BS 8110-2:1985, 3.8.3"},
      {"modulus of the concrete for crack widths / E_c",
       CrackWidthParameters{}.concreteModulusShare, "BS 8110-2:1985, 3.8.3"},
      {"concrete's stress at the steel for crack widths", CrackWidthParameters{}.stiffeningStress,
       "BS 8110-2:1985, 3.8.3", "Pa"},
      {"E structural steel", kModulusOfSteel, "BS 5950-1:2000, 3.1.3", "Pa"},
  };
}

/// The code gives no tensile strength that the default model at SLS reads.
std::vector<CMat> Concretes() {
  const struct {
    const wchar_t* name;
    double fcu;  // MPa
  } kGrades[] = {{L"C20", 20}, {L"C25", 25}, {L"C30", 30}, {L"C35", 35}, {L"C40", 40},
                 {L"C45", 45}, {L"C50", 50}, {L"C55", 55}, {L"C60", 60}};
  std::vector<CMat> concretes;
  for (const auto& g : kGrades) {
    const double fcu = g.fcu * kMPa;
    concretes.push_back(ConcreteGrade(g.name, {fcu, Modulus(fcu), 0.0, kMemberStress, kGammaC},
                                      ParabolaRectangleShape(fcu, kGammaC),
                                      CurveKind::bs8110Tension));
  }
  return concretes;
}

/// Three straight lines, Figure 2.3: to 0.8 f_pu/gamma, to f_pu/gamma at 0.005 + f_pu/(gamma E),
/// horizontal. The material's f_k is the end of the first, 0.8 f_pu.
CurveShape TendonShape(double fpu, double modulus, double gamma) {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  shape.hardening = 1.0 / kTendonLinearRatio;
  shape.epsHardening = kTendonOffset + fpu / (gamma * modulus);
  return shape;
}

CMatRebar Tendon(const wchar_t* name, double fpu, double modulus, double gamma) {
  return ShapedSteel(name, {kTendonLinearRatio * fpu, modulus, 0.0, 1.0, gamma},
                     TendonShape(fpu, modulus, gamma), TendonShape(fpu, modulus, 1.0));
}

std::vector<CMatRebar> Reinforcements(const Edition& edition) {
  const double gamma = edition.gammaS;
  constexpr SteelGrade kBars[] = {
      {L"Grade 250", 250}, {L"Grade 460", 460}, {L"B500A", 500}, {L"B500B", 500}, {L"B500C", 500}};
  constexpr std::size_t kBarsOf1997 = 2;
  std::vector<CMatRebar> bars =
      Bars(std::span(kBars).first(edition.barsOf2005 ? std::size(kBars) : kBarsOf1997),
           kModulusOfBars, gamma);
  bars.push_back(Tendon(L"Wire 1670", 1670 * kMPa, kModulusOfWire, gamma));
  bars.push_back(Tendon(L"Wire 1770", 1770 * kMPa, kModulusOfWire, gamma));
  bars.push_back(Tendon(L"Strand 1670", 1670 * kMPa, kModulusOfStrand, gamma));
  bars.push_back(Tendon(L"Strand 1770", 1770 * kMPa, kModulusOfStrand, gamma));
  bars.push_back(Tendon(L"Strand 1860", 1860 * kMPa, kModulusOfStrand, gamma));
  return bars;
}

CConcCodeData Make(const Edition& edition, CCountry::Code country) {
  CConcCodeData data;
  data.code = edition.code;
  data.country = country;
  data.name = edition.name;
  data.constants = Constants(edition);
  data.concretes = Concretes();
  data.reinforcements = Reinforcements(edition);
  // Design strengths p_y of BS 5950-1:2000, Table 9, which hold the material factor.
  data.steels = StructuralSteels(kSteelsFromS275, kModulusOfSteel, 1.0);
  data.crackWidth = CrackWidthParameters{};
  data.usualConcrete = L"C35";
  data.usualReinforcement = edition.barsOf2005 ? L"B500B" : L"Grade 460";
  return data;
}

}  // namespace

CConcCodeData MakeData1997(CCountry::Code country) { return Make(k1997, country); }

CConcCodeData MakeData2005(CCountry::Code country) { return Make(k2005, country); }

}  // namespace Orlix::Data::Design::Bs8110
