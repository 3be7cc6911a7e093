#include "model/vldata/json/annex_json.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "model/oxutil/json.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data {
namespace {

using Design::AnnexChoice;
using Design::AnnexParameter;

void ReadHeading(ObjectReader& reader, std::string_view codeName) {
  const auto format = reader.Text("format");
  if (reader.Find("format") == nullptr || (format && *format != kAnnexFormat)) {
    reader.Report("format", "\"velmo national annex\"");
  }
  const auto version = reader.Number("version");
  if (version && *version != kAnnexVersion) reader.Report("version", "1");
  const auto code = reader.Text("code");
  if (reader.Find("code") == nullptr || (code && *code != codeName)) {
    reader.Report("code", "\"" + std::string(codeName) + "\", the code that takes the annex");
  }
}

constexpr std::size_t kLongestName = 200;  // [bytes], on a sheet and in a table's heading

// A name that cannot be mistaken for an annex of the program.
std::string ReadName(ObjectReader& reader, std::string_view codeName) {
  std::string name = reader.RequiredText("name", "the name of the annex");
  const auto& known = Design::KnownCodes();
  const bool isTaken = std::any_of(known.begin(), known.end(), [&](const auto& choice) {
    return choice.name == codeName && choice.annex == name;
  });
  if (isTaken) reader.Report("name", "a name that no annex of the program has");
  const bool isLine = name.size() <= kLongestName && std::ranges::none_of(name, [](char c) {
                        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
                      });
  if (!isLine) reader.Report("name", "a name of one line, of 200 bytes at most");
  return name.empty() || isTaken || !isLine ? "unnamed" : name;
}

// A number or a rule; nothing for a value that is neither.
std::optional<AnnexChoice> ValueFrom(const Util::JsonValue& value,
                                     const AnnexParameter& parameter) {
  AnnexChoice choice;
  choice.parameter = parameter.name;
  if (value.IsNumber()) {
    choice.number = value.GetDouble();
  } else if (value.IsString()) {
    choice.rule.assign(value.GetString(), value.GetStringLength());
  }
  if (!Design::IsAllowed(parameter, choice)) return std::nullopt;
  return choice;
}

// `parameter: value` or `parameter: {"value": value, "source": text}`.
AnnexChoice ChoiceFrom(ObjectReader& parameters, const AnnexParameter& parameter,
                       AnnexChoice recommended) {
  const Util::JsonValue* json = parameters.Find(parameter.name);
  if (json == nullptr) return recommended;
  if (!json->IsObject()) {
    if (auto choice = ValueFrom(*json, parameter)) return std::move(*choice);
    parameters.Report(parameter.name, Design::AllowedText(parameter));
    return recommended;
  }
  const JsonPath path = parameters.PathOf(parameter.name);
  ObjectReader reader(*json, path, parameters.Problems());
  const Util::JsonValue* value = reader.Find("value");
  auto choice = value == nullptr ? std::nullopt : ValueFrom(*value, parameter);
  if (!choice) {
    reader.Report("value", Design::AllowedText(parameter));
    choice = std::move(recommended);
  }
  if (auto source = reader.Text("source")) choice->source = std::move(*source);
  reader.ReportUnknown();
  return std::move(*choice);
}

}  // namespace

Util::JsonValue AnnexToJson(const Design::CConcCodeData& code, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "format", std::string_view(kAnnexFormat), allocator);
  Util::JsonValue part(kAnnexVersion);
  AddMember(json, "version", part, allocator);
  AddText(json, "code", std::string_view(code.name), allocator);
  AddText(json, "name", std::string_view(code.nationalAnnex->name), allocator);
  Util::JsonValue parameters(rapidjson::kObjectType);
  for (const AnnexParameter& parameter : code.annexParameters) {
    const AnnexChoice& choice = Design::ChoiceFor(*code.nationalAnnex, parameter.name);
    Util::JsonValue object(rapidjson::kObjectType);
    if (choice.IsRule()) {
      AddText(object, "value", std::string_view(choice.rule), allocator);
    } else {
      AddNumber(object, "value", choice.number, allocator);
    }
    if (!choice.source.empty()) {
      AddText(object, "source", std::string_view(choice.source), allocator);
    }
    AddMember(parameters, parameter.name, object, allocator);
  }
  AddMember(json, "parameters", parameters, allocator);
  return json;
}

std::optional<Design::NationalAnnex> AnnexFromJson(const Util::JsonValue& json,
                                                   const JsonPath& path,
                                                   const Design::CConcCodeData& code,
                                                   ProblemList& problems) {
  if (code.annexParameters.empty()) {
    problems.Add(path, &json, "no annex for this code");
    return std::nullopt;
  }
  ObjectReader reader(json, path, problems);
  if (!json.IsObject()) return std::nullopt;
  ReadHeading(reader, code.name);
  Design::NationalAnnex annex = Design::RecommendedAnnex(code.annexParameters);
  annex.name = ReadName(reader, code.name);
  if (const Util::JsonValue* object = reader.Object("parameters")) {
    const JsonPath parametersPath = reader.PathOf("parameters");
    ObjectReader parameters(*object, parametersPath, problems);
    for (std::size_t i = 0; i < code.annexParameters.size(); ++i) {
      AnnexChoice& choice = annex.choices[i];
      choice = ChoiceFrom(parameters, code.annexParameters[i], std::move(choice));
    }
    parameters.ReportUnknown();
  }
  reader.ReportUnknown();
  return annex;
}

}  // namespace Orlix::Data
