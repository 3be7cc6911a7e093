#include "model/oxdata/codes/en1992/en1992.h"

#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "model/oxdata/codes/code_grades.h"
#include "model/oxdata/codes/en1992/annexes.h"
#include "model/oxdata/codes/en1992/concrete.h"

namespace Orlix::Data::Design::En1992 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

constexpr double kModulusOfBars = 200 * kGPa;
constexpr double kModulusOfStrands = 195 * kGPa;
constexpr double kModulusOfSteel = 210 * kGPa;
constexpr double kGammaM0 = 1.0;
constexpr double kStrandProofRatio = 0.9;  // f_p0.1k / f_pk

/// Ductility classes of bars, Table C.1: the least k = f_t/f_yk and eps_uk.
struct DuctilityClass {
  const wchar_t* horizontal;  // names of the grades by the upper branch of 3.2.7(2)
  const wchar_t* inclined;
  const char* k;  // symbols
  const char* epsUk;
  double strengthRatio;
  double ultimateStrain;
};

constexpr DuctilityClass kDuctilityClasses[] = {
    {L"B500A", L"B500A inclined", "k, class A", "eps_uk, class A", 1.05, 0.025},
    {L"B500B", L"B500B inclined", "k, class B", "eps_uk, class B", 1.08, 0.05},
    {L"B500C", L"B500C inclined", "k, class C", "eps_uk, class C", 1.15, 0.075}};

/// What the annex chooses for the grades.
struct Factors {
  explicit Factors(const NationalAnnex& annex)
      : alphaCc(ChoiceFor(annex, "alpha_cc").number),
        gammaC(ChoiceFor(annex, "gamma_c").number),
        gammaS(ChoiceFor(annex, "gamma_s").number),
        strainRatio(ChoiceFor(annex, "eps_ud/eps_uk").number),
        strandStrain(ChoiceFor(annex, "eps_ud prestressing").number) {}

  double alphaCc, gammaC, gammaS;
  double strainRatio;   // eps_ud / eps_uk
  double strandStrain;  // eps_ud
};

/// The annex's choices; a rule stands behind its parameter, with the number that it begins with.
void AddChoices(const NationalAnnex& annex, ConstantSource source,
                std::vector<CodeConstant>& constants) {
  for (const AnnexParameter& p : Parameters()) {
    const AnnexChoice& choice = ChoiceFor(annex, p.name);
    const bool isRecommended = choice.number == p.recommended && choice.source == p.clause;
    CodeConstant constant{choice.parameter, NumberOf(choice), choice.source, std::string(p.unit),
                          isRecommended ? ConstantSource::secondary : source};
    if (choice.IsRule()) constant.symbol += ": " + choice.rule;
    if (constant.clause.empty()) constant.clause = "annex " + annex.name + ", no source given";
    constants.push_back(std::move(constant));
  }
}

std::vector<CodeConstant> Constants(const NationalAnnex& annex, ConstantSource source) {
  std::vector<CodeConstant> constants;
  AddChoices(annex, source, constants);
  const CrackWidthParameters cracks;
  const CodeConstant kCommon[] = {
      {"E_s", kModulusOfBars, "EN 1992-1-1, 3.2.7(4)", "Pa"},
      {"E_a", kModulusOfSteel, "EN 1993-1-1, 3.2.6(1)", "Pa"},
      {"gamma_M0", kGammaM0, "EN 1993-1-1, 6.1(1); EN 1994-1-1, 2.4.1.2"},
      {"E_p strand", kModulusOfStrands, "EN 1992-1-1, 3.3.6(3)", "Pa"},
      {"f_p0.1k/f_pk", kStrandProofRatio, "EN 1992-1-1, 3.3.6(7)"},
      {"beta short-term", 1.0, "EN 1992-1-1, 7.4.3(3)"},
      {"beta sustained", 0.5, "EN 1992-1-1, 7.4.3(3)"},
      {"k_t short-term", cracks.ktShort, "EN 1992-1-1, 7.3.4(2)"},
      {"k_t long-term", cracks.ktLong, "EN 1992-1-1, 7.3.4(2)"},
      {"least share of sigma_s/E_s", cracks.leastShare, "EN 1992-1-1, (7.9)"},
      {"k_1 high bond", cracks.k1HighBond, "EN 1992-1-1, 7.3.4(3)"},
      {"k_1 plain", cracks.k1Plain, "EN 1992-1-1, 7.3.4(3)"},
      {"close spacing over c + phi/2", cracks.closeSpacing, "EN 1992-1-1, 7.3.4(3)"},
      {"s_r,max/(h - x) beyond it", cracks.wideCrackShare, "EN 1992-1-1, (7.14)"},
      {"xi pretensioned strand", cracks.xiPretensioned, "EN 1992-1-1, Table 6.2"},
  };
  constants.insert(constants.end(), std::begin(kCommon), std::end(kCommon));
  for (const DuctilityClass& c : kDuctilityClasses) {
    constants.push_back({c.k, c.strengthRatio, "EN 1992-1-1, Table C.1"});
    constants.push_back({c.epsUk, c.ultimateStrain, "EN 1992-1-1, Table C.1"});
  }
  return constants;
}

