#pragma once

#include <string>
#include <string_view>

namespace Orlix::Plot {

/// An SVG text of the drawing library with ids that depend on nothing but the picture: the library
/// counts surfaces through the whole process.
/// @param prefix  stands before every id; where there is one the XML declaration is left out
/// @pre   all text of the picture is glyphs, so that quotes stand around attributes alone
std::string WithOwnIds(std::string_view svg, std::string_view prefix);

}  // namespace Orlix::Plot
