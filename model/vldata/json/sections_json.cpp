#include "model/vldata/json/sections_json.h"

#include <array>
#include <cmath>
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
  if (bar.GetPreload() != Preload{}) AddPreload(json, bar.GetPreload(), allocator);
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

Util::JsonValue DescriptionToJson(const BarDescription& description, const Materials& materials,
                                  Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "text", description.text, allocator);
  AddGrade(json, MatType::reinforcement, description.grade, materials, allocator);
  if (description.cover) AddNumber(json, "cover", *description.cover, allocator);
  if (description.preload) AddPreload(json, *description.preload, allocator);
  return json;
}

BarDescription DescriptionFromJson(const Util::JsonValue& json, const JsonPath& path,
                                   const Materials& materials, ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  BarDescription description;
  description.text = cstr(reader.RequiredText("text", "a bar description"));
  description.grade = GradeFrom(reader, MatType::reinforcement, materials);
  description.cover = reader.Number("cover", NumberRange::notNegative);
  if (const Util::JsonValue* value = reader.Object("preload")) {
    description.preload = PreloadFromJson(*value, reader.PathOf("preload"), problems);
  }
  reader.ReportUnknown();
  return description;
}

Util::JsonValue LinksMember(const Links& links, const Materials& materials,
                            Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "size", links.size, allocator);
  if (links.spacing != 0.0) AddNumber(json, "spacing", links.spacing, allocator);
  AddNumber(json, "legs", links.legs, allocator);
  AddFlag(json, "perimeter", links.perimeter, allocator);
  AddGrade(json, MatType::reinforcement, links.grade, materials, allocator);
  return json;
}

Links LinksFromJson(const Util::JsonValue& json, const JsonPath& path, const Materials& materials,
                    ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  Links links;
  links.size = reader.Number("size", NumberRange::positive).value_or(links.size);
  if (json.IsObject() && reader.Find("size") == nullptr) reader.Report("size", "a diameter");
  links.spacing = reader.Number("spacing", NumberRange::positive).value_or(links.spacing);
  if (const auto legs = reader.Number("legs", NumberRange::positive)) {
    constexpr double kMostLegs = 1000.0;
    const bool isCount = *legs <= kMostLegs && *legs == std::floor(*legs);
    if (isCount) links.legs = static_cast<int>(*legs);
    if (!isCount) reader.Report("legs", "a whole number of legs up to 1000");
  }
  links.perimeter = reader.Flag("perimeter").value_or(links.perimeter);
  links.grade = GradeFrom(reader, MatType::reinforcement, materials);
  reader.ReportUnknown();
  return links;
}

// Bars that descriptions made are made again when the document is read.
void AddReinforcement(Util::JsonValue& json, const Reinforcement& reinforcement,
                      const Materials& materials, Util::JsonAllocator& allocator) {
  Util::JsonValue bars(rapidjson::kArrayType);
  for (const CBar& bar : reinforcement.bars) {
    if (bar.Description() < 0) bars.PushBack(BarToJson(bar, materials, allocator), allocator);
  }
  AddMember(json, "bars", bars, allocator);
  if (!reinforcement.descriptions.empty()) {
    Util::JsonValue descriptions(rapidjson::kArrayType);
    for (const BarDescription& description : reinforcement.descriptions) {
      descriptions.PushBack(DescriptionToJson(description, materials, allocator), allocator);
    }
    AddMember(json, "barDescriptions", descriptions, allocator);
  }
  if (reinforcement.links.size > 0.0) {
    Util::JsonValue links = LinksMember(reinforcement.links, materials, allocator);
    AddMember(json, "links", links, allocator);
  }
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
  if (component.ConcreteExist()) {
    AddReinforcement(json, component.Concrete().GetReinforcement(), materials, allocator);
  }
  return json;
}

// Reads an array of bars or descriptions.
template <class T, class Read>
void ReadArray(ObjectReader& reader, std::string_view name, std::vector<T>& list, Read read) {
  const Util::JsonValue* array = reader.Array(name);
  if (array == nullptr) return;
  const JsonPath path = reader.PathOf(name);
  for (rapidjson::SizeType i = 0; i < array->Size(); ++i) {
    list.push_back(read((*array)[i], path.Element(i)));
  }
}

void ReadReinforcement(ObjectReader& reader, const Materials& materials, CSecComp& component) {
  if (!component.ConcreteExist()) {
    for (const char* name : {"bars", "barDescriptions", "links"}) {
      if (reader.Find(name) != nullptr) {
        reader.Report(name, std::string(name) + " in a component of concrete alone");
      }
    }
    return;
  }
  ProblemList& problems = reader.Problems();
  Reinforcement reinforcement;
  ReadArray(reader, "bars", reinforcement.bars,
            [&](const Util::JsonValue& json, const JsonPath& path) {
              return BarFromJson(json, path, materials, problems);
            });
  ReadArray(reader, "barDescriptions", reinforcement.descriptions,
            [&](const Util::JsonValue& json, const JsonPath& path) {
              return DescriptionFromJson(json, path, materials, problems);
            });
  if (const Util::JsonValue* links = reader.Object("links")) {
    reinforcement.links = LinksFromJson(*links, reader.PathOf("links"), materials, problems);
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
  ReadReinforcement(reader, materials, component);
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
