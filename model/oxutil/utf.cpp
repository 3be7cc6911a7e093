#include "model/oxutil/utf.h"

#include <cassert>

namespace Orlix {
namespace {

constexpr char32_t kLast = 0x10FFFF;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
bool IsSurrogate(char32_t unit) { return IsHighSurrogate(unit) || IsLowSurrogate(unit); }

// What the first byte of a UTF-8 sequence says about the rest.
struct Lead {
  int continuations;  // bytes to follow; negative for a byte that begins nothing
  char32_t bits;      // the lead byte's share of the character
  unsigned char low,
      high;  // bounds of the second byte: no overlong forms, surrogates or too large numbers
};

Lead LeadOf(unsigned char byte) {
  if (byte < 0x80) return {0, byte, 0, 0};
  if (byte < 0xC2 || byte > 0xF4) return {-1, 0, 0, 0};
  if (byte < 0xE0) return {1, byte & 0x1Fu, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0xD, 0x80, 0x9F};
  if (byte < 0xF0) return {2, byte & 0xFu, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0, 0x90, 0xBF};
  if (byte == 0xF4) return {3, 4, 0x80, 0x8F};
  return {3, byte & 7u, 0x80, 0xBF};
}

}  // namespace

char32_t NextUtf8(std::string_view text, std::size_t& at) {
  const Lead lead = LeadOf(static_cast<unsigned char>(text[at++]));
  if (lead.continuations < 0) return kReplacement;
  char32_t character = lead.bits;
  for (int i = 0; i < lead.continuations; ++i) {
    if (at == text.size()) return kReplacement;
    const auto byte = static_cast<unsigned char>(text[at]);
    const unsigned char low = i == 0 ? lead.low : 0x80;
    const unsigned char high = i == 0 ? lead.high : 0xBF;
    if (byte < low || byte > high) return kReplacement;
    character = (character << 6) | (byte & 0x3Fu);
    ++at;
  }
  return character;
}

template <class Unit>
char32_t NextWide(std::basic_string_view<Unit> text, std::size_t& at) {
  const auto unit = static_cast<char32_t>(text[at++]);
  if constexpr (sizeof(Unit) == 2) {
    if (IsHighSurrogate(unit) && at < text.size()) {
      const auto next = static_cast<char32_t>(text[at]);
      if (IsLowSurrogate(next)) {
        ++at;
        return 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
      }
    }
  }
  return IsSurrogate(unit) || unit > kLast ? kReplacement : unit;
}

void AppendUtf8(char32_t character, std::string& text) {
  assert(!IsSurrogate(character) && character <= kLast);
  const auto append = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  const auto appendRest = [&](int count) {
    while (count-- > 0) append(0x80 | ((character >> (6 * count)) & 0x3F));
  };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | (character >> 6));
    appendRest(1);
  } else if (character < 0x10000) {
    append(0xE0 | (character >> 12));
    appendRest(2);
  } else {
    append(0xF0 | (character >> 18));
    appendRest(3);
  }
}

template <class Unit>
void AppendWide(char32_t character, std::basic_string<Unit>& text) {
  assert(!IsSurrogate(character) && character <= kLast);
  if (sizeof(Unit) == 2 && character >= 0x10000) {
    text.push_back(static_cast<Unit>(0xD800 + ((character - 0x10000) >> 10)));
    text.push_back(static_cast<Unit>(0xDC00 + (character & 0x3FF)));
  } else {
    text.push_back(static_cast<Unit>(character));
  }
}

template char32_t NextWide(std::u16string_view, std::size_t&);
template char32_t NextWide(std::wstring_view, std::size_t&);
template void AppendWide(char32_t, std::u16string&);
template void AppendWide(char32_t, std::wstring&);

}  // namespace Orlix
