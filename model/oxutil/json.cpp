#include "model/oxutil/json.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "model/oxutil/text.h"

namespace Orlix::Util {
namespace {

bool NestedWithin(const JsonValue& value, int levels) {
  if (!value.IsArray() && !value.IsObject()) return true;
  if (levels == 0) return false;
  if (value.IsArray()) {
    for (const JsonValue& element : value.GetArray()) {
      if (!NestedWithin(element, levels - 1)) return false;
    }
    return true;
  }
  for (const auto& member : value.GetObject()) {
    if (!NestedWithin(member.value, levels - 1)) return false;
  }
  return true;
}

void RequireDepth(const JsonValue& value) {
  if (!NestedWithin(value, kMaxJsonDepth)) throw std::length_error("JSON value nested too deep");
}

// The stock writer stops in mid-text at a non-finite number, has shortest digits only most of the
// time, and passes on bytes that are no UTF-8.
class Writer : public rapidjson::PrettyWriter<rapidjson::StringBuffer> {
 public:
  explicit Writer(rapidjson::StringBuffer& buffer) : PrettyWriter(buffer) { SetIndent(' ', 4); }

  bool Double(double value) {
    if (!std::isfinite(value)) return Null();
    std::array<char, 32> digits;  // at most 24 characters and ".0"
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    end = std::remove(digits.data(), end, '+');  // 1e308, as JSON is mostly written
    if (std::string_view(digits.data(), end).find_first_of(".e") == std::string_view::npos) {
      *end++ = '.';  // so that it stays a double when it is read back
      *end++ = '0';
    }
    return RawValue(digits.data(), static_cast<std::size_t>(end - digits.data()),
                    rapidjson::kNumberType);
  }

  bool String(const char* text, rapidjson::SizeType size, bool) {
    const std::string valid = ValidUtf8({text, size});
    return PrettyWriter::String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()), true);
  }

  bool Key(const char* text, rapidjson::SizeType size, bool copy) {
    return String(text, size, copy);
  }
};

}  // namespace

std::string PrettyJson(const JsonValue& value) {
  RequireDepth(value);
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  value.Accept(writer);
  return {buffer.GetString(), buffer.GetSize()};
}

JsonValue CopyJson(const JsonValue& value, JsonAllocator& allocator) {
  RequireDepth(value);
  return JsonValue(value, allocator);
}

const JsonValue* FindMember(const JsonValue& value, const char* key) {
  if (!value.IsObject()) return nullptr;
  const auto found = value.FindMember(key);
  return found == value.MemberEnd() ? nullptr : &found->value;
}

}  // namespace Orlix::Util
