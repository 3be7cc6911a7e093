#pragma once

namespace Orlix::dxf_import {

/// Units of length of a drawing; the values are those of the header variable $INSUNITS.
enum class DxfUnit : int {
  Unknown = -1,
  Unitless = 0,
  Inches = 1,
  Feet = 2,
  Millimetres = 4,
  Centimetres = 5,
  Metres = 6
};

}  // namespace Orlix::dxf_import
