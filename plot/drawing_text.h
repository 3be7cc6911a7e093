#pragma once

#include <string>
#include <string_view>

#include "model/oxutil/CUnit.h"

namespace Orlix::Plot {

/// Text of a document as it may stand on a sheet: valid UTF-8 in one line, control characters and
/// line ends become spaces.
std::string Drawable(std::string_view text);

/// A number with so many significant digits, without trailing zeros and exponents up to 1e9; "-"
/// for what is not finite, "0" for either zero.
std::string NumberText(double value, int digits = 4);

/// "12.5 kNm": an SI value in the units of a document.
std::string ValueText(double value, Dimension dimension, const Data::CUnit& units, int digits = 4);
/// The unit alone, "kNm".
std::string UnitTextOf(Dimension dimension, const Data::CUnit& units);

}  // namespace Orlix::Plot
