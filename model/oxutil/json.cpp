#include "model/oxutil/json.h"

#include <rapidjson/prettywriter.h>

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

// Where the writer puts its bytes. Line ends stand only between the lines of a JSON text, never
// within its strings.
struct TextStream {
  using Ch = char;

  void Put(char c) {
    text.push_back(c);
    if (c == '\n') text.append(margin);
  }
  void Flush() {}

  std::string& text;
  std::string_view margin;
};

// The indentation of a line; found by the writer instead of its own loop.
void PutN(TextStream& stream, char c, std::size_t count) { stream.text.append(count, c); }

bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

// The stock writer stops in mid-text at a non-finite number, has shortest digits only most of the
// time, and passes on bytes that are no UTF-8.
class Writer : public rapidjson::PrettyWriter<TextStream> {
 public:
  explicit Writer(TextStream& stream) : PrettyWriter(stream) { SetIndent(' ', 4); }

  bool Double(double value) {
    if (!std::isfinite(value)) return Null();
    std::array<char, 32> digits;  // at most 24 characters and ".0"
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    end = std::remove(digits.data(), end, '+');  // 1e308, as JSON is mostly written
    if (std::string_view(digits.data(), end).find_first_of(".e") == std::string_view::npos) {
      *end++ = '.';  // so that it stays a double when it is read back
      *end++ = '0';
    }
    PrettyPrefix(rapidjson::kNumberType);
    os_->text.append(digits.data(), end);
    return true;
  }

  bool String(const char* text, rapidjson::SizeType size, bool) {
    if (IsPlain({text, size})) {
      PrettyPrefix(rapidjson::kStringType);
      os_->text.append(1, '"').append(text, size).append(1, '"');
      return true;
    }
    const std::string valid = ValidUtf8({text, size});
    return PrettyWriter::String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()), true);
  }

  bool Key(const char* text, rapidjson::SizeType size, bool copy) {
    return String(text, size, copy);
  }
};

}  // namespace

std::string PrettyJson(const JsonValue& value) {
  std::string text;
  AppendPrettyJson(value, {}, text);
  return text;
}

void AppendPrettyJson(const JsonValue& value, std::string_view margin, std::string& text) {
  RequireDepth(value);
  TextStream stream{text, margin};
  Writer writer(stream);
  value.Accept(writer);
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
