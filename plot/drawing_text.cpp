#include "plot/drawing_text.h"

#include <charconv>
#include <cmath>
#include <cstddef>

#include "model/oxutil/text.h"
#include "model/oxutil/utf.h"
#include "results/result_text.h"

namespace Orlix::Plot {

namespace {

// Control characters, the line and paragraph separators and what turns the direction of a line.
bool IsUndrawable(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

}  // namespace

std::string Drawable(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextUtf8(text, at);
    AppendUtf8(IsUndrawable(c) ? U' ' : c, result);
  }
  return result;
}

std::string NumberText(double value, int digits) {
  if (!std::isfinite(value)) return "-";
  if (value == 0.0) return "0";
  const int exponent = static_cast<int>(std::floor(std::log10(std::abs(value))));
  constexpr int kMostWhole = 9;
  if (exponent >= kMostWhole || exponent < -kMostWhole) {
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                   std::chars_format::scientific, digits - 1)
                         .ptr;
    return std::string(buffer, end);
  }
  const int decimals = digits - 1 - exponent;
  std::string text = Fixed(value, decimals > 0 ? decimals : 0);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

std::string ValueText(double value, Dimension dimension, const Data::CUnit& units, int digits) {
  return NumberText(value * units.Conversion(dimension), digits) + " " +
         UnitTextOf(dimension, units);
}

std::string UnitTextOf(Dimension dimension, const Data::CUnit& units) {
  return to_string(units.UnitString(dimension));
}

}  // namespace Orlix::Plot
