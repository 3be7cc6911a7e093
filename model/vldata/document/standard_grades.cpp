#include "model/vldata/document/standard_grades.h"

#include <algorithm>

namespace Orlix::Data {
namespace {

template <class Mat>
const Design::CMat* FindIn(const std::vector<Mat>& grades, std::wstring_view name) {
  const auto found = std::find_if(grades.begin(), grades.end(), [&](const Design::CMat& grade) {
    return grade.Name().View() == name;
  });
  return found == grades.end() ? nullptr : &*found;
}

}  // namespace

const Design::CMat* StandardGrade(const Design::CConcCodeData& code, MatType type,
                                  std::wstring_view name) {
  if (type == MatType::concrete) return FindIn(code.concretes, name);
  if (type == MatType::reinforcement) return FindIn(code.reinforcements, name);
  return nullptr;
}

void AddStandardGrades(const Design::CConcCodeData& code, MatType type, Materials& materials) {
  if (type == MatType::concrete) {
    for (const Design::CMat& grade : code.concretes) materials.Add(grade);
  } else if (type == MatType::reinforcement) {
    for (const Design::CMat& grade : code.reinforcements) materials.Add(grade);
  }
}

std::shared_ptr<Materials> StandardMaterials(const Design::CConcCodeData& code) {
  auto materials = std::make_shared<Materials>();
  AddStandardGrades(code, MatType::concrete, *materials);
  AddStandardGrades(code, MatType::reinforcement, *materials);
  return materials;
}

void MoveToCode(const Design::CConcCodeData& from, const Design::CConcCodeData& to,
                Materials& materials) {
  for (const MatType type : {MatType::concrete, MatType::reinforcement}) {
    for (int i = 0; i < materials.NumGrades(type); ++i) {
      Design::CMat& grade = materials.Grade(type, i);
      const Design::CMat* old = StandardGrade(from, type, grade.Name().View());
      const Design::CMat* standard = StandardGrade(to, type, grade.Name().View());
      if (old != nullptr && standard != nullptr && grade == *old) grade = *standard;
    }
  }
}

}  // namespace Orlix::Data
