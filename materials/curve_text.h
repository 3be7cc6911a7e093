#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix {

/// Reads a text file of points into the form that `NumberPairs` splits: every line, whether it ends
/// in LF or CR LF, is followed by CR LF. A byte-order mark at the beginning is dropped.
/// @return empty when nothing can be read or there are more than 16 MiB.
std::string CurveTextFrom(std::istream& stream);

/// The numbers that the lines of a text begin with, in the units of the text.
///
/// CR LF ends a line, a line feed alone does not. Any run of tabs, vertical bars, commas,
/// semicolons, colons and spaces separates fields; a run at the beginning of a line is ignored, and
/// so is what follows the second field. A line whose first two fields are not both whole numbers
/// (`ParseDouble`), such as a heading, is skipped.
/// @return (first, second) of each line that is not skipped; not always finite.
std::vector<Vec2<double>> NumberPairs(std::string_view text);

}  // namespace Orlix
