#include "model/vldata/json/document_schema.h"

#include <rapidjson/pointer.h>
#include <rapidjson/schema.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/oxutil/json.h"

namespace Orlix::Data {
namespace {

using Util::FindMember;
using Util::JsonDocument;
using Util::JsonValue;

using Tokens = std::vector<rapidjson::Pointer::Token>;

/// A value that departs from a node of the schema.
struct Violation {
  const JsonValue* node;     ///< of the one schema
  std::string keyword;       ///< of the node, which the value does not satisfy
  rapidjson::Pointer place;  ///< of the value, below the one that was looked at
  const JsonValue* value;
  std::string missing;  ///< a member that the value should have; empty for other faults
};

std::string_view TextOf(const JsonValue& value) {
  return {value.GetString(), value.GetStringLength()};
}

const JsonDocument& Schema() {
  static const JsonDocument kSchema = [] {
    JsonDocument json;
    std::string error;
    if (!Util::ParseJson(DocumentSchemaText(), json, error)) throw std::logic_error(error);
    return json;
  }();
  return kSchema;
}

// The node that a reference leads to.
const JsonValue& Resolved(const JsonValue& node) {
  const JsonValue* reference = FindMember(node, "$ref");
  if (reference == nullptr) return node;
  const JsonValue* target =
      rapidjson::Pointer(reference->GetString(), reference->GetStringLength()).Get(Schema());
  if (target == nullptr) throw std::logic_error("a reference of the schema leads nowhere");
  return *target;
}

bool HasType(const JsonValue& value, std::string_view type) {
  return (type == "object" && value.IsObject()) || (type == "array" && value.IsArray()) ||
         (type == "string" && value.IsString()) || (type == "boolean" && value.IsBool()) ||
         (type == "number" && value.IsNumber()) ||
         (type == "integer" && (value.IsInt64() || value.IsUint64()));
}

bool IsInEnum(const JsonValue& node, const JsonValue& value) {
  const JsonValue* choices = FindMember(node, "enum");
  return choices == nullptr || std::any_of(choices->Begin(), choices->End(),
                                           [&](const JsonValue& c) { return c == value; });
}

const JsonValue* MissingMember(const JsonValue& node, const JsonValue& value) {
  const JsonValue* required = FindMember(node, "required");
  if (required == nullptr || !value.IsObject()) return nullptr;
  const auto* found = std::find_if(required->Begin(), required->End(), [&](const JsonValue& name) {
    return value.FindMember(name) == value.MemberEnd();
  });
  return found == required->End() ? nullptr : found;
}

// Whether an alternative is the one that a value means to be: of its type, with the members that
// tell it from the others.
bool IsMeant(const JsonValue& alternative, const JsonValue& value) {
  const JsonValue& node = Resolved(alternative);
  const JsonValue* type = FindMember(node, "type");
  if (type != nullptr && type->IsString() && !HasType(value, TextOf(*type))) return false;
  if (!IsInEnum(node, value)) return false;
  const JsonValue* properties = FindMember(node, "properties");
  if (properties == nullptr || !value.IsObject()) return MissingMember(node, value) == nullptr;
  for (const auto& property : properties->GetObject()) {
    const auto member = value.FindMember(property.name);
    const bool isThere = member != value.MemberEnd();
    if (isThere && !IsInEnum(Resolved(property.value), member->value)) return false;
    const JsonValue* choices = FindMember(Resolved(property.value), "enum");
    const JsonValue* required = FindMember(node, "required");
    if (isThere || choices == nullptr || required == nullptr) continue;
    if (std::find(required->Begin(), required->End(), property.name) != required->End()) {
      return false;
    }
  }
  return true;
}

// A node as a schema of its own, with the definitions that it refers to.
JsonDocument AsRoot(const JsonValue& node) {
  JsonDocument root;
  root.CopyFrom(node, root.GetAllocator());
  const JsonValue* definitions = FindMember(Schema(), "definitions");
  if (definitions != nullptr && FindMember(node, "definitions") == nullptr) {
    root.AddMember("definitions", JsonValue(*definitions, root.GetAllocator()),
                   root.GetAllocator());
  }
  return root;
}

std::optional<Violation> FirstViolation(const JsonValue& node, const JsonValue& value);

// What departs within the parts that a node combines; nothing where none can be told to be meant.
std::optional<Violation> ViolationOfPart(const Violation& whole) {
  const JsonValue* parts = FindMember(*whole.node, whole.keyword.c_str());
  if (parts == nullptr || !parts->IsArray()) return std::nullopt;
  const bool isAll = whole.keyword == "allOf";
  if (!isAll && whole.keyword != "oneOf" && whole.keyword != "anyOf") return std::nullopt;
  for (const JsonValue& part : parts->GetArray()) {
    if (!isAll && !IsMeant(part, *whole.value)) continue;
    if (auto violation = FirstViolation(part, *whole.value)) return violation;
  }
  return std::nullopt;
}

// The library stops at the first fault, but blames the whole of what has alternatives; these are
// looked at one by one.
std::optional<Violation> FirstViolation(const JsonValue& node, const JsonValue& value) {
  const JsonValue& resolved = Resolved(node);
  const JsonDocument root = AsRoot(resolved);
  const rapidjson::SchemaDocument schema(root);
  rapidjson::SchemaValidator validator(schema);
  if (value.Accept(validator)) return std::nullopt;
  const rapidjson::Pointer at = validator.GetInvalidSchemaPointer();
  const bool isDefinition =
      at.GetTokenCount() > 0 && std::string_view(at.GetTokens()->name) == "definitions";
  Violation found{at.Get(isDefinition ? Schema() : resolved),
                  validator.GetInvalidSchemaKeyword(),
                  validator.GetInvalidDocumentPointer(),
                  nullptr,
                  {}};
  found.value = found.place.Get(value);
  if (found.node == nullptr || found.value == nullptr) {
    throw std::logic_error("the validator of the schema names no place");
  }
  if (found.keyword == "required") {
    const JsonValue* missing = MissingMember(*found.node, *found.value);
    if (missing != nullptr) found.missing = TextOf(*missing);
  }
  std::optional<Violation> within = ViolationOfPart(found);
  if (!within) return found;
  for (std::size_t i = 0; i < within->place.GetTokenCount(); ++i) {
    found.place = found.place.Append(within->place.GetTokens()[i]);
  }
  within->place = found.place;
  return within;
}

std::string ChoicesText(const JsonValue& choices) {
  std::string text;
  for (const JsonValue& choice : choices.GetArray()) {
    text.append(text.empty() ? "one of \"" : ", \"").append(TextOf(choice)).append("\"");
  }
  return text;
}

// What a node is for, in the words of the schema or, where it has none, of its type.
std::string Words(const JsonValue& node, bool isOneOfMany) {
  const JsonValue* choices = FindMember(node, "enum");
  if (choices != nullptr) return ChoicesText(*choices);
  const JsonValue* type = FindMember(node, "type");
  if (!isOneOfMany && type != nullptr && type->IsString()) {
    if (TextOf(*type) == "object") return "an object";
    const bool isList = FindMember(node, "minItems") == nullptr;  // of any length
    if (TextOf(*type) == "array" && isList) return "an array";
  }
  const JsonValue* description = FindMember(node, "description");
  return std::string(description != nullptr ? TextOf(*description) : "what the schema says");
}

std::string Expected(const Violation& violation) {
  if (violation.keyword == "additionalProperties") return "no member of this name";
  if (!violation.missing.empty()) {
    const JsonValue* properties = FindMember(*violation.node, "properties");
    const JsonValue* missing =
        properties != nullptr ? FindMember(*properties, violation.missing.c_str()) : nullptr;
    if (missing != nullptr) return Words(Resolved(*missing), false);
  }
  const bool isOneOfMany = violation.keyword == "oneOf" || violation.keyword == "anyOf";
  return Words(*violation.node, isOneOfMany);
}

// The place of a value as problems name it; `missing` is a member of it that should be there.
std::string PathText(const JsonValue& root, const Violation& violation) {
  const std::size_t depth = violation.place.GetTokenCount();
  std::vector<JsonPath> path(1);  // each but the first refers to the one before
  path.reserve(depth + 2);
  const JsonValue* value = &root;
  for (std::size_t i = 0; i < depth; ++i) {
    const auto& token = violation.place.GetTokens()[i];
    const std::string_view name(token.name, token.length);
    path.push_back(value->IsArray() ? path.back().Element(token.index) : path.back().Member(name));
    value = rapidjson::Pointer(&token, 1).Get(*value);
  }
  if (!violation.missing.empty()) path.push_back(path.back().Member(violation.missing));
  return path.back().Text();
}

}  // namespace

std::optional<ReadProblem> SchemaProblem(const JsonValue& json) {
  static const rapidjson::SchemaDocument kSchema(Schema());
  rapidjson::SchemaValidator validator(kSchema);
  if (json.Accept(validator)) return std::nullopt;
  const auto violation = FirstViolation(Schema(), json);
  if (!violation) return std::nullopt;
  const bool isMissing = !violation->missing.empty();
  return ReadProblem{PathText(json, *violation),
                     DescribeJson(isMissing ? nullptr : violation->value), Expected(*violation)};
}

}  // namespace Orlix::Data
