#pragma once

#include <optional>
#include <string_view>

#include "model/oxutil/Enumerations.h"

namespace Orlix::Cli {

/// What a value in a unit is multiplied by to be in SI units, from the text of the unit. Besides
/// the units of a document a moment takes any force times any length, with or without a space or a
/// sign of multiplication between them ("kNm", "kN m", "lbf·ft", "kip-in"), and a curvature any
/// strain, 1 or rad over any length ("‰/m", "1/m", "rad/m").
/// @param dimension  force, moment, strain or curvature
/// @return nothing for no such unit
std::optional<double> FactorToSi(std::string_view text, Dimension dimension);

/// A number in SI units, from one with or without a unit behind it, such as "-800kN" or "-8e5".
/// @param bare  what a number without a unit is multiplied by
/// @return nothing for what is no finite number or no unit of the dimension
std::optional<double> QuantityFrom(std::string_view text, Dimension dimension, double bare);

}  // namespace Orlix::Cli
