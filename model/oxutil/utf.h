#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Orlix {

/// Stands for whatever is no character.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Reads the character of UTF-8 `text` that begins at `at` and moves `at` behind it. Of bytes that
/// are no character, skips the longest run that could have begun one.
/// @return the character, or kReplacement.
/// @pre    at < text.size()
/// Source: The Unicode Standard 15.0, Table 3-7 and section 3.9 (maximal subparts).
char32_t NextUtf8(std::string_view text, std::size_t& at);

/// As NextUtf8, for UTF-16 (units of 16 bits) or UTF-32 (units of 32 bits).
template <class Unit>
char32_t NextWide(std::basic_string_view<Unit> text, std::size_t& at);

/// Appends `character` to UTF-8 `text`.
/// @pre `character` is no surrogate and at most U+10FFFF; so below.
void AppendUtf8(char32_t character, std::string& text);

/// As AppendUtf8, for UTF-16 or UTF-32.
template <class Unit>
void AppendWide(char32_t character, std::basic_string<Unit>& text);

}  // namespace Orlix
