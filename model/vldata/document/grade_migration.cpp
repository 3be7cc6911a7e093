#include "model/vldata/document/grade_migration.h"

#include <algorithm>
#include <string>

namespace Orlix::Data {

int AddOwnGrade(const Design::CMat& own, Materials& materials) {
  const std::wstring wanted =
      own.Name().empty() ? std::wstring(L"user-defined") : std::wstring(own.Name().View());
  std::wstring name = wanted;
  for (int next = 2;; ++next) {
    Design::CMat candidate = own;
    candidate.SetName(OrlixString<wchar_t>(std::wstring_view(name)));
    const int there = materials.Find(own.Type(), name);
    if (there < 0) return materials.Add(candidate);
    if (materials.Grade(own.Type(), there) == candidate) return there;
    name = wanted + L" (" + std::to_wstring(next) + L")";
  }
}

namespace {

bool CanBeMadeOf(MatType type) {
  return type == MatType::concrete || type == MatType::steel || type == MatType::FRP;
}

}  // namespace

bool CarryOwnGrades(const std::vector<Velmo9::VelmoSection>& sections) {
  return std::any_of(sections.begin(), sections.end(), [](const CSection& section) {
    return std::any_of(
        section.Components().begin(), section.Components().end(),
        [](const CSecComp& component) { return component.UserDefinedGrade().has_value(); });
  });
}

void MoveOwnGrades(std::vector<Velmo9::VelmoSection>& sections, Materials& materials) {
  for (Velmo9::VelmoSection& section : sections) {
    for (CSecComp& component : section.Components()) {
      if (!component.UserDefinedGrade()) continue;
      const Design::CMat own = *component.UserDefinedGrade();
      component.SetUserDefinedGrade(std::nullopt);
      // No component is made of any other type: such a grade was never part of anything.
      if (CanBeMadeOf(own.Type())) {
        component.SetMaterial(own.Type(), AddOwnGrade(own, materials));
      }
    }
  }
}

}  // namespace Orlix::Data
