#include "model/oxutil/Format.h"

#include <cassert>
#include <charconv>

namespace Orlix::Detail {
namespace {

template <class Number>
std::string Digits(Number value) {
  std::array<char, 32> digits;  // the longest double has 24: -2.2250738585072014e-308
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return std::string(digits.data(), written.ptr);
}

}  // namespace

std::string FormatPiece(double value) { return Digits(value); }
std::string FormatPiece(long long value) { return Digits(value); }
std::string FormatPiece(unsigned long long value) { return Digits(value); }

std::string FillPlaceholders(std::string_view text, std::span<const std::string> pieces) {
  constexpr std::string_view kPlaceholder = "{}";
  std::string filled;
  for (const std::string& piece : pieces) {
    const std::size_t at = text.find(kPlaceholder);
    assert(at != std::string_view::npos);
    filled.append(text.substr(0, at)).append(piece);
    text.remove_prefix(at + kPlaceholder.size());
  }
  assert(text.find(kPlaceholder) == std::string_view::npos);
  return filled.append(text);
}

}  // namespace Orlix::Detail
