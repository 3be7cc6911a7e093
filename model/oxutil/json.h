#pragma once

#include <rapidjson/document.h>

#include <iosfwd>
#include <string>
#include <string_view>

#include "model/oxutil/json_fwd.h"

namespace Orlix::Util {

/// Arrays and objects within one another that a JSON text or value may have. Copying and writing a
/// value recurse, so the limit is what keeps hostile input off the end of the stack.
inline constexpr int kMaxJsonDepth = 64;

/// Reads one JSON value that fills the whole UTF-8 text, a byte-order mark allowed. Numbers become
/// the nearest double.
/// @param[out] document  the value; null on failure.
/// @param[out] error     on failure "line 3, column 5: expected ..." (one-based, columns in
/// characters); else empty.
/// @return false for text that is no JSON, no UTF-8, or nested deeper than kMaxJsonDepth.
bool ParseJson(std::string_view text, JsonDocument& document, std::string& error);

/// As above, from a stream: reads no further than a few bytes beyond what makes the text wrong.
bool ParseJson(std::istream& stream, JsonDocument& document, std::string& error);

/// @return `value` as JSON text, four spaces a level. Doubles have the fewest digits that read back
/// the same;
///         non-finite ones, for which JSON has no text, become null.
/// @throws std::length_error when `value` is nested deeper than kMaxJsonDepth.
std::string PrettyJson(const JsonValue& value);

/// Appends the text of PrettyJson, with `margin` behind every line end in it.
/// @throws std::length_error as PrettyJson; then nothing is appended.
void AppendPrettyJson(const JsonValue& value, std::string_view margin, std::string& text);

/// @return a deep copy of `value` in `allocator`; only texts that `value` merely refers to
/// (literals) are shared.
/// @throws std::length_error when `value` is nested deeper than kMaxJsonDepth.
JsonValue CopyJson(const JsonValue& value, JsonAllocator& allocator);

/// @return the member called `key`, or null when `value` is no object or has none.
const JsonValue* FindMember(const JsonValue& value, const char* key);

}  // namespace Orlix::Util
