#include "model/oxdata/codes/NationalAnnex.h"

#include <algorithm>
#include <stdexcept>

#include "model/oxutil/StringFrom.h"

namespace Orlix::Data::Design {

const AnnexChoice& ChoiceFor(const NationalAnnex& annex, std::string_view parameter) {
  const auto found =
      std::find_if(annex.choices.begin(), annex.choices.end(),
                   [parameter](const AnnexChoice& c) { return c.parameter == parameter; });
  if (found == annex.choices.end()) {
    throw std::invalid_argument("the annex does not choose " + std::string(parameter));
  }
  return *found;
}

bool IsAllowed(const AnnexParameter& parameter, const AnnexChoice& choice) {
  if (choice.IsRule()) {
    return std::find(parameter.rules.begin(), parameter.rules.end(), choice.rule) !=
           parameter.rules.end();
  }
  return choice.number >= parameter.least && choice.number <= parameter.most;
}

std::string AllowedText(const AnnexParameter& parameter) {
  std::string text =
      "a number from " + StringFrom(parameter.least) + " to " + StringFrom(parameter.most);
  if (!parameter.unit.empty()) text += " " + std::string(parameter.unit);
  for (const std::string_view rule : parameter.rules) text += ", or \"" + std::string(rule) + "\"";
  return text;
}

NationalAnnex RecommendedAnnex(std::span<const AnnexParameter> parameters) {
  NationalAnnex annex{"recommended", {}};
  for (const AnnexParameter& p : parameters) {
    annex.choices.push_back({std::string(p.name), p.recommended, {}, std::string(p.clause)});
  }
  return annex;
}

}  // namespace Orlix::Data::Design
