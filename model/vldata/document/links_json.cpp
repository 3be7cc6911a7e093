#include <numbers>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/VelmoSection.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {
namespace {

// A position of links; lengths in the unit of section dimensions, the steel in its square over the
// unit of lengths along the member.
Util::JsonValue LinkJson(const Links& links, const CUnit& units, Util::JsonAllocator& allocator) {
  const double across = units.Conversion(Dimension::sectionDimensions);
  const double along = units.Conversion(Dimension::length);
  const double leg = std::numbers::pi * links.size * links.size / 4.0;
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "size", links.size * across, allocator);
  AddNumber(json, "legs", links.legs, allocator);
  AddFlag(json, "perimeter", links.perimeter, allocator);
  AddNumber(json, "area", links.legs * leg * across * across, allocator);
  if (links.spacing > 0.0) {
    AddNumber(json, "spacing", links.spacing * across, allocator);
    AddNumber(json, "areaPerLength", links.legs * leg / links.spacing * across * across / along,
              allocator);
  }
  return json;
}

}  // namespace

Util::JsonValue VelmoSection::LinksToJson(Util::JsonAllocator& allocator, const CUnit& units,
                                          const Util::CRebarHelper& grades) const {
  Util::JsonValue list(rapidjson::kArrayType);
  int number = 0;
  for (const CSecComp& component : Components()) {
    ++number;
    if (!component.ConcreteExist()) continue;
    const Links& links = component.Concrete().GetReinforcement().links;
    if (!(links.size > 0.0)) continue;
    Util::JsonValue json(rapidjson::kObjectType);
    AddNumber(json, "component", number, allocator);
    AddText(json, "name", component.Name(), allocator);
    if (grades.IsValidGrade(links.grade)) {
      AddText(json, "grade", std::string_view(to_string(grades.Name(links.grade))), allocator);
    }
    Util::JsonValue set = LinkJson(links, units, allocator);
    AddMember(json, "links", set, allocator);
    list.PushBack(json, allocator);
  }
  Util::JsonValue json(rapidjson::kObjectType);
  AddText(json, "sectionDims",
          std::string_view(to_string(units.UnitString(Dimension::sectionDimensions))), allocator);
  AddText(json, "length", std::string_view(to_string(units.UnitString(Dimension::length))),
          allocator);
  Util::JsonValue answer(rapidjson::kObjectType);
  AddMember(answer, "units", json, allocator);
  AddMember(answer, "components", list, allocator);
  return answer;
}

}  // namespace Orlix::Data::Velmo9
