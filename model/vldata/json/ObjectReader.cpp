#include "model/vldata/json/ObjectReader.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Data {
namespace {

std::string_view TextOf(const Util::JsonValue& value) {
  return {value.GetString(), value.GetStringLength()};
}

bool IsIn(double number, NumberRange range) {
  if (!std::isfinite(number)) return false;
  switch (range) {
    case NumberRange::any:
      return true;
    case NumberRange::positive:
      return number > 0.0;
    case NumberRange::notNegative:
      return number >= 0.0;
    case NumberRange::zeroToOne:
      return number >= 0.0 && number <= 1.0;
  }
  return false;
}

std::string_view Words(NumberRange range) {
  switch (range) {
    case NumberRange::any:
      break;
    case NumberRange::positive:
      return "a positive number";
    case NumberRange::notNegative:
      return "a number that is not negative";
    case NumberRange::zeroToOne:
      return "a number from 0 to 1";
  }
  return "a number";
}

}  // namespace

ObjectReader::ObjectReader(const Util::JsonValue& value, const JsonPath& path,
                           ProblemList& problems)
    : object_(value.IsObject() ? &value : nullptr), path_(path), problems_(problems) {
  if (object_ == nullptr) problems_.Add(path_, &value, "an object");
}

const Util::JsonValue* ObjectReader::Find(std::string_view name) {
  if (object_ == nullptr) return nullptr;
  const Util::JsonValue key(
      rapidjson::StringRef(name.data(), static_cast<rapidjson::SizeType>(name.size())));
  const auto member = object_->FindMember(key);
  const bool isThere = member != object_->MemberEnd();
  if (std::find(asked_.begin(), asked_.end(), name) == asked_.end()) {
    asked_.push_back(name);
    if (isThere) ++found_;
  }
  return isThere ? &member->value : nullptr;
}

std::optional<double> ObjectReader::Number(std::string_view name, NumberRange range) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr) return std::nullopt;
  if (value->IsNumber() && IsIn(value->GetDouble(), range)) return value->GetDouble();
  problems_.Add(path_.Member(name), value, Words(range));
  return std::nullopt;
}

std::optional<bool> ObjectReader::Flag(std::string_view name) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr) return std::nullopt;
  if (value->IsBool()) return value->GetBool();
  problems_.Add(path_.Member(name), value, "true or false");
  return std::nullopt;
}

std::optional<std::string> ObjectReader::Text(std::string_view name) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr) return std::nullopt;
  if (value->IsString()) return ValidUtf8(TextOf(*value));
  problems_.Add(path_.Member(name), value, "a text");
  return std::nullopt;
}

std::optional<OrlixString<wchar_t>> ObjectReader::WideText(std::string_view name) {
  const std::optional<std::string> text = Text(name);
  if (!text) return std::nullopt;
  return cstr(*text);
}

std::string ObjectReader::RequiredText(std::string_view name, std::string_view expected) {
  if (object_ == nullptr) return {};  // which has been reported
  const Util::JsonValue* value = Find(name);
  if (value == nullptr || (value->IsString() && value->GetStringLength() == 0)) {
    Report(name, expected);
  }
  return Text(name).value_or("");
}

std::optional<Vec2<double>> ObjectReader::Pair(std::string_view name) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr) return std::nullopt;
  return PairFrom(*value, path_.Member(name), problems_);
}

const Util::JsonValue* ObjectReader::Array(std::string_view name) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr || value->IsArray()) return value;
  problems_.Add(path_.Member(name), value, "an array");
  return nullptr;
}

const Util::JsonValue* ObjectReader::Object(std::string_view name) {
  const Util::JsonValue* value = Find(name);
  if (value == nullptr || value->IsObject()) return value;
  problems_.Add(path_.Member(name), value, "an object");
  return nullptr;
}

void ObjectReader::Report(std::string_view name, std::string_view expected) {
  problems_.Add(path_.Member(name), Find(name), expected);
}

void ObjectReader::ReportUnknown() {
  if (object_ == nullptr || found_ == object_->MemberCount()) return;
  std::unordered_set<std::string_view> seen;
  for (const auto& member : object_->GetObject()) {
    const std::string_view name = TextOf(member.name);
    if (!seen.insert(name).second) {
      problems_.AddText(path_.Member(name), "the member a second time", "each member once");
    } else if (std::find(asked_.begin(), asked_.end(), name) == asked_.end()) {
      problems_.Add(path_.Member(name), &member.value, "no member of this name");
    }
  }
}

bool ObjectReader::IsText(const Util::JsonValue& value, std::string_view text) {
  return value.IsString() && TextOf(value) == text;
}

std::optional<Vec2<double>> PairFrom(const Util::JsonValue& value, const JsonPath& path,
                                     ProblemList& problems) {
  if (value.IsArray() && value.Size() == 2 && value[0].IsNumber() && value[1].IsNumber()) {
    const Vec2<double> pair{value[0].GetDouble(), value[1].GetDouble()};
    if (std::isfinite(pair.x) && std::isfinite(pair.y)) return pair;
  }
  problems.Add(path, &value, "an array of two numbers");
  return std::nullopt;
}

}  // namespace Orlix::Data
