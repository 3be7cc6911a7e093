// The JSON side of the document: reading, writing, and edits that arrive as JSON.

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/document/code_change.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/document_json.h"
#include "model/vldata/json/json_values.h"
#include "model/vldata/json/materials_json.h"
#include "model/vldata/json/sections_json.h"

namespace Orlix::Data {
namespace {

void ReadHeading(ObjectReader& reader) {
  const auto format = reader.Text("format");
  if (reader.Find("format") == nullptr || (format && *format != kDocumentFormat)) {
    reader.Report("format", "\"velmo document\"");
  }
  const auto version = reader.Number("version");
  if (version && *version != kDocumentVersion) reader.Report("version", "1");
}

std::filesystem::path PathFromUtf8(const std::string& text) {
  return {std::u8string(text.begin(), text.end())};
}

DocumentOptions OptionsFromJson(const Util::JsonValue& json, const JsonPath& path,
                                ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  DocumentOptions options;
  options.deductDisplacedConcrete =
      reader.Flag("deductDisplacedConcrete").value_or(options.deductDisplacedConcrete);
  reader.ReportUnknown();
  return options;
}

std::string_view NameOf(MatType type) {
  const auto names = MaterialTypeNames();
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&](const auto& entry) { return entry.second == type; });
  return found == names.end() ? std::string_view() : found->first;
}

std::vector<Velmo9::VelmoSection> SectionsFromJson(const Util::JsonValue& array,
                                                   const JsonPath& path, const Materials& materials,
                                                   ProblemList& problems) {
  std::vector<Velmo9::VelmoSection> sections;
  for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
    sections.push_back(SectionFromJson(array[i], path.Element(i), materials, problems));
  }
  return sections;
}

}  // namespace

CVelmoData::CVelmoData(Util::JsonDocument& json) : CVelmoData() {
  ProblemList problems;
  const JsonPath root;
  ObjectReader reader(json, root, problems);
  if (json.IsObject()) ReadHeading(reader);
  if (auto id = reader.Text("modelId")) {
    if (id->empty()) reader.Report("modelId", "a text that is not empty");
    if (!id->empty()) modelId_ = std::move(*id);
  }
  if (const auto path = reader.Text("filePath")) filePath_ = PathFromUtf8(*path);
  if (const Util::JsonValue* titles = reader.Find("titles")) {
    SetTitle(TitlesFromJson(*titles, reader.PathOf("titles"), problems));
  }
  if (const Util::JsonValue* units = reader.Find("units")) {
    SetUnits(UnitsFromJson(*units, reader.PathOf("units"), problems));
  }
  if (const Util::JsonValue* codes = reader.Find("codes")) {
    code_ = CodeFromJson(*codes, reader.PathOf("codes"), code_, problems).value_or(code_);
  }
  if (const Util::JsonValue* options = reader.Find("options")) {
    options_ = OptionsFromJson(*options, reader.PathOf("options"), problems);
  }
  *materials_ = MaterialsFromJson(reader.Find("materials"), reader.PathOf("materials"),
                                  code_.Data(), problems);
  if (const Util::JsonValue* sections = reader.Array("sections")) {
    sections_ = SectionsFromJson(*sections, reader.PathOf("sections"), *materials_, problems);
    for (Velmo9::VelmoSection& section : sections_) GenerateRebar(section);
  }
  reader.ReportUnknown();
  readProblems_ = problems.Problems();
  RequeueLastAnalysedCases(0);
}

void CVelmoData::setSection(int iSec, const Util::JsonValue& json) {
  Velmo9::VelmoSection& place = getSection(iSec);
  Velmo9::VelmoSection read = section(json);
  if (!readProblems_.empty()) return;
  place = std::move(read);
  RequeueLastAnalysedCases(iSec, 0);
}

Velmo9::VelmoSection CVelmoData::section(const Util::JsonValue& json) {
  ProblemList problems;
  const JsonPath root;
  Velmo9::VelmoSection read = SectionFromJson(json, root.Member("section"), *materials_, problems);
  GenerateRebar(read);
  readProblems_ = problems.Problems();
  return read;
}

