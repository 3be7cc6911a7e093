#pragma once

#include <string>
#include <string_view>

#include "model/oxutil/CUnit.h"
#include "plot/Canvas.h"

namespace Orlix::Plot {

/// Text of a document as it may stand on a sheet: valid UTF-8 in one line, control characters and
/// line ends become spaces.
std::string Drawable(std::string_view text);

/// A number with so many significant digits, without trailing zeros and exponents up to 1e9; "-"
/// for what is not finite, "0" for either zero.
std::string NumberText(double value, int digits = 4);

/// 0 for what is rounding beside the largest of the values that it stands with.
double Snapped(double value, double largest);

/// The text, or a number and its unit with fewer digits, at last in powers of ten, so that it is no
/// wider; never a part of a number. A text that is none is shortened as by `Canvas::Fitted`.
std::string FittedNumber(const Canvas& canvas, const std::string& text, double width,
                         const TextStyle& style);

/// "12.5 kNm": an SI value in the units of a document.
std::string ValueText(double value, Dimension dimension, const Data::CUnit& units, int digits = 4);
/// The unit alone, "kNm", "kip·ft".
std::string UnitTextOf(Dimension dimension, const Data::CUnit& units);

}  // namespace Orlix::Plot
