#include "plot/drawing_text.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

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

std::string ScientificText(double value, int digits) {
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                                 std::chars_format::scientific, digits - 1)
                       .ptr;
  return std::string(buffer, end);
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
    return ScientificText(value, digits);
  }
  const int decimals = digits - 1 - exponent;
  std::string text = Fixed(value, decimals > 0 ? decimals : 0);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

double Snapped(double value, double largest) {
  constexpr double kRounding = 1e-6;  // less than the four digits shown; planes are good to 1e-10
  return std::abs(value) <= kRounding * largest ? 0.0 : value;
}

std::string FittedNumber(const Canvas& canvas, const std::string& text, double width,
                         const TextStyle& style) {
  if (canvas.TextWidth(text, style) <= width) return text;
  double value{};
  const char* const end = text.data() + text.size();
  const auto [after, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || (after != end && *after != ' ' && *after != '\xC2')) {
    return canvas.Fitted(text, width, style);
  }
  const std::string unit(after, end);
  std::string shorter;
  for (int digits = 3; digits > 0; --digits) {
    shorter = NumberText(value, digits) + unit;
    if (canvas.TextWidth(shorter, style) <= width) return shorter;
  }
  for (int digits = 3; digits > 0; --digits) {
    shorter = ScientificText(value, digits) + unit;
    if (canvas.TextWidth(shorter, style) <= width) break;
  }
  return shorter;
}

std::string ValueText(double value, Dimension dimension, const Data::CUnit& units, int digits) {
  return NumberText(value * units.Conversion(dimension), digits) + " " +
         UnitTextOf(dimension, units);
}

std::string UnitTextOf(Dimension dimension, const Data::CUnit& units) {
  std::string text = to_string(units.UnitString(dimension));
  const bool isProduct = dimension == Dimension::moment || dimension == Dimension::bendingStiffness;
  const std::string length = to_string(units.UnitString(Dimension::length));
  // kNm is read as it is written; a foot or an inch behind a force is not.
  if (isProduct && (length == "ft" || length == "in")) {
    text.insert(to_string(units.UnitString(Dimension::force)).size(), "·");
  }
  return text;
}

}  // namespace Orlix::Plot
