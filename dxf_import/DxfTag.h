#pragma once

#include <string_view>

namespace Orlix::dxf_import {

/// Stands for the group code of a line that holds no integer.
inline constexpr int kNoGroupCode = -1;

/// One group code and its value: two lines of a drawing.
struct DxfTag {
  int code = kNoGroupCode;
  int line{};              ///< one-based line of the group code
  std::string_view value;  ///< without the blanks and tabs around it; see DxfTokenizer for its life
};

}  // namespace Orlix::dxf_import
