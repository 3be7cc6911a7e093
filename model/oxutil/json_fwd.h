#pragma once

#include <rapidjson/fwd.h>

namespace Orlix::Util {

using JsonValue = rapidjson::Value;
using JsonDocument = rapidjson::Document;
using JsonAllocator = rapidjson::MemoryPoolAllocator<rapidjson::CrtAllocator>;

}  // namespace Orlix::Util
