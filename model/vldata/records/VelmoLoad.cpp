#include "model/vldata/records/VelmoLoad.h"

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {

Util::JsonValue VelmoLoad::toJson(Util::JsonAllocator& allocator) const {
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "N", vector_.x, allocator);
  AddNumber(json, "Myy", vector_.y, allocator);
  AddNumber(json, "Mzz", vector_.z, allocator);
  return json;
}

}  // namespace Orlix::Data::Velmo9
