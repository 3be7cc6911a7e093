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

template <class Mat>
void AddNew(const std::vector<Mat>& grades, Materials& materials) {
  for (const Design::CMat& grade : grades) {
    if (materials.Find(grade.Type(), grade.Name().View()) < 0) materials.Add(grade);
  }
}

}  // namespace

const Design::CMat* StandardGrade(const Design::CConcCodeData& code, MatType type,
                                  std::wstring_view name) {
  if (type == MatType::concrete) return FindIn(code.concretes, name);
  if (type == MatType::reinforcement) return FindIn(code.reinforcements, name);
  if (type == MatType::steel) return FindIn(code.steels, name);
  return nullptr;
}

void AddStandardGrades(const Design::CConcCodeData& code, MatType type, Materials& materials) {
  if (type == MatType::concrete) AddNew(code.concretes, materials);
  if (type == MatType::reinforcement) AddNew(code.reinforcements, materials);
  if (type == MatType::steel) AddNew(code.steels, materials);
}

std::shared_ptr<Materials> StandardMaterials(const Design::CConcCodeData& code) {
  auto materials = std::make_shared<Materials>();
  for (const MatType type : kTypesWithStandards) AddStandardGrades(code, type, *materials);
  return materials;
}

}  // namespace Orlix::Data
