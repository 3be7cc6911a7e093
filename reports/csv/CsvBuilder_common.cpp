// What every report has, and the file: a part of CsvBuilder.

#include <codecvt>
#include <fstream>
#include <locale>
#include <stdexcept>
#include <type_traits>

#include "model/oxutil/text.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {

namespace {

constexpr const char* kBlankLine = " ";
constexpr const char* kRule = "------------------------------------";

// Turns wide text into UTF-8 on its way to a file; wchar_t holds UTF-16 on some platforms.
using Utf8Facet = std::conditional_t<sizeof(wchar_t) == 2, std::codecvt_utf8_utf16<wchar_t>,
                                     std::codecvt_utf8<wchar_t>>;

void ReplaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

// A strain unit in words. The order counts: "mille-" and "micro-" bring letters of their own.
std::string StrainText(std::string unit) {
  ReplaceAll(unit, "\u00B5", "\u03BC");  // the micro sign is the letter mu
  ReplaceAll(unit, "\u03B5", "epsilon");
  ReplaceAll(unit, "m", "mille-");
  ReplaceAll(unit, "\u03BC", "micro-");
  ReplaceAll(unit, "\u2030", "per mille");
  return unit;
}

}  // namespace

std::string CsvBuilder::CommonInformation::CommonHeading() { return "Section,Task,Case, "; }

std::string CsvBuilder::CommonInformation::CommonData() const {
  std::string data;
  for (const std::int64_t index : {iSec, iTask, iCase}) {
    data += std::to_string(index + 1);
    data += ',';
  }
  return data;
}

void CsvBuilder::AddSideHeading(const std::string& heading) {
  lines_.insert(lines_.end(), {kBlankLine, kRule, heading, kRule});
}

void CsvBuilder::AddTableHeading(const std::string& title, std::string_view columns) {
  AddSideHeading(title);
  lines_.push_back(CommonInformation::CommonHeading().append(columns));
}

void CsvBuilder::AddUnits() {
  const Data::CUnit& units = app_.pData()->Units();
  const auto unit = [&](Dimension dimension) { return to_string(units.UnitString(dimension)); };
  const std::string force = unit(Dimension::force);
  const std::string length = unit(Dimension::length);
  const std::string strain = StrainText(unit(Dimension::strain));
  const std::string area = length + "\u00B2";
  AddSideHeading("Units");
  lines_.insert(lines_.end(), {
                                  "Angle,degrees",
                                  "Area," + area,
                                  "Axial stiffness," + force,
                                  "Bending stiffness," + force + "." + area,
                                  "Curvature," + strain + "/" + length,
                                  "Force," + force,
                                  "Length," + length,
                                  "Moment," + force + "." + length,
                                  "Strain," + strain,
                                  "Stress," + unit(Dimension::stress),
                              });
}

void CsvBuilder::AddFailedCasesString() {
  AddSideHeading("SLS results are not available for the following cases");
  lines_.push_back(GetFailedCasesString());
}

std::string CsvBuilder::GetFailedCasesString() const {
  std::string text;
  for (std::size_t i = 0; i < failedCases_.size();) {
    std::size_t end = i + 1;
    while (end < failedCases_.size() &&
           failedCases_[end] == failedCases_[i] + static_cast<std::int64_t>(end - i)) {
      ++end;
    }
    if (end - i < 3) end = i + 1;  // a pair stays two numbers
    text += std::to_string(failedCases_[i]);
    if (end - i > 1) text += " to " + std::to_string(failedCases_[end - 1]);
    text += ',';
    i = end;
  }
  return text;
}

std::string CsvBuilder::Join(const std::vector<std::string>& texts, const std::string& separator) {
  std::string joined;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) joined += separator;
    joined += texts[i];
  }
  return joined;
}

OrlixString<wchar_t> CsvBuilder::Join(const std::vector<OrlixString<wchar_t>>& texts,
                                      const OrlixString<wchar_t>& separator) {
  std::wstring joined;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) joined += separator.View();
    joined += texts[i].View();
  }
  return OrlixString<wchar_t>(std::wstring_view(joined));
}

void CsvBuilder::SaveFile(const std::filesystem::path& path) const {
  std::wofstream stream;
  stream.imbue(std::locale(std::locale::classic(), new Utf8Facet));
  stream.open(path);
  if (!stream) {
    throw std::runtime_error(
        "Failed to create the csv file: The file might be in use or access denied.");
  }
  for (const std::string& line : lines_) stream << to_wstring(line) << std::endl;
  stream.close();
}

}  // namespace Orlix::Velmo