/// Horizontal upper branch without a strain limit, 3.2.7(2) b).
CurveShape HorizontalShape() {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  return shape;
}

/// Inclined upper branch to `ratio` times the strength at eps_uk with the limit eps_ud: of bars
/// from f_yk to k f_yk, 3.2.7(2) a), of strands from f_p0.1k to f_pk, 3.3.6(7).
CurveShape InclinedShape(double ratio, double epsUd, double strainRatio) {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  shape.hardening = ratio;
  shape.epsHardening = epsUd / strainRatio;
  shape.epsLimit = epsUd;
  return shape;
}

/// Strength classes of Table 3.1.
std::vector<CMat> Concretes(const Factors& factors) {
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
        c.name, {fck, MeanModulus(fck), MeanTensileStrength(fck), factors.alphaCc, factors.gammaC},
        ParabolaRectangleShape(fck), CurveKind::interpolated));
  }
  return concretes;
}

/// Bars of BS 4449:2005 (classes A to C of EN 1992-1-1, Table C.1) and strands of EN 10138-3.
/// Curves are alike in tension and compression and at both load states.
std::vector<CMatRebar> Reinforcements(const Factors& factors) {
  std::vector<CMatRebar> steels;
  const auto add = [&](const wchar_t* name, double strength, double modulus,
                       const CurveShape& shape) {
    steels.push_back(
        ShapedSteel(name, {strength, modulus, 0.0, 1.0, factors.gammaS}, shape, shape));
  };
  constexpr double kYield = 500 * kMPa;
  for (const DuctilityClass& c : kDuctilityClasses)
    add(c.horizontal, kYield, kModulusOfBars, HorizontalShape());
  const CurveShape strand =
      InclinedShape(1.0 / kStrandProofRatio, factors.strandStrain, factors.strainRatio);
  add(L"Y1770S7", kStrandProofRatio * 1770 * kMPa, kModulusOfStrands, strand);
  add(L"Y1860S7", kStrandProofRatio * 1860 * kMPa, kModulusOfStrands, strand);
  for (const DuctilityClass& c : kDuctilityClasses) {
    add(c.inclined, kYield, kModulusOfBars,
        InclinedShape(c.strengthRatio, factors.strainRatio * c.ultimateStrain,
                      factors.strainRatio));
  }
  return steels;
}

}  // namespace

CConcCodeData MakeData(const NationalAnnex& annex) {
  const Factors factors(annex);
  CConcCodeData data;
  data.code = ConcCode::en1992_2004;
  data.country = CCountry::Code::user;
  data.name = "EN 1992-1-1:2004";
  data.annex = "national annex \"" + annex.name + "\"";
  data.annexParameters = Parameters();
  data.nationalAnnex = annex;
  data.constants = Constants(annex, ConstantSource::user);
  data.concretes = Concretes(factors);
  data.reinforcements = Reinforcements(factors);
  data.steels = StructuralSteels(kSteelsOfEn10025, kModulusOfSteel, kGammaM0);
  data.crackWidth = CrackWidthBy(annex);
  data.usualConcrete = L"C30/37";
  data.usualReinforcement = L"B500B";
  return data;
}

CConcCodeData MakeData(CCountry::Code country) {
  const bool uk = country == CCountry::Code::unitedKingdom;
  const NationalAnnex annex = uk ? UnitedKingdomAnnex() : RecommendedAnnex(Parameters());
  CConcCodeData data = MakeData(annex);
  data.country = country;
  data.annex = uk ? "national annex of the United Kingdom" : "recommended values";
  data.constants = Constants(annex, ConstantSource::secondary);
  return data;
}

}  // namespace Orlix::Data::Design::En1992
