#pragma once

#include <string>

#include "model/oxutil/json_fwd.h"

namespace Orlix::VlSol::Test {

/// A quantity of a published crack width by formula, in mm, N/mm² and strains.
/// @param load  the example's formula and its inputs
/// @throws std::runtime_error for a quantity or formula that no example has.
double CrackQuantity(const Util::JsonValue& load, const std::string& quantity);

}  // namespace Orlix::VlSol::Test
