#include "model/oxdata/reinforcement/CRebarHelper.h"

#include "model/oxutil/Enumerations.h"

namespace Orlix::Util {

int CRebarHelper::NumGrades() const { return materials_->NumGrades(MatType::reinforcement); }

bool CRebarHelper::IsValidGrade(int grade) const {
  return materials_->IsValidGrade(MatType::reinforcement, grade);
}

std::wstring CRebarHelper::Name(int grade) const {
  if (!IsValidGrade(grade)) return {};
  return std::wstring(materials_->Reinforcement(grade).Name().View());
}

int CRebarHelper::Find(std::wstring_view name) const {
  return materials_->Find(MatType::reinforcement, name);
}

int CRebarHelper::FindForLetter(wchar_t letter) const {
  switch (letter) {
    case L'A':
      return Find(L"B500A");
    case L'B':
      return Find(L"B500B");
    case L'C':
      return Find(L"B500C");
    case L'N':
      return Find(L"D500N");
    case L'S':
      return Find(L"Y1860S7");
    default:
      return -1;
  }
}

}  // namespace Orlix::Util
