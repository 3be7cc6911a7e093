#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Orlix::Data::Design {

/// A parameter that a code leaves to national annexes.
struct AnnexParameter {
  std::string_view name;  ///< as the code prints it, for instance "alpha_cc"
  double recommended{};   ///< SI
  double least{};         ///< bounds of a number
  double most{};
  std::string_view clause;                  ///< that lets an annex choose
  std::string_view unit{};                  ///< "m", or empty
  std::span<const std::string_view> rules;  ///< that may stand in the place of a number
};

/// What an annex chooses for one parameter: a number, or a rule that the code knows by its name.
struct AnnexChoice {
  std::string parameter;
  double number{std::numeric_limits<double>::quiet_NaN()};  ///< SI; NaN where a rule stands
  std::string rule;                                         ///< empty where a number stands
  std::string source;                                       ///< where the choice is printed

  bool IsRule() const { return !rule.empty(); }
};

/// A country's choices for a code, one for each parameter that the code leaves open.
struct NationalAnnex {
  std::string name;
  std::vector<AnnexChoice> choices;  ///< in the order of the code's parameters
};

/// The choice for a parameter. @throws std::invalid_argument when the annex has none.
const AnnexChoice& ChoiceFor(const NationalAnnex& annex, std::string_view parameter);

/// Whether a choice is a number within the parameter's bounds or one of its rules.
bool IsAllowed(const AnnexParameter& parameter, const AnnexChoice& choice);

/// "a number from 0.8 to 1", with the rules that the parameter knows.
std::string AllowedText(const AnnexParameter& parameter);

/// The recommended values, each with its clause as the source.
NationalAnnex RecommendedAnnex(std::span<const AnnexParameter> parameters);

}  // namespace Orlix::Data::Design
