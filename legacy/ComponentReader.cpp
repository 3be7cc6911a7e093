#include "legacy/ComponentReader.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "legacy/bar_groups.h"
#include "legacy/limits.h"
#include "model/oxutil/text.h"

namespace Orlix::Legacy {
namespace {

using Data::CSecComp;
using Data::CSecGeom;
using Data::ShapeKind;

constexpr std::array<std::pair<std::string_view, MatType>, 3> kMaterials = {{
    {"CONCRETE", MatType::concrete},
    {"STEEL", MatType::steel},
    {"FRP", MatType::FRP},
}};

constexpr std::array<std::pair<std::string_view, ShapeKind>, 9> kShapes = {{
    {"RECTANGLE", ShapeKind::rectangle},
    {"CIRCLE", ShapeKind::circle},
    {"RING", ShapeKind::ring},
    {"T", ShapeKind::tee},
    {"L", ShapeKind::ell},
    {"I", ShapeKind::iBeam},
    {"BOX", ShapeKind::box},
    {"TRAPEZOID", ShapeKind::trapezoid},
    {"ELLIPSE", ShapeKind::ellipse},
}};

}  // namespace

void ComponentReader::Begin() {
  isOpen_ = true;
  component_ = {};
  polygons_.clear();
  isHole_ = false;
  reinforcement_ = {};
  component_.SetName(cstr(record_.Text("name of the component")));
  if (!record_.HasField()) return;
  const auto type = record_.Word<MatType>("material", kMaterials);
  if (!type) return;
  component_.SetMaterial(*type, -1);
  if (const auto grade = record_.OptionalText()) SetGrade(*type, *grade);
}

// A grade of the file's own stands on the component; it moves into the table with the others.
void ComponentReader::SetGrade(MatType type, const std::string& name) {
  const std::wstring wide = to_wstring(name);
  const auto own = context_.grades.find({type, wide});
  if (own != context_.grades.end()) {
    own->second.isUsed = true;
    carriedPoints_ += own->second.numPoints;
    if (carriedPoints_ > kMaxCarriedPoints) {
      record_.Problem("is one component too many with a grade of many points");
    } else {
      component_.SetUserDefinedGrade(own->second.material);
    }
    return;
  }
  const int grade = context_.document.getMaterials()->Find(type, wide);
  component_.SetMaterial(type, grade);
  if (grade < 0 && !context_.MayLack(type)) {
    record_.Problem("grade \"" + name + "\": neither the file nor the code has it");
  }
}

bool ComponentReader::Read() {
  const std::string_view keyword = record_.Keyword();
  if (keyword == "SHAPE") {
    ReadShape();
  } else if (keyword == "OUTLINE" || keyword == "HOLE") {
    ReadRing(keyword == "HOLE");
  } else if (keyword == "VERTEX") {
    ReadVertex();
  } else if (keyword == "LINKS") {
    ReadLinks();
  } else if (!IsBarGroup(keyword)) {
    return false;
  } else if (!component_.ConcreteExist()) {
    record_.Problem("bars are for components of concrete");
  } else {
    BarGroups(record_, context_).Read(reinforcement_);
  }
  return true;
}

void ComponentReader::ReadShape() {
  const auto kind = record_.Word<ShapeKind>("shape", kShapes);
  if (!kind) return;
  Data::ShapeDimensions dimensions;
  for (const Data::ShapeParameter& parameter : Data::ShapeParameters(*kind)) {
    const Range range = parameter.required ? Range::positive : Range::notNegative;
    const auto number = record_.NumberAttribute(parameter.name, range);
    if (!number && parameter.required && record_.IsSound()) {
      record_.Problem("lacks " + std::string(parameter.name));
    }
    dimensions.*parameter.member = number.value_or(0.0);
  }
  const Vec2<double> centre{record_.NumberAttribute("y").value_or(0.0),
                            record_.NumberAttribute("z").value_or(0.0)};
  const double rotation = record_.NumberAttribute("rotation").value_or(0.0);
  if (component_.Geometry().Kind() != ShapeKind::none) record_.Problem("is a second shape");
  component_.SetGeometry(CSecGeom(*kind, dimensions, centre, rotation));
}

void ComponentReader::ReadRing(bool isHole) {
  if (isHole && polygons_.empty()) {
    record_.Problem("stands before the first OUTLINE");
  } else if (++numRings_ > kMaxRings) {
    record_.Problem("is one outline or hole too many: at most " + std::to_string(kMaxRings));
  } else {
    if (isHole) polygons_.back().holes.emplace_back();
    if (!isHole) polygons_.emplace_back();
    isHole_ = isHole;
  }
}

void ComponentReader::ReadVertex() {
  const Vec2<double> vertex{record_.Number("y"), record_.Number("z")};
  if (polygons_.empty()) {
    record_.Problem("stands before the first OUTLINE");
  } else if (isHole_) {
    polygons_.back().holes.back().push_back(vertex);
  } else {
    polygons_.back().outline.push_back(vertex);
  }
}

void ComponentReader::ReadLinks() {
  constexpr std::array<std::pair<std::string_view, bool>, 2> kPerimeter = {{
      {"YES", true},
      {"NO", false},
  }};
  Data::Links links;
  links.size = record_.NumberAttribute("diameter", Range::positive).value_or(0.0);
  links.spacing = record_.NumberAttribute("spacing", Range::positive).value_or(0.0);
  links.perimeter = record_.WordAttribute<bool>("perimeter", kPerimeter).value_or(links.perimeter);
  if (const auto legs = record_.NumberAttribute("legs", Range::positive)) {
    constexpr int kMostLegs = 100;
    links.legs = static_cast<int>(std::min(*legs, double{kMostLegs}));
    if (links.legs != *legs) record_.Problem("legs: expected a whole number, 1 to 100");
  }
  links.grade = BarGroups(record_, context_).Grade();
  if (!component_.ConcreteExist()) record_.Problem("links are for components of concrete");
  if (!record_.HasAttribute("diameter") && record_.IsSound()) record_.Problem("lacks diameter");
  if (reinforcement_.links.size != 0.0) record_.Problem("gives links a second time");
  reinforcement_.links = links;
}

CSecComp ComponentReader::Finish() {
  isOpen_ = false;
  if (!polygons_.empty()) {
    if (component_.Geometry().Kind() != ShapeKind::none) {
      record_.Problem("comes after a component with both a shape and an outline");
    }
    component_.SetGeometry(CSecGeom(std::move(polygons_)));
    polygons_.clear();
  }
  if (component_.ConcreteExist()) {
    component_.Concrete().SetReinforcement(std::move(reinforcement_));
  }
  return std::move(component_);
}

}  // namespace Orlix::Legacy
