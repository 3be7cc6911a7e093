#include "model/vldata/json/sections_json.h"

#include <array>
#include <numbers>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/geometry_json.h"
#include "model/vldata/json/json_values.h"
#include "model/vldata/json/tasks_json.h"

namespace Orlix::Data {
namespace {

constexpr std::array<std::pair<std::string_view, MatType>, 3> kComponentMaterials = {{
    {"concrete", MatType::concrete},
    {"steel", MatType::steel},
    {"FRP", MatType::FRP},
}};

constexpr std::array<std::pair<std::string_view, PreloadKind>, 3> kPreloadNames = {{
    {"strain", PreloadKind::strain},
    {"stress", PreloadKind::stress},
    {"force", PreloadKind::force},
}};

constexpr std::array<std::pair<std::string_view, Confinement>, 2> kConfinementNames = {{
    {"ties", Confinement::ties},
    {"spiral", Confinement::spiral},
}};

void AddGrade(Util::JsonValue& json, MatType type, int grade, const Materials& materials,
              Util::JsonAllocator& allocator) {
  if (materials.IsValidGrade(type, grade)) {
    AddText(json, "grade", materials.Grade(type, grade).Name(), allocator);
  }
}

int GradeFrom(ObjectReader& reader, MatType type, const Materials& materials) {
  const auto name = reader.WideText("grade");
  if (!name) return -1;
  if (type == MatType::none) {
    // A material that is there but unknown has been reported.
    if (reader.Find("material") == nullptr) reader.Report("material", "the material of the grade");
    return -1;
  }
  const int grade = materials.Find(type, name->View());
  if (grade < 0) reader.Report("grade", "the name of a grade in the document's table");
  return grade;
}

void AddPreload(Util::JsonValue& json, const Preload& preload, Util::JsonAllocator& allocator) {
  if (preload == Preload{}) return;
  Util::JsonValue value(rapidjson::kObjectType);
  for (const auto& [name, kind] : kPreloadNames) {
    if (kind == preload.kind) AddText(value, "kind", name, allocator);
  }
  AddNumber(value, "value", preload.value, allocator);
  AddMember(json, "preload", value, allocator);
}

Preload PreloadFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  Preload preload;
  preload.kind = reader.Choice<PreloadKind>("kind", kPreloadNames).value_or(preload.kind);
  preload.value = reader.Number("value").value_or(preload.value);
  reader.ReportUnknown();
  return preload;
}

Util::JsonValue BarToJson(const CBar& bar, const Materials& materials,
                          Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "y", bar.Position().x, allocator);
  AddNumber(json, "z", bar.Position().y, allocator);
  if (bar.Diameter() != 0.0) AddNumber(json, "diameter", bar.Diameter(), allocator);
  AddNumber(json, "area", bar.Area(), allocator);
  AddGrade(json, MatType::reinforcement, bar.Grade(), materials, allocator);
  AddPreload(json, bar.GetPreload(), allocator);
  return json;
}

CBar BarFromJson(const Util::JsonValue& json, const JsonPath& path, const Materials& materials,
                 ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  Vec2<double> position;
  position.x = reader.Number("y").value_or(0.0);
  position.y = reader.Number("z").value_or(0.0);
  const double diameter = reader.Number("diameter", NumberRange::positive).value_or(0.0);
  const double ofDiameter = std::numbers::pi * diameter * diameter / 4.0;
  const double area = reader.Number("area", NumberRange::positive).value_or(ofDiameter);
  if (json.IsObject() && reader.Find("diameter") == nullptr && reader.Find("area") == nullptr) {
    reader.Report("area", "an area or a diameter");
  }
  const int grade = GradeFrom(reader, MatType::reinforcement, materials);
  Preload preload;
  if (const Util::JsonValue* value = reader.Object("preload")) {
    preload = PreloadFromJson(*value, reader.PathOf("preload"), problems);
  }
  reader.ReportUnknown();
  return {position, diameter, area, grade, preload};
}

