#include "model/oxutil/StringFrom.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Orlix {

std::string StringFrom(double value) {
  if (std::isnan(value)) return "nan";  // to_chars would show the sign of a NaN
  if (value == 0) return "0";
  std::array<char, 16> digits;  // sign, six digits, point, "e+308" and the zeros of 0.000123456
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, 6)
                       .ptr;
  return {digits.data(), end};
}

}  // namespace Orlix
