#include "model/vldata/records/Deformation.h"

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {

Util::JsonValue Deformation::toJson(Util::JsonAllocator& allocator, bool asArray) const {
  Util::JsonValue json(asArray ? rapidjson::kArrayType : rapidjson::kObjectType);
  if (asArray) {
    PushNumber(json, vector_.x, allocator);
    PushNumber(json, vector_.y, allocator);
    PushNumber(json, vector_.z, allocator);
  } else {
    AddNumber(json, "eps", vector_.x, allocator);
    AddNumber(json, "kyy", vector_.y, allocator);
    AddNumber(json, "kzz", vector_.z, allocator);
  }
  return json;
}

}  // namespace Orlix::Data::Velmo9
