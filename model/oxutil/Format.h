#pragma once

#include <array>
#include <concepts>
#include <span>
#include <string>
#include <string_view>

namespace Orlix {

namespace Detail {

std::string FormatPiece(double value);
std::string FormatPiece(long long value);
std::string FormatPiece(unsigned long long value);
std::string FillPlaceholders(std::string_view text, std::span<const std::string> pieces);

template <class T>
std::string PieceOf(const T& value) {
  if constexpr (std::floating_point<T>) {
    return FormatPiece(static_cast<double>(value));
  } else if constexpr (std::unsigned_integral<T>) {
    return FormatPiece(static_cast<unsigned long long>(value));
  } else if constexpr (std::integral<T>) {
    return FormatPiece(static_cast<long long>(value));
  } else {
    return std::string(std::string_view(value));
  }
}

}  // namespace Detail

/// What Format fills into a text: a number or a text; no single characters, no truth values.
template <class T>
concept Formattable = (std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>) ||
                      std::same_as<T, double> || std::convertible_to<T, std::string_view>;

/// Fills the "{}" of `text` with `values`, one after the other, as std::format("{}") prints them: a
/// double with the fewest digits that read back the same, in the shorter of fixed and exponent form
/// (100000 is "1e+05", 0.0001 is "1e-04", infinity "inf"). The process locale has no influence.
/// @pre as many "{}" as values; braces stand for nothing else, so neither formats nor "{{".
template <Formattable... Values>
std::string Format(std::string_view text, const Values&... values) {
  const std::array<std::string, sizeof...(Values)> pieces{Detail::PieceOf(values)...};
  return Detail::FillPlaceholders(text, pieces);
}

}  // namespace Orlix
