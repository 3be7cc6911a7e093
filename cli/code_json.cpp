#include "cli/code_json.h"

#include <rapidjson/document.h>

#include <string_view>

#include "cli/curve_points.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/json/annex_json.h"
#include "model/vldata/json/json_values.h"
#include "model/vldata/json/materials_json.h"

namespace Orlix::Cli {

namespace {

using Data::AddFlag;
using Data::AddMember;
using Data::AddNumber;
using Data::AddText;
using Data::Design::CConcCode;
using Data::Design::CMat;
using Data::Design::CodeChoice;
using Data::Design::CodeConstant;
using Data::Design::ConstantSource;

void AddHeading(const CConcCode& code, Util::JsonValue& object, Util::JsonAllocator& allocator) {
  AddText(object, "concrete", std::string_view(code.Data().name), allocator);
  if (const auto& annex = code.Data().nationalAnnex) {
    AddText(object, "annex", std::string_view(annex->name), allocator);
  }
  AddFlag(object, "strengthReduction", code.IsStrengthReduction(), allocator);
}

std::string_view NameOf(ConstantSource source) {
  switch (source) {
    case ConstantSource::compared:
      return "compared";
    case ConstantSource::secondary:
      return "secondary";
    case ConstantSource::doubtful:
      return "doubtful";
    case ConstantSource::user:
      break;
  }
  return "user";
}

Util::JsonValue ConstantsToJson(const CConcCode& code, Util::JsonAllocator& allocator) {
  Util::JsonValue list(rapidjson::kArrayType);
  for (const CodeConstant& constant : code.Data().constants) {
    Util::JsonValue object(rapidjson::kObjectType);
    AddText(object, "symbol", std::string_view(constant.symbol), allocator);
    AddNumber(object, "value", constant.value, allocator);
    AddText(object, "unit", std::string_view(constant.unit), allocator);
    AddText(object, "clause", std::string_view(constant.clause), allocator);
    AddText(object, "source", NameOf(constant.source), allocator);
    list.PushBack(object, allocator);
  }
  return list;
}

Util::JsonValue PointsToJson(const CMat& material, LoadState state,
                             Util::JsonAllocator& allocator) {
  Util::JsonValue points(rapidjson::kArrayType);
  for (const Vec2<double>& point : CurvePoints(material, state)) {
    Data::PushPair(points, point, allocator);
  }
  return points;
}

}  // namespace

void CodesToJson(Util::JsonDocument& json) {
  json.SetObject();
  auto& allocator = json.GetAllocator();
  Util::JsonValue list(rapidjson::kArrayType);
  for (const CodeChoice& choice : Data::Design::KnownCodes()) {
    const CConcCode code(choice.code, choice.country);
    const auto& constants = code.Data().constants;
    Util::JsonValue object(rapidjson::kObjectType);
    AddHeading(code, object, allocator);
    AddNumber(object, "constants", static_cast<double>(constants.size()), allocator);
    AddNumber(object, "compared", CountConstants(code.Data(), ConstantSource::compared), allocator);
    AddNumber(object, "doubtful", CountConstants(code.Data(), ConstantSource::doubtful), allocator);
    list.PushBack(object, allocator);
  }
  AddMember(json, "codes", list, allocator);
}

void CodeToJson(const CConcCode& code, const std::optional<std::string>& grade,
                Util::JsonDocument& json) {
  json.SetObject();
  auto& allocator = json.GetAllocator();
  AddHeading(code, json, allocator);
  Util::JsonValue part;
  if (code.Data().nationalAnnex) {
    part = Data::AnnexToJson(code.Data(), allocator);
    AddMember(json, "nationalAnnex", part, allocator);
  }
  part = ConstantsToJson(code, allocator);
  AddMember(json, "constants", part, allocator);
  const auto materials = Data::StandardMaterials(code.Data());
  Util::JsonValue tables(rapidjson::kObjectType);
  Util::JsonValue curves(rapidjson::kArrayType);
  for (const auto& [name, type] : Data::MaterialTypeNames()) {
    Util::JsonValue table(rapidjson::kArrayType);
    for (int i = 0; i < materials->NumGrades(type); ++i) {
      const CMat& material = materials->Grade(type, i);
      Util::JsonValue object = Data::MaterialToJson(material, allocator);
      AddNumber(object, "f_d", material.DesignStrength(), allocator);
      table.PushBack(object, allocator);
      if (!grade || to_string(material.Name()) != *grade) continue;
      Util::JsonValue curve(rapidjson::kObjectType);
      AddText(curve, "type", name, allocator);
      AddText(curve, "name", material.Name(), allocator);
      part = PointsToJson(material, LoadState::ULS, allocator);
      AddMember(curve, "uls", part, allocator);
      part = PointsToJson(material, LoadState::SLS, allocator);
      AddMember(curve, "sls", part, allocator);
      curves.PushBack(curve, allocator);
    }
    AddMember(tables, name, table, allocator);
  }
  AddMember(json, "materials", tables, allocator);
  if (grade) AddMember(json, "curves", curves, allocator);
}

}  // namespace Orlix::Cli
