#pragma once

#include <deque>
#include <string_view>

#include "dxf_import/DxfTag.h"

namespace Orlix::dxf_import {

/// One object of a drawing as it is written, not yet understood. The texts are those of the tags,
/// see DxfTokenizer for their life.
struct DxfEntity {
  std::string_view type;   ///< as written: "LWPOLYLINE"
  std::string_view layer;  ///< the last that is named; empty when none is
  /// All tags after the one that names the type. A deque, because an outline can have millions
  /// and must not be copied while it grows.
  std::deque<DxfTag> tags;
  int line{};  ///< one-based line on which it begins
};

}  // namespace Orlix::dxf_import
