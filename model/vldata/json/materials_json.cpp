#include "model/vldata/json/materials_json.h"

#include <array>
#include <cmath>
#include <limits>
#include <memory>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/json/curves_json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data {
namespace {

using Design::CMat;
using Design::MaterialProperties;

constexpr std::array<std::pair<std::string_view, MatType>, 4> kTypeNames = {{
    {"concrete", MatType::concrete},
    {"reinforcement", MatType::reinforcement},
    {"steel", MatType::steel},
    {"FRP", MatType::FRP},
}};

// A strength or modulus: taken from the known grade when it is absent, required when there is none.
double Required(ObjectReader& reader, std::string_view name, const CMat* known, double fallback) {
  const auto number = reader.Number(name, NumberRange::positive);
  if (!number && known == nullptr && reader.Find(name) == nullptr) {
    reader.Report(name, "a positive number, since the code has no grade of this name");
  }
  return number.value_or(fallback);
}

// What a grade starts from whose name the code does not have: the code's safety factors and curves.
// A concrete is like the standard one nearest in strength, a bar or steel like the first of its
// table, a plain bar.
CMat OwnGrade(ObjectReader& reader, MatType type, const Design::CConcCodeData& code) {
  const std::shared_ptr<Materials> standard = StandardMaterials(code);
  const Util::JsonValue* given = reader.Find("f_k");
  if (standard->NumGrades(type) == 0 || given == nullptr || !given->IsNumber()) return CMat(type);
  if (type != MatType::concrete) return standard->Grade(type, 0);
  int nearest = 0;
  double smallest = std::numeric_limits<double>::infinity();
  for (int i = 0; i < standard->NumGrades(type); ++i) {
    const double difference =
        std::abs(standard->Grade(type, i).Properties().f_k - given->GetDouble());
    if (difference >= smallest) continue;
    smallest = difference;
    nearest = i;
  }
  return standard->Grade(type, nearest);
}

void ReadTable(const Util::JsonValue& array, const JsonPath& path, MatType type,
               const Design::CConcCodeData& code, Materials& materials, ProblemList& problems) {
  for (rapidjson::SizeType i = 0; i < array.Size(); ++i) {
    const JsonPath place = path.Element(i);
    ObjectReader reader(array[i], place, problems);
    const std::wstring name = to_wstring(reader.RequiredText("name", "the name of the grade"));
    if (name.empty()) continue;
    if (materials.Find(type, name) >= 0) {
      reader.Report("name", "a name that no other grade of the table has");
      continue;
    }
    materials.Add(MaterialFromJson(reader, type, StandardGrade(code, type, name), code));
  }
}

}  // namespace

std::span<const std::pair<std::string_view, MatType>> MaterialTypeNames() { return kTypeNames; }

Util::JsonValue MaterialToJson(const CMat& material, Util::JsonAllocator& allocator) {
  const MaterialProperties& p = material.Properties();
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "name", material.Name(), allocator);
  AddNumber(json, "f_k", p.f_k, allocator);
  AddNumber(json, "E", p.E, allocator);
  if (material.Type() == MatType::concrete) AddNumber(json, "f_ct", p.f_ct, allocator);
  AddNumber(json, "alpha", p.alpha, allocator);
  AddNumber(json, "gamma", p.gamma, allocator);
  Util::JsonValue curve = CurveToJson(material.Curve(LoadState::ULS), allocator);
  AddMember(json, "uls", curve, allocator);
  curve = CurveToJson(material.Curve(LoadState::SLS), allocator);
  AddMember(json, "sls", curve, allocator);
  return json;
}

Util::JsonValue MaterialsToJson(const Materials& materials, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  for (const auto& [name, type] : kTypeNames) {
    Util::JsonValue table(rapidjson::kArrayType);
    for (int i = 0; i < materials.NumGrades(type); ++i) {
      table.PushBack(MaterialToJson(materials.Grade(type, i), allocator), allocator);
    }
    AddMember(json, name, table, allocator);
  }
  return json;
}

CMat MaterialFromJson(ObjectReader& reader, MatType type, const CMat* known,
                      const Design::CConcCodeData& code) {
  CMat material = known != nullptr ? *known : OwnGrade(reader, type, code);
  material.SetName(reader.WideText("name").value_or(OrlixString<wchar_t>()));
  MaterialProperties p = material.Properties();
  p.f_k = Required(reader, "f_k", known, p.f_k);
  p.E = Required(reader, "E", known, p.E);
  if (type == MatType::concrete) {
    p.f_ct = reader.Number("f_ct", NumberRange::notNegative).value_or(p.f_ct);
  }
  p.alpha = reader.Number("alpha", NumberRange::positive).value_or(p.alpha);
  p.gamma = reader.Number("gamma", NumberRange::positive).value_or(p.gamma);
  material.SetProperties(p);
  for (const auto& [name, state] :
       {std::pair<std::string_view, LoadState>{"uls", LoadState::ULS},
        std::pair<std::string_view, LoadState>{"sls", LoadState::SLS}}) {
    if (const Util::JsonValue* curve = reader.Object(name)) {
      ReadCurve(*curve, reader.PathOf(name), state, material, reader.Problems());
    }
  }
  reader.ReportUnknown();
  return material;
}

Materials MaterialsFromJson(const Util::JsonValue* json, const JsonPath& path,
                            const Design::CConcCodeData& code, ProblemList& problems) {
  const Util::JsonValue none(rapidjson::kObjectType);
  ObjectReader reader(json != nullptr ? *json : none, path, problems);
  Materials materials;
  for (const auto& [name, type] : kTypeNames) {
    if (const Util::JsonValue* table = reader.Array(name)) {
      ReadTable(*table, reader.PathOf(name), type, code, materials, problems);
    } else {
      AddStandardGrades(code, type, materials);
    }
  }
  reader.ReportUnknown();
  return materials;
}

}  // namespace Orlix::Data
