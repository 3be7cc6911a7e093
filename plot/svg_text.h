#pragma once

#include <string>
#include <string_view>

namespace Orlix::Plot {

/// An SVG text of the drawing library as it is given out. Ids depend on nothing but the picture:
/// the library counts surfaces through the whole process. Coordinates have three decimals, which is
/// finer than the library's own grid and makes the text a third shorter.
/// @param prefix  stands before every id; where there is one the XML declaration is left out
/// @pre   all text of the picture is glyphs, so that quotes stand around attributes alone
std::string TidySvg(std::string_view svg, std::string_view prefix);

}  // namespace Orlix::Plot
