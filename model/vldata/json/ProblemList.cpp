#include "model/vldata/json/ProblemList.h"

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Data {
namespace {

constexpr std::size_t kShownBytes = 60;  // of a text that stands where it should not

std::string Clipped(std::string_view text) {
  if (text.size() <= kShownBytes) return ValidUtf8(text);
  std::size_t end = kShownBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return ValidUtf8(text.substr(0, end)) + "…";
}

}  // namespace

std::string JsonPath::Text() const {
  if (parent == nullptr) return "document";
  const std::string above = parent->parent == nullptr ? "" : parent->Text();
  if (member.empty()) return above + "[" + std::to_string(number) + "]";
  return above.empty() ? Clipped(member) : above + "." + Clipped(member);
}

void ProblemList::Add(const JsonPath& path, const Util::JsonValue* found,
                      std::string_view expected) {
  if (problems_.size() > kMax) return;
  AddText(path, DescribeJson(found), expected);
}

void ProblemList::AddText(const JsonPath& path, std::string_view found, std::string_view expected) {
  if (problems_.size() < kMax) {
    problems_.push_back({path.Text(), std::string(found), std::string(expected)});
  } else if (problems_.size() == kMax) {
    problems_.push_back({"document", "further problems", "none: they are not listed"});
  }
}

std::string DescribeJson(const Util::JsonValue* value) {
  if (value == nullptr) return "nothing";
  if (value->IsNull()) return "null";
  if (value->IsBool()) return value->GetBool() ? "true" : "false";
  if (value->IsNumber()) return StringFrom(value->GetDouble());
  if (value->IsString()) {
    return "\"" + Clipped({value->GetString(), value->GetStringLength()}) + "\"";
  }
  if (value->IsArray()) return "an array of " + std::to_string(value->Size());
  return "an object";
}

}  // namespace Orlix::Data
