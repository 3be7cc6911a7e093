#pragma once

#include <optional>
#include <string_view>

namespace Orlix::dxf_import {

/// Reads an integer of 32 bits that fills the whole text: one sign or none, then decimal digits.
std::optional<int> ParseInteger(std::string_view text);

}  // namespace Orlix::dxf_import
