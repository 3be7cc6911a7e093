#pragma once

#include <optional>
#include <string_view>

namespace Orlix {

/// Reads a number that fills the whole text: spaces or tabs, one sign or none, then a decimal
/// number with or without exponent, or "nan", "inf", "infinity" in any case. Hexadecimal numbers
/// and nan(...) are refused, as is anything after the number. The process locale has no influence.
/// @return the nearest double; a number too small for one is zero with its sign. Nothing when the
/// text is no
///         number or the number exceeds the largest double.
std::optional<double> ParseDouble(std::string_view text);

}  // namespace Orlix
