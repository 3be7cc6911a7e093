#include "dxf_import/DxfEntityCollector.h"

#include <string>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/layer_names.h"
#include "dxf_import/tag_numbers.h"

namespace Orlix::dxf_import {
namespace {

enum class Section { None = 0, Header = 1, Entities = 2, Other = 3 };
enum class HeaderParseState { Name = 0, UnitsValue = 1 };

constexpr int kStructureCode = 0;
constexpr int kNameCode = 2;
constexpr int kLayerCode = 8;
constexpr int kVariableCode = 9;
constexpr int kIntegerCode = 70;

Section ClassifySection(std::string_view name) {
  if (EqualsInUpperCase(name, "HEADER")) return Section::Header;
  return EqualsInUpperCase(name, "ENTITIES") ? Section::Entities : Section::Other;
}

DxfUnit ParseUnitCode(int code) {
  switch (const auto unit = static_cast<DxfUnit>(code)) {
    case DxfUnit::Unitless:
    case DxfUnit::Inches:
    case DxfUnit::Feet:
    case DxfUnit::Millimetres:
    case DxfUnit::Centimetres:
    case DxfUnit::Metres:
      return unit;
    case DxfUnit::Unknown:
      break;
  }
  return DxfUnit::Unknown;
}

bool IsSectionStart(const DxfTag& tag) {
  return tag.code == kStructureCode && tag.value == "SECTION";
}
bool IsSectionEnd(const DxfTag& tag) { return tag.code == kStructureCode && tag.value == "ENDSEC"; }
bool IsEofTag(const DxfTag& tag) { return tag.code == kStructureCode && tag.value == "EOF"; }

/// Where in the drawing the walk stands, and what it holds.
class Walk {
 public:
  Walk(DxfTokenizer& tokenizer, bool keepsText, const DxfEntityCollector::EntityVisitor& visit,
       std::vector<DxfDiagnostic>& diagnostics)
      : tokenizer_(tokenizer), keepsText_(keepsText), visit_(visit), diagnostics_(diagnostics) {}

  DxfHeaderData Run() {
    while (const std::optional<DxfTag> tag = tokenizer_.Next()) {
      if (IsEofTag(*tag)) break;
      if (!HandleStructuralTag(*tag)) ProcessTag(*tag);
      if (!isOpen_) ForgetText();
    }
    FlushEntity();
    return header_;
  }

 private:
  bool HandleStructuralTag(const DxfTag& tag) {
    const bool starts = IsSectionStart(tag);
    if (starts || IsSectionEnd(tag)) {
      if (!starts) FlushEntity();
      headerState_ = HeaderParseState::Name;
      section_ = Section::None;
      return true;
    }
    if (section_ != Section::None || tag.code != kNameCode) return false;
    section_ = ClassifySection(tag.value);
    return true;
  }

  void ProcessTag(const DxfTag& tag) {
    if (section_ == Section::Header) ProcessHeaderTag(tag);
    if (section_ == Section::Entities) ProcessEntityTag(tag);
  }

  void ProcessHeaderTag(const DxfTag& tag) {
    if (headerState_ == HeaderParseState::Name) {
      if (tag.code == kVariableCode && tag.value == "$INSUNITS") {
        headerState_ = HeaderParseState::UnitsValue;
      }
      return;
    }
    headerState_ = HeaderParseState::Name;
    if (tag.code != kIntegerCode) return;
    const std::optional<int> code = ParseInteger(tag.value);
    header_.units = code ? ParseUnitCode(*code) : DxfUnit::Unknown;
    if (code) return;
    std::string message(Messages::kUnitsNotInteger);
    message.append(tag.value).append(Messages::kUnitsNotIntegerEnd);
    diagnostics_.push_back({DxfSeverity::Warning, 0, "", "", std::move(message),
                            std::string(Messages::kUnitsNotIntegerHint)});
  }

  void ProcessEntityTag(const DxfTag& tag) {
    if (tag.code == kStructureCode) {
      FlushEntity();
      ForgetText();
      isOpen_ = true;
      current_.type = tag.value;
      current_.layer = {};
      current_.line = tag.line;
      return;
    }
    if (!isOpen_) return;
    if (tag.code == kLayerCode) current_.layer = tag.value;
    current_.tags.push_back(tag);
  }

  void FlushEntity() {
    if (isOpen_) visit_(current_);
    isOpen_ = false;
    current_.tags.clear();
  }

  // The text of the latest tag stays.
  void ForgetText() {
    if (!keepsText_) tokenizer_.Forget();
  }

  DxfTokenizer& tokenizer_;
  bool keepsText_;
  const DxfEntityCollector::EntityVisitor& visit_;
  std::vector<DxfDiagnostic>& diagnostics_;
  Section section_ = Section::None;
  HeaderParseState headerState_ = HeaderParseState::Name;
  DxfHeaderData header_;
  bool isOpen_ = false;  ///< there is a current entity
  DxfEntity current_;    ///< one for all, which keeps the memory of its tags
};

}  // namespace

DxfCollectionResult DxfEntityCollector::Collect(DxfTokenizer& tokenizer) {
  DxfCollectionResult result;
  const EntityVisitor keep = [&result](const DxfEntity& e) { result.entities.push_back(e); };
  result.units = Walk(tokenizer, true, keep, result.diagnostics).Run().units;
  return result;
}

DxfHeaderData DxfEntityCollector::Collect(DxfTokenizer& tokenizer, const EntityVisitor& visit,
                                          std::vector<DxfDiagnostic>& diagnostics) {
  return Walk(tokenizer, false, visit, diagnostics).Run();
}

}  // namespace Orlix::dxf_import
