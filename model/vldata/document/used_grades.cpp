#include "model/vldata/document/used_grades.h"

#include <algorithm>
#include <span>

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/json/materials_json.h"

namespace Orlix::Data {

namespace {

void AddGrades(const CSecComp& component, std::set<GradeIndex>& used) {
  used.insert({component.MaterialType(), component.MaterialGrade()});
  if (!component.ConcreteExist()) return;
  const Reinforcement& reinforcement = component.Concrete().GetReinforcement();
  for (const CBar& bar : reinforcement.bars) used.insert({MatType::reinforcement, bar.Grade()});
  for (const BarDescription& description : reinforcement.descriptions) {
    used.insert({MatType::reinforcement, description.grade});
  }
  used.insert({MatType::reinforcement, reinforcement.links.grade});
}

// The factors of a code's standard grades of one type.
struct UsualFactors {
  double leastAlpha{};
  double mostAlpha{};
  std::set<double> gammas;

  explicit UsualFactors(const Materials& standards, MatType type) {
    for (int i = 0; i < standards.NumGrades(type); ++i) {
      const auto& p = standards.Grade(type, i).Properties();
      leastAlpha = i == 0 ? p.alpha : std::min(leastAlpha, p.alpha);
      mostAlpha = i == 0 ? p.alpha : std::max(mostAlpha, p.alpha);
      gammas.insert(p.gamma);
    }
  }

  bool Have(const Design::MaterialProperties& p) const {
    return gammas.empty() ||
           (gammas.contains(p.gamma) && p.alpha >= leastAlpha && p.alpha <= mostAlpha);
  }

  std::string Text() const {
    std::string text = "alpha " + StringFrom(leastAlpha);
    if (mostAlpha > leastAlpha) text += " to " + StringFrom(mostAlpha);
    const char* separator = ", gamma ";
    for (const double gamma : gammas) {
      text += separator + StringFrom(gamma);
      separator = " or ";
    }
    return text;
  }
};

}  // namespace

std::set<GradeIndex> UsedGrades(const std::vector<Velmo9::VelmoSection>& sections) {
  std::set<GradeIndex> used;
  for (const Velmo9::VelmoSection& section : sections) {
    for (const CSecComp& component : section.Components()) AddGrades(component, used);
  }
  return used;
}

std::vector<std::string> ForeignFactors(const CVelmoData& document,
                                        const Velmo9::VelmoSection& section) {
  const Design::CConcCode code = document.concreteCode();
  const auto standards = StandardMaterials(code.Data());
  const auto materials = document.getMaterials();
  std::set<GradeIndex> used;
  for (const CSecComp& component : section.Components()) AddGrades(component, used);
  std::vector<std::string> lines;
  for (const auto& [typeName, type] : MaterialTypeNames()) {
    if (std::ranges::find(kTypesWithStandards, type) == kTypesWithStandards.end()) continue;
    const UsualFactors usual(*standards, type);
    for (const auto& [usedType, index] : used) {
      if (usedType != type || !materials->IsValidGrade(type, index)) continue;
      const Design::CMat& grade = materials->Grade(type, index);
      const Design::MaterialProperties& p = grade.Properties();
      if (usual.Have(p)) continue;
      lines.push_back(std::string(typeName) + " \"" + to_string(grade.Name()) + "\": alpha " +
                      StringFrom(p.alpha) + ", gamma " + StringFrom(p.gamma) + "; the grades of " +
                      code.Data().name + " have " + usual.Text());
    }
  }
  return lines;
}

}  // namespace Orlix::Data
