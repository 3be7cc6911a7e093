#include "model/vldata/json/geometry_json.h"

#include "model/oxutil/json.h"
#include "model/vldata/json/ObjectReader.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data {
namespace {

using Ring = std::vector<Vec2<double>>;

Util::JsonValue RingToJson(const Ring& ring, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kArrayType);
  for (const Vec2<double>& vertex : ring) PushPair(json, vertex, allocator);
  return json;
}

Util::JsonValue PolygonToJson(const SectionPolygon& polygon, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  Util::JsonValue outline = RingToJson(polygon.outline, allocator);
  AddMember(json, "outline", outline, allocator);
  if (polygon.holes.empty()) return json;
  Util::JsonValue holes(rapidjson::kArrayType);
  for (const Ring& hole : polygon.holes) holes.PushBack(RingToJson(hole, allocator), allocator);
  AddMember(json, "holes", holes, allocator);
  return json;
}

Ring RingFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems) {
  Ring ring;
  if (!json.IsArray()) {
    problems.Add(path, &json, "an array of vertices");
    return ring;
  }
  for (rapidjson::SizeType i = 0; i < json.Size(); ++i) {
    if (const auto vertex = PairFrom(json[i], path.Element(i), problems)) ring.push_back(*vertex);
  }
  return ring;
}

SectionPolygon PolygonFromJson(const Util::JsonValue& json, const JsonPath& path,
                               ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  SectionPolygon polygon;
  if (const Util::JsonValue* outline = reader.Find("outline")) {
    polygon.outline = RingFromJson(*outline, reader.PathOf("outline"), problems);
  } else if (json.IsObject()) {
    reader.Report("outline", "an array of vertices");
  }
  if (const Util::JsonValue* holes = reader.Array("holes")) {
    const JsonPath holesPath = reader.PathOf("holes");
    for (rapidjson::SizeType i = 0; i < holes->Size(); ++i) {
      polygon.holes.push_back(RingFromJson((*holes)[i], holesPath.Element(i), problems));
    }
  }
  reader.ReportUnknown();
  return polygon;
}

CSecGeom FreeOutlines(ObjectReader& reader) {
  std::vector<SectionPolygon> polygons;
  if (const Util::JsonValue* array = reader.Array("polygons")) {
    const JsonPath path = reader.PathOf("polygons");
    for (rapidjson::SizeType i = 0; i < array->Size(); ++i) {
      polygons.push_back(PolygonFromJson((*array)[i], path.Element(i), reader.Problems()));
    }
  } else if (reader.Find("polygons") == nullptr) {
    reader.Report("polygons", "an array of polygons");
  }
  return CSecGeom(std::move(polygons));
}

CSecGeom Parametric(ObjectReader& reader, ShapeKind kind) {
  ShapeDimensions dimensions;
  for (const ShapeParameter& p : ShapeParameters(kind)) {
    const NumberRange range = p.required ? NumberRange::positive : NumberRange::notNegative;
    const auto number = reader.Number(p.name, range);
    if (!number && p.required && reader.Find(p.name) == nullptr) {
      reader.Report(p.name, "a positive number");
    }
    dimensions.*p.member = number.value_or(0.0);
  }
  const Vec2<double> centre = reader.Pair("centre").value_or(Vec2<double>{});
  const double rotation = reader.Number("rotation").value_or(0.0);
  return {kind, dimensions, centre, rotation};
}

void AddDescription(Util::JsonValue& json, const CSecGeom& geometry,
                    Util::JsonAllocator& allocator) {
  if (geometry.Description().empty()) return;
  AddText(json, "description", geometry.Description(), allocator);
}

}  // namespace

Util::JsonValue GeometryToJson(const CSecGeom& geometry, Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "shape", std::string_view(ShapeName(geometry.Kind())), allocator);
  if (geometry.Kind() == ShapeKind::polygon) {
    Util::JsonValue polygons(rapidjson::kArrayType);
    for (const SectionPolygon& polygon : geometry.Polygons(0.0)) {
      polygons.PushBack(PolygonToJson(polygon, allocator), allocator);
    }
    AddMember(json, "polygons", polygons, allocator);
    AddDescription(json, geometry, allocator);
    return json;
  }
  for (const ShapeParameter& p : ShapeParameters(geometry.Kind())) {
    const double number = geometry.Dimensions().*p.member;
    if (p.required || number != 0.0) AddNumber(json, p.name, number, allocator);
  }
  AddPair(json, "centre", geometry.Centre(), allocator);
  AddNumber(json, "rotation", geometry.Rotation(), allocator);
  AddDescription(json, geometry, allocator);
  return json;
}

CSecGeom GeometryFromJson(const Util::JsonValue& json, const JsonPath& path,
                          ProblemList& problems) {
  ObjectReader reader(json, path, problems);
  const ShapeKind kind = ShapeWithName(reader.Text("shape").value_or(""));
  if (kind == ShapeKind::none) {
    const Util::JsonValue* shape = reader.Find("shape");
    // A shape that is no text has been reported.
    if (json.IsObject() && (shape == nullptr || shape->IsString())) {
      reader.Report("shape", "the name of a shape, such as \"rectangle\" or \"polygon\"");
    }
    return {};
  }
  CSecGeom geometry = kind == ShapeKind::polygon ? FreeOutlines(reader) : Parametric(reader, kind);
  if (const auto description = reader.WideText("description")) {
    geometry.SetDescription(*description);
  }
  reader.ReportUnknown();
  return geometry;
}

}  // namespace Orlix::Data
