#include "model/vldata/json/json_values.h"

#include <cmath>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Data {
namespace {

Util::JsonValue NumberValue(double number) {
  if (std::isfinite(number)) return Util::JsonValue(number);
  return Util::JsonValue(rapidjson::StringRef("-"));
}

}  // namespace

void AddMember(Util::JsonValue& object, std::string_view name, Util::JsonValue& value,
               Util::JsonAllocator& allocator) {
  Util::JsonValue key(
      rapidjson::StringRef(name.data(), static_cast<rapidjson::SizeType>(name.size())));
  object.AddMember(key, value, allocator);
}

void AddNumber(Util::JsonValue& object, std::string_view name, double number,
               Util::JsonAllocator& allocator) {
  Util::JsonValue value = NumberValue(number);
  AddMember(object, name, value, allocator);
}

void AddFlag(Util::JsonValue& object, std::string_view name, bool flag,
             Util::JsonAllocator& allocator) {
  Util::JsonValue value(flag);
  AddMember(object, name, value, allocator);
}

void AddText(Util::JsonValue& object, std::string_view name, std::string_view text,
             Util::JsonAllocator& allocator) {
  Util::JsonValue value(text.data(), static_cast<rapidjson::SizeType>(text.size()), allocator);
  AddMember(object, name, value, allocator);
}

void AddText(Util::JsonValue& object, std::string_view name, const OrlixString<wchar_t>& text,
             Util::JsonAllocator& allocator) {
  AddText(object, name, to_string(text), allocator);
}

void AddPair(Util::JsonValue& object, std::string_view name, Vec2<double> pair,
             Util::JsonAllocator& allocator) {
  Util::JsonValue value(rapidjson::kArrayType);
  PushNumber(value, pair.x, allocator);
  PushNumber(value, pair.y, allocator);
  AddMember(object, name, value, allocator);
}

void PushPair(Util::JsonValue& array, Vec2<double> pair, Util::JsonAllocator& allocator) {
  Util::JsonValue value(rapidjson::kArrayType);
  PushNumber(value, pair.x, allocator);
  PushNumber(value, pair.y, allocator);
  array.PushBack(value, allocator);
}

void PushNumber(Util::JsonValue& array, double number, Util::JsonAllocator& allocator) {
  Util::JsonValue value = NumberValue(number);
  array.PushBack(value, allocator);
}

}  // namespace Orlix::Data
