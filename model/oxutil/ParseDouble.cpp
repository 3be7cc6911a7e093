#include "model/oxutil/ParseDouble.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace Orlix {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Power of ten of the first digit that is not zero, in an unsigned decimal number with at least one
// such digit. from_chars says "out of range" for numbers too large and too small alike; this tells
// them apart.
long long LeadingPower(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, e);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
  const long long power = first < point ? point - first - 1 : point - first;

  long long exponent = 0;
  for (const char c : number.substr(e)) {
    // No text is long enough to outweigh an exponent of 10^17.
    if (IsDigit(c) && exponent < 100'000'000'000'000'000) exponent = 10 * exponent + (c - '0');
  }
  const bool negative = number.find('-', e) != std::string_view::npos;
  return power + (negative ? -exponent : exponent);
}

// Reads an unsigned number.
std::optional<double> ParseMagnitude(std::string_view text) {
  const char* const end = text.data() + text.size();
  double value = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::invalid_argument || stop != end) return std::nullopt;
  if (error == std::errc::result_out_of_range) {
    if (LeadingPower(text) > 0) return std::nullopt;
    return 0.0;
  }
  return value;
}

}  // namespace

std::optional<double> ParseDouble(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // from_chars takes a minus of its own, and nan(payload); neither is wanted here.
  if (text.starts_with('-') || text.ends_with(')')) return std::nullopt;
  const std::optional<double> magnitude = ParseMagnitude(text);
  if (!magnitude) return std::nullopt;
  return negative ? -*magnitude : *magnitude;
}

}  // namespace Orlix
