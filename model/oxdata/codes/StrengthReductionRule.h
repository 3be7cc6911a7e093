#pragma once

#include <variant>

#include "model/oxdata/codes/aci318/strength_reduction.h"
#include "model/oxdata/codes/as3600/strength_reduction.h"

namespace Orlix::Data::Design {

/// How a code reduces the nominal strength of a section: by the net tensile strain of its bars
/// (ACI 318, 21.2.2) or by the depth of the neutral axis in pure bending and the axial force
/// (AS 3600, Table 2.2.2), each with the numbers that the code at hand has.
using StrengthReductionRule =
    std::variant<Aci318::StrengthReductionParameters, As3600::StrengthReductionParameters>;

}  // namespace Orlix::Data::Design
