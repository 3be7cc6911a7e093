#include "model/oxdata/codes/en1992/en1992.h"

#include "model/oxdata/codes/code_grades.h"
#include "model/oxdata/codes/en1992/concrete.h"

namespace Orlix::Data::Design::En1992 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kGammaC = 1.5;
constexpr double kGammaS = 1.15;
constexpr double kModulusOfBars = 200 * kGPa;
constexpr double kModulusOfStrands = 195 * kGPa;
constexpr double kModulusOfSteel = 210 * kGPa;
constexpr double kGammaM0 = 1.0;
constexpr double kStrandProofRatio = 0.9;     // f_p0.1k / f_pk
constexpr double kStrandDesignStrain = 0.02;  // eps_ud
constexpr double kDesignStrainRatio = 0.9;    // eps_ud / eps_uk

/// alpha_cc; the United Kingdom's choice is the one for compression in flexure and axial loading.
double AlphaCc(CCountry::Code country) {
  return country == CCountry::Code::unitedKingdom ? 0.85 : 1.0;
}

std::vector<CodeConstant> Constants(CCountry::Code country) {
  const bool uk = country == CCountry::Code::unitedKingdom;
  return {
      {"alpha_cc", AlphaCc(country),
       uk ? "NA to BS EN 1992-1-1, 3.1.6(1)P" : "EN 1992-1-1, 3.1.6(1)P"},
      {"gamma_c", kGammaC, "EN 1992-1-1, Table 2.1N, persistent and transient"},
      {"gamma_s", kGammaS, "EN 1992-1-1, Table 2.1N, persistent and transient"},
      {"gamma_c accidental", 1.2, "EN 1992-1-1, Table 2.1N"},
      {"gamma_s accidental", 1.0, "EN 1992-1-1, Table 2.1N"},
      {"E_s", kModulusOfBars, "EN 1992-1-1, 3.2.7(4)", "Pa"},
      {"eps_ud/eps_uk", kDesignStrainRatio, "EN 1992-1-1, 3.2.7(2)"},
      {"E_a", kModulusOfSteel, "EN 1993-1-1, 3.2.6(1)", "Pa"},
      {"gamma_M0", kGammaM0, "EN 1993-1-1, 6.1(1); EN 1994-1-1, 2.4.1.2"},
      {"E_p strand", kModulusOfStrands, "EN 1992-1-1, 3.3.6(3)", "Pa"},
      {"f_p0.1k/f_pk", kStrandProofRatio, "EN 1992-1-1, 3.3.6(7)"},
      {"eps_ud prestressing", kStrandDesignStrain, "EN 1992-1-1, 3.3.6(7)"},
      {"beta short-term", 1.0, "EN 1992-1-1, 7.4.3(3)"},
      {"beta sustained", 0.5, "EN 1992-1-1, 7.4.3(3)"},
  };
}

/// A steel whose curves are alike in tension and compression and at both load states.
CMatRebar Steel(const wchar_t* name, double strength, double modulus, const CurveShape& shape) {
  return ShapedSteel(name, {strength, modulus, 0.0, 1.0, kGammaS}, shape, shape);
}

/// Horizontal upper branch without a strain limit, 3.2.7(2) b).
CurveShape BarShape() {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  return shape;
}

/// Inclined upper branch from f_p0.1k to f_pk at eps_uk with the limit eps_ud, 3.3.6(7).
CurveShape StrandShape() {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  shape.hardening = 1.0 / kStrandProofRatio;
  shape.epsHardening = kStrandDesignStrain / kDesignStrainRatio;
  shape.epsLimit = kStrandDesignStrain;
  return shape;
}

/// Strength classes of Table 3.1.
std::vector<CMat> Concretes(CCountry::Code country) {
  const struct {
    const wchar_t* name;
    double fck;  // MPa
  } kClasses[] = {{L"C12/15", 12}, {L"C16/20", 16}, {L"C20/25", 20}, {L"C25/30", 25},
                  {L"C30/37", 30}, {L"C35/45", 35}, {L"C40/50", 40}, {L"C45/55", 45},
                  {L"C50/60", 50}, {L"C55/67", 55}, {L"C60/75", 60}, {L"C70/85", 70},
                  {L"C80/95", 80}, {L"C90/105", 90}};
  std::vector<CMat> concretes;
  for (const auto& c : kClasses) {
    const double fck = c.fck * kMPa;
    concretes.push_back(ConcreteGrade(
        c.name, {fck, MeanModulus(fck), MeanTensileStrength(fck), AlphaCc(country), kGammaC},
        ParabolaRectangleShape(fck), CurveKind::interpolated));
  }
  return concretes;
}

/// Bars of BS 4449:2005 (classes A to C of EN 1992-1-1, Table C.1) and strands of EN 10138-3.
std::vector<CMatRebar> Reinforcements() {
  return {Steel(L"B500A", 500 * kMPa, kModulusOfBars, BarShape()),
          Steel(L"B500B", 500 * kMPa, kModulusOfBars, BarShape()),
          Steel(L"B500C", 500 * kMPa, kModulusOfBars, BarShape()),
          Steel(L"Y1770S7", kStrandProofRatio * 1770 * kMPa, kModulusOfStrands, StrandShape()),
          Steel(L"Y1860S7", kStrandProofRatio * 1860 * kMPa, kModulusOfStrands, StrandShape())};
}

}  // namespace

CConcCodeData MakeData(CCountry::Code country) {
  CConcCodeData data;
  data.code = ConcCode::en1992_2004;
  data.country = country;
  data.name = "EN 1992-1-1:2004";
  data.annex = country == CCountry::Code::unitedKingdom ? "national annex of the United Kingdom"
                                                        : "recommended values";
  data.constants = Constants(country);
  data.concretes = Concretes(country);
  data.reinforcements = Reinforcements();
  data.steels = StructuralSteels(kSteelsOfEn10025, kModulusOfSteel, kGammaM0);
  data.usualConcrete = L"C30/37";
  data.usualReinforcement = L"B500B";
  return data;
}

}  // namespace Orlix::Data::Design::En1992
