#pragma once

#include <string>
#include <string_view>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::Data {

/// Appends a member to a JSON object. `name` is a literal or outlives the object; texts are copied.
/// A number that is not finite, for which JSON has no text, becomes "-": not calculated.
void AddMember(Util::JsonValue& object, std::string_view name, Util::JsonValue& value,
               Util::JsonAllocator& allocator);
void AddNumber(Util::JsonValue& object, std::string_view name, double number,
               Util::JsonAllocator& allocator);
void AddFlag(Util::JsonValue& object, std::string_view name, bool flag,
             Util::JsonAllocator& allocator);
void AddText(Util::JsonValue& object, std::string_view name, std::string_view text,
             Util::JsonAllocator& allocator);
void AddText(Util::JsonValue& object, std::string_view name, const OrlixString<wchar_t>& text,
             Util::JsonAllocator& allocator);
/// Two numbers as an array.
void AddPair(Util::JsonValue& object, std::string_view name, Vec2<double> pair,
             Util::JsonAllocator& allocator);
/// Appends two numbers as an array to an array.
void PushPair(Util::JsonValue& array, Vec2<double> pair, Util::JsonAllocator& allocator);
/// Appends a number to an array.
void PushNumber(Util::JsonValue& array, double number, Util::JsonAllocator& allocator);

}  // namespace Orlix::Data
