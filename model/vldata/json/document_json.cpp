#include "model/vldata/json/document_json.h"

#include <algorithm>
#include <array>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/unit_keys.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/annex_json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data {
namespace {

using Design::CodeChoice;

constexpr std::array<std::pair<std::string_view, std::string CTitles::*>, 5> kTitles = {{
    {"project", &CTitles::project},
    {"part", &CTitles::part},
    {"description", &CTitles::description},
    {"jobNumber", &CTitles::jobNumber},
    {"initials", &CTitles::initials},
}};

const CodeChoice* ChoiceOf(const Design::ConcreteCode& code) {
  const auto& known = Design::KnownCodes();
  const auto found = std::find_if(known.begin(), known.end(), [&](const CodeChoice& c) {
    return c.code == code.Data().code && c.country == code.Data().country;
  });
  return found == known.end() ? nullptr : &*found;
}

// Appends a quoted text to a list unless the list ends with it.
void AppendChoice(std::string& list, std::string_view text) {
  const std::string quoted = "\"" + std::string(text) + "\"";
  if (list.size() >= quoted.size() && list.ends_with(quoted)) return;
  list += (list.empty() ? "" : ", ") + quoted;
}

// The code of that name with that annex, an empty annex for the first listed.
const CodeChoice* FindChoice(std::string_view name, std::string_view annex) {
  for (const CodeChoice& choice : Design::KnownCodes()) {
    if (choice.name == name && (annex.empty() || choice.annex == annex)) return &choice;
  }
  return nullptr;
}

std::string KnownNames() {
  std::string list;
  for (const CodeChoice& choice : Design::KnownCodes()) AppendChoice(list, choice.name);
  return "one of " + list;
}

std::string KnownAnnexes(std::string_view name) {
  std::string list;
  for (const CodeChoice& choice : Design::KnownCodes()) {
    if (choice.name == name && !choice.annex.empty()) AppendChoice(list, choice.annex);
  }
  return list.empty() ? "no annex for this code" : "one of " + list + ", or an annex as an object";
}

// The code with the annex that a value names or is.
std::optional<Design::ConcreteCode> CodeWithAnnex(const CodeChoice& code,
                                                  const Util::JsonValue& annex,
                                                  const JsonPath& path, ProblemList& problems) {
  if (annex.IsObject()) {
    const Design::ConcreteCode recommended(code.code, code.country);
    const auto own = AnnexFromJson(annex, path, recommended.Data(), problems);
    if (!own) return std::nullopt;
    return Design::ConcreteCode(code.code, *own);
  }
  const CodeChoice* choice = nullptr;
  if (annex.IsString() && annex.GetStringLength() > 0) {
    choice = FindChoice(code.name, {annex.GetString(), annex.GetStringLength()});
  }
  if (choice == nullptr) {
    problems.Add(path, &annex, KnownAnnexes(code.name));
    return std::nullopt;
  }
  return Design::ConcreteCode(choice->code, choice->country);
}

}  // namespace

Util::JsonValue TitlesToJson(const CTitles& titles, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  for (const auto& [name, member] : kTitles) {
    AddText(json, name, std::string_view(titles.*member), allocator);
  }
  return json;
}

CTitles TitlesFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  CTitles titles;
  for (const auto& [name, member] : kTitles) titles.*member = reader.Text(name).value_or("");
  reader.ReportUnknown();
  return titles;
}

Util::JsonValue UnitsToJson(const CUnit& units, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  for (const auto& [name, dimension] : kUnitKeys) {
    AddText(json, name, std::string_view(to_string(units.UnitString(dimension))), allocator);
  }
  return json;
}

CUnit UnitsFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  CUnit units;
  for (const auto& [name, dimension] : kUnitKeys) {
    const auto text = reader.WideText(name);
    if (text && !units.SetUnitString(dimension, *text)) {
      reader.Report(name, "the text of a unit of this dimension");
    }
  }
  reader.ReportUnknown();
  return units;
}

Util::JsonValue CodesToJson(const Design::ConcreteCode& code, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "concrete", std::string_view(code.Data().name), allocator);
  if (code.Data().country == Design::CCountry::Code::user) {
    Util::JsonValue annex = AnnexToJson(code.Data(), allocator);
    AddMember(json, "annex", annex, allocator);
  } else if (const CodeChoice* choice = ChoiceOf(code);
             choice != nullptr && !choice->annex.empty()) {
    AddText(json, "annex", choice->annex, allocator);
  }
  return json;
}

std::optional<Design::ConcreteCode> CodeFromJson(const Util::JsonValue& json, const JsonPath& path,
                                                 const Design::ConcreteCode& current,
                                                 ProblemList& problems) {
  if (json.IsString()) {
    const CodeChoice* choice = FindChoice({json.GetString(), json.GetStringLength()}, {});
    if (choice != nullptr) return Design::ConcreteCode(choice->code, choice->country);
    problems.Add(path, &json, KnownNames());
    return std::nullopt;
  }
  ObjectReader reader(json, path, problems);
  const Util::JsonValue* concrete = reader.Find("concrete");
  const auto name = reader.Text("concrete");
  const Util::JsonValue* annex = reader.Find("annex");
  reader.ReportUnknown();
  if (!json.IsObject() || (concrete != nullptr && !name)) return std::nullopt;
  const std::string wanted = name.value_or(current.Data().name);
  const CodeChoice* first = FindChoice(wanted, {});
  if (first == nullptr) {
    reader.Report("concrete", KnownNames());
    return std::nullopt;
  }
  if (annex == nullptr) {
    return wanted == current.Data().name ? current
                                         : Design::ConcreteCode(first->code, first->country);
  }
  return CodeWithAnnex(*first, *annex, reader.PathOf("annex"), problems);
}

}  // namespace Orlix::Data
