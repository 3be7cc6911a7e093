#include "dxf_import/tag_numbers.h"

#include <charconv>
#include <system_error>

namespace Orlix::dxf_import {

std::optional<int> ParseInteger(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;  // from_chars would take it for the sign
  }
  const char* const end = text.data() + text.size();
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return value;
}

}  // namespace Orlix::dxf_import
