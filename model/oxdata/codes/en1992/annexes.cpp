#include "model/oxdata/codes/en1992/annexes.h"

#include <limits>
#include <string_view>

namespace Orlix::Data::Design::En1992 {
namespace {

/// k_3 = 3.4 up to a cover of 25 mm, 3.4 (25 mm/c)^(2/3) beyond.
constexpr std::string_view kCoverRule = "3.4 (25 mm/c)^(2/3)";
constexpr double kCoverOfRule = 0.025;
constexpr double kK3OfRule = 3.4;
constexpr std::string_view kNoLimit = "no limit";
constexpr std::string_view kRulesOfK3[] = {kCoverRule};
constexpr std::string_view kRulesOfLimits[] = {kNoLimit};

constexpr double kMillimetre = 1e-3;

// The bounds keep every standard grade a curve: a strand yields at 0.0086 where gamma_s is 1.
constexpr AnnexParameter kParameters[] = {
    {"alpha_cc", 1.0, 0.8, 1.0, "EN 1992-1-1, 3.1.6(1)P", "", {}},
    {"gamma_c", 1.5, 1.0, 2.0, "EN 1992-1-1, Table 2.1N, persistent and transient", "", {}},
    {"gamma_s", 1.15, 1.0, 2.0, "EN 1992-1-1, Table 2.1N, persistent and transient", "", {}},
    {"gamma_c accidental", 1.2, 1.0, 2.0, "EN 1992-1-1, Table 2.1N", "", {}},
    {"gamma_s accidental", 1.0, 1.0, 2.0, "EN 1992-1-1, Table 2.1N", "", {}},
    {"eps_ud/eps_uk", 0.9, 0.5, 1.0, "EN 1992-1-1, 3.2.7(2)", "", {}},
    {"eps_ud prestressing", 0.02, 0.01, 0.05, "EN 1992-1-1, 3.3.6(7)", "", {}},
    {"k_3", 3.4, 0.0, 10.0, "EN 1992-1-1, 7.3.4(3)", "", kRulesOfK3},
    {"k_4", 0.425, 0.1, 2.0, "EN 1992-1-1, 7.3.4(3)", "", {}},
    {"w_max X0, XC1", 0.4 * kMillimetre, 0.05 * kMillimetre, kMillimetre,
     "EN 1992-1-1, Table 7.1N, reinforced members", "m", kRulesOfLimits},
    {"w_max XC2 to XC4", 0.3 * kMillimetre, 0.05 * kMillimetre, kMillimetre,
     "EN 1992-1-1, Table 7.1N, reinforced members", "m", kRulesOfLimits},
    {"w_max XD, XS", 0.3 * kMillimetre, 0.05 * kMillimetre, kMillimetre,
     "EN 1992-1-1, Table 7.1N, reinforced members", "m", kRulesOfLimits},
};

}  // namespace

std::span<const AnnexParameter> Parameters() { return kParameters; }

NationalAnnex UnitedKingdomAnnex() {
  NationalAnnex annex = RecommendedAnnex(kParameters);
  annex.name = "UK";
  for (AnnexChoice& choice : annex.choices) {
    // For compression in flexure and under axial load.
    if (choice.parameter == "alpha_cc") {
      choice.number = 0.85;
      choice.source = "NA to BS EN 1992-1-1, 3.1.6(1)P";
    }
    if (choice.parameter == "w_max X0, XC1") {
      choice.number = 0.3 * kMillimetre;
      choice.source = "NA to BS EN 1992-1-1, Table NA.4";
    }
  }
  return annex;
}

double NumberOf(const AnnexChoice& choice) {
  if (!choice.IsRule()) return choice.number;
  return choice.rule == kCoverRule ? kK3OfRule : std::numeric_limits<double>::infinity();
}

CrackWidthParameters CrackWidthBy(const NationalAnnex& annex) {
  CrackWidthParameters rule;
  const AnnexChoice& k3 = ChoiceFor(annex, "k_3");
  rule.k3 = NumberOf(k3);
  if (k3.IsRule()) rule.k3CoverLimit = kCoverOfRule;
  rule.k4 = NumberOf(ChoiceFor(annex, "k_4"));
  rule.limitX0ToXc1 = NumberOf(ChoiceFor(annex, "w_max X0, XC1"));
  rule.limitXc2ToXc4 = NumberOf(ChoiceFor(annex, "w_max XC2 to XC4"));
  rule.limitXdAndXs = NumberOf(ChoiceFor(annex, "w_max XD, XS"));
  return rule;
}

}  // namespace Orlix::Data::Design::En1992