void CVelmoData::toJson(Util::JsonDocument& json, Util::JsonAllocator& allocator,
                        bool withFilePath) const {
  json.SetObject();
  AddText(json, "format", std::string_view(kDocumentFormat), allocator);
  Util::JsonValue part(kDocumentVersion);
  AddMember(json, "version", part, allocator);
  AddText(json, "modelId", std::string_view(modelId_), allocator);
  if (withFilePath) {
    const std::u8string path = filePath_.u8string();
    AddText(json, "filePath", std::string_view(std::string(path.begin(), path.end())), allocator);
  }
  part = TitlesToJson(Titles(), allocator);
  AddMember(json, "titles", part, allocator);
  part = UnitsToJson(Units(), allocator);
  AddMember(json, "units", part, allocator);
  part = CodesToJson(code_, allocator);
  AddMember(json, "codes", part, allocator);
  part.SetObject();
  AddFlag(part, "deductDisplacedConcrete", options_.deductDisplacedConcrete, allocator);
  AddMember(json, "options", part, allocator);
  part = MaterialsToJson(*materials_, allocator);
  AddMember(json, "materials", part, allocator);
  part.SetArray();
  for (const Velmo9::VelmoSection& section : sections_) {
    part.PushBack(SectionToJson(section, *materials_, allocator), allocator);
  }
  AddMember(json, "sections", part, allocator);
}

void CVelmoData::ChangeCode(const Design::ConcreteCode& code, ProblemList& problems) {
  const std::string from = code_.Data().name;
  gradeChanges_ = MoveToCode(code_.Data(), code.Data(), *materials_, sections_);
  code_ = code;
  const JsonPath root;
  const JsonPath tables = root.Member("materials");
  for (const GradeChange& change : gradeChanges_) {
    if (change.kind != GradeChange::Kind::keptInUse) continue;
    const JsonPath table = tables.Member(NameOf(change.type));
    const int grade = materials_->Find(change.type, change.name.View());
    const JsonPath place = table.Element(static_cast<std::size_t>(grade));
    const std::string name = to_string(change.name);
    problems.AddText(place.Member("name"), "\"" + name + "\", a grade of " + from + " that stays",
                     "a grade of " + code_.Data().name);
  }
}

void CVelmoData::SetCodes(const Util::JsonValue& json) {
  ProblemList problems;
  const JsonPath root;
  gradeChanges_.clear();
  const auto code = CodeFromJson(json, root.Member("codes"), code_, problems);
  if (code && problems.IsEmpty()) ChangeCode(*code, problems);
  readProblems_ = problems.Problems();
}

void CVelmoData::SetCodes(const OrlixString<wchar_t>& name) {
  const std::string text = to_string(name);
  SetCodes(Util::JsonValue(
      rapidjson::StringRef(text.data(), static_cast<rapidjson::SizeType>(text.size()))));
}

void CVelmoData::SetGrade(const Util::JsonValue& json, bool onlyExisting) {
  ProblemList problems;
  const JsonPath root;
  const JsonPath path = root.Member("grade");
  ObjectReader reader(json, path, problems);
  const auto type = reader.Choice<MatType>("type", MaterialTypeNames());
  if (json.IsObject() && reader.Find("type") == nullptr) {
    reader.Report("type", "a type of material");
  }
  const std::wstring name = to_wstring(reader.RequiredText("name", "the name of the grade"));
  if (type && !name.empty()) {
    const int there = materials_->Find(*type, name);
    if (there < 0 && onlyExisting) reader.Report("name", "the name of a grade in the table");
    const Design::CMat* known =
        there < 0 ? StandardGrade(code_.Data(), *type, name) : &materials_->Grade(*type, there);
    const Design::CMat material = MaterialFromJson(reader, *type, known, code_.Data());
    if (problems.IsEmpty() && there >= 0) materials_->Grade(*type, there) = material;
    if (problems.IsEmpty() && there < 0) materials_->Add(material);
  }
  readProblems_ = problems.Problems();
}

}  // namespace Orlix::Data
