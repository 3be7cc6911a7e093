#include "model/vldata/document/code_change.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <utility>

#include "model/vldata/document/standard_grades.h"
#include "model/vldata/document/used_grades.h"

namespace Orlix::Data {
namespace {

// By grade of the old table, the grade in the new one; -1: it went.
using NewGrades = std::vector<int>;

int NewGrade(const NewGrades& grades, int old) {
  const bool isKnown = old >= 0 && old < static_cast<int>(grades.size());
  return isKnown ? grades[static_cast<std::size_t>(old)] : -1;
}

void Renumber(CSecComp& component, MatType type, const NewGrades& grades) {
  if (component.MaterialType() == type) {
    component.SetMaterial(type, NewGrade(grades, component.MaterialGrade()));
  }
  if (type != MatType::reinforcement || !component.ConcreteExist()) return;
  Reinforcement reinforcement = component.Concrete().GetReinforcement();
  for (CBar& bar : reinforcement.bars) bar.SetGrade(NewGrade(grades, bar.Grade()));
  for (BarDescription& description : reinforcement.descriptions) {
    description.grade = NewGrade(grades, description.grade);
  }
  reinforcement.links.grade = NewGrade(grades, reinforcement.links.grade);
  component.Concrete().SetReinforcement(std::move(reinforcement));
}

/// What becomes of a grade under a new code; nothing: its values are the same there.
std::optional<GradeChange::Kind> ChangeOf(const Design::CMat& grade, const Design::CMat* old,
                                          const Design::CMat* standard, bool isUsed) {
  const bool isOld = old != nullptr && grade == *old;
  if (standard != nullptr && grade == *standard) return std::nullopt;
  if (!isOld) return GradeChange::Kind::keptOwn;
  if (standard != nullptr) return GradeChange::Kind::replaced;
  return isUsed ? GradeChange::Kind::keptInUse : GradeChange::Kind::removed;
}

/// Moves the table of one type.
/// @return by grade of the old table, the grade in the new one
NewGrades MoveTable(const Design::CConcCodeData& from, const Design::CConcCodeData& to,
                    MatType type, const Materials& materials, const std::set<GradeIndex>& used,
                    Materials& moved, std::vector<GradeChange>& changes) {
  NewGrades newGrades;
  for (int i = 0; i < materials.NumGrades(type); ++i) {
    const Design::CMat& grade = materials.Grade(type, i);
    const Design::CMat* standard = StandardGrade(to, type, grade.Name().View());
    const auto change = ChangeOf(grade, StandardGrade(from, type, grade.Name().View()), standard,
                                 used.contains({type, i}));
    if (change) changes.push_back({type, grade.Name(), *change});
    if (change == GradeChange::Kind::removed) {
      newGrades.push_back(-1);
    } else {
      newGrades.push_back(moved.Add(change == GradeChange::Kind::replaced ? *standard : grade));
    }
  }
  return newGrades;
}

}  // namespace

std::vector<GradeChange> MoveToCode(const Design::CConcCodeData& from,
                                    const Design::CConcCodeData& to, Materials& materials,
                                    std::vector<Velmo9::VelmoSection>& sections) {
  const std::set<GradeIndex> used = UsedGrades(sections);
  Materials moved;
  std::vector<GradeChange> changes;
  for (const MatType type :
       {MatType::concrete, MatType::reinforcement, MatType::steel, MatType::FRP}) {
    const NewGrades newGrades = MoveTable(from, to, type, materials, used, moved, changes);
    for (Velmo9::VelmoSection& section : sections) {
      for (CSecComp& component : section.Components()) Renumber(component, type, newGrades);
    }
    const int before = moved.NumGrades(type);
    if (from.code != to.code) AddStandardGrades(to, type, moved);
    for (int i = before; i < moved.NumGrades(type); ++i) {
      changes.push_back({type, moved.Grade(type, i).Name(), GradeChange::Kind::added});
    }
  }
  materials = std::move(moved);
  return changes;
}

}  // namespace Orlix::Data