Util::JsonValue ComponentToJson(const CSecComp& component, const Materials& materials,
                                Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "name", component.Name(), allocator);
  for (const auto& [name, type] : kComponentMaterials) {
    if (type == component.MaterialType()) AddText(json, "material", name, allocator);
  }
  AddGrade(json, component.MaterialType(), component.MaterialGrade(), materials, allocator);
  if (component.Geometry().Kind() != ShapeKind::none) {
    Util::JsonValue geometry = GeometryToJson(component.Geometry(), allocator);
    AddMember(json, "geometry", geometry, allocator);
  }
  if (!component.ConcreteExist()) return json;
  Util::JsonValue bars(rapidjson::kArrayType);
  for (const CBar& bar : component.Concrete().Bars()) {
    bars.PushBack(BarToJson(bar, materials, allocator), allocator);
  }
  AddMember(json, "bars", bars, allocator);
  return json;
}

void ReadBars(ObjectReader& reader, const Materials& materials, CSecComp& component) {
  const Util::JsonValue* array = reader.Array("bars");
  if (array == nullptr) return;
  if (!component.ConcreteExist()) {
    reader.Report("bars", "bars in a component of concrete alone");
    return;
  }
  const JsonPath path = reader.PathOf("bars");
  Reinforcement reinforcement;
  for (rapidjson::SizeType i = 0; i < array->Size(); ++i) {
    reinforcement.bars.push_back(
        BarFromJson((*array)[i], path.Element(i), materials, reader.Problems()));
  }
  component.Concrete().SetReinforcement(std::move(reinforcement));
}

CSecComp ComponentFromJson(const Util::JsonValue& json, const JsonPath& path,
                           const Materials& materials, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  const auto name = reader.WideText("name").value_or(OrlixString<wchar_t>());
  const MatType type =
      reader.Choice<MatType>("material", kComponentMaterials).value_or(MatType::none);
  const int grade = GradeFrom(reader, type, materials);
  CSecGeom geometry;
  if (const Util::JsonValue* value = reader.Object("geometry")) {
    geometry = GeometryFromJson(*value, reader.PathOf("geometry"), problems);
  }
  CSecComp component(type, grade, std::move(geometry));
  component.SetName(name);
  ReadBars(reader, materials, component);
  reader.ReportUnknown();
  return component;
}

}  // namespace

Util::JsonValue SectionToJson(const Velmo9::VelmoSection& section, const Materials& materials,
                              Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "name", section.Name(), allocator);
  if (section.Confinement() != Confinement::ties) {
    for (const auto& [name, confinement] : kConfinementNames) {
      if (confinement == section.Confinement()) AddText(json, "confinement", name, allocator);
    }
  }
  Util::JsonValue components(rapidjson::kArrayType);
  for (const CSecComp& component : section.Components()) {
    components.PushBack(ComponentToJson(component, materials, allocator), allocator);
  }
  AddMember(json, "components", components, allocator);
  Util::JsonValue tasks(rapidjson::kArrayType);
  for (const Velmo9::AnalysisTask& task : section.Tasks()) {
    tasks.PushBack(task.toJson(allocator, true, true, 0), allocator);
  }
  AddMember(json, "tasks", tasks, allocator);
  return json;
}

Velmo9::VelmoSection SectionFromJson(const Util::JsonValue& json, const JsonPath& path,
                                     const Materials& materials, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  Velmo9::VelmoSection section;
  section.SetName(reader.WideText("name").value_or(OrlixString<wchar_t>()));
  section.SetConfinement(
      reader.Choice<Confinement>("confinement", kConfinementNames).value_or(section.Confinement()));
  if (const Util::JsonValue* components = reader.Array("components")) {
    const JsonPath place = reader.PathOf("components");
    for (rapidjson::SizeType i = 0; i < components->Size(); ++i) {
      section.Components().push_back(
          ComponentFromJson((*components)[i], place.Element(i), materials, problems));
    }
  }
  if (const Util::JsonValue* tasks = reader.Array("tasks")) {
    const JsonPath place = reader.PathOf("tasks");
    const int numComponents = static_cast<int>(section.Components().size());
    for (rapidjson::SizeType i = 0; i < tasks->Size(); ++i) {
      section.AddTask(TaskFromJson((*tasks)[i], place.Element(i), numComponents, problems));
    }
  }
  reader.ReportUnknown();
  return section;
}

}  // namespace Orlix::Data
