#include "model/oxdata/reinforcement/CBarInput.h"

#include "model/oxdata/reinforcement/BarParser.h"
#include "model/oxdata/reinforcement/bar_text.h"
#include "model/oxutil/CUnit.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Data {

CBarInput::CBarInput(const OrlixString<wchar_t>& description, const Util::CRebarHelper& grades,
                     const Util::CBarHelper& sizes, double metresPerUnit) {
  BarParser parser(description.View(), sizes, metresPerUnit);
  parser.Read();
  info_ = parser.Info();
  hasBareLength_ = parser.HasBareLength();
  if (info_.grade) namedGrade_ = grades.Find(*info_.grade);
  if (parser.Error().empty() && info_.grade && namedGrade_ < 0) {
    parser.FailAt(parser.GradePosition(), L"a reinforcement grade of the document");
  }
  error_ = parser.Error();
  if (!error_.empty()) return;
  letterGrade_ = grades.FindForLetter(info_.layers.front().front().letter);
}

std::vector<BarLayer> CBarInput::GenerateLayers() const {
  return IsDescriptionValid() ? info_.layers : std::vector<BarLayer>();
}

std::wstring CBarInput::DescriptionFromInfo() const {
  return IsDescriptionValid() ? BarText(info_) : std::wstring();
}

int CBarInput::Grade(int given) const {
  if (namedGrade_ >= 0) return namedGrade_;
  const bool isByLetter = letterGrade_ >= 0 && (updateGrade_ || given < 0);
  return isByLetter ? letterGrade_ : given;
}

std::wstring DescriptionWithUnit(const std::wstring& description, const std::wstring& unit,
                                 const Util::CRebarHelper& grades, const Util::CBarHelper& sizes) {
  CUnit units;
  const OrlixString<wchar_t> unitText{std::wstring_view(unit)};
  if (!units.SetUnitString(Dimension::sectionDimensions, unitText)) return description;
  const CBarInput input(OrlixString<wchar_t>(std::wstring_view(description)), grades, sizes,
                        1.0 / units.Conversion(Dimension::sectionDimensions));
  if (!input.IsDescriptionValid() || !input.HasLengthWithoutUnit()) return description;
  return description + L" [" + unit + L"]";
}

}  // namespace Orlix::Data
