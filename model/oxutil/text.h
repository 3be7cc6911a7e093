#pragma once

#include <string>
#include <string_view>

#include "model/oxutil/OrlixString.h"

namespace Orlix {

// Conversions between UTF-8 and wide text: UTF-32 where wchar_t has 32 bits, UTF-16 where it
// has 16. None of them throws on malformed text: what is no character (bytes that are no UTF-8,
// surrogates without a partner, numbers above U+10FFFF) gives U+FFFD, one for each longest run that
// could have begun a character.

/// @return `text` as UTF-8.
std::string to_string(const std::wstring& text);
std::string to_string(const OrlixString<wchar_t>& text);

/// @return UTF-8 `text` as wide text.
std::wstring to_wstring(const std::string& text);
std::wstring to_wstring(const OrlixString<wchar_t>& text);

/// @return UTF-8 `text` as the wide string of the model libraries.
OrlixString<wchar_t> cstr(const std::string& text);

/// @return `text` with everything that is no UTF-8 replaced by U+FFFD; valid text comes back
/// unchanged.
std::string ValidUtf8(std::string_view text);

}  // namespace Orlix
