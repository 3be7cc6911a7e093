#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::Aci318 {

/// The data of ACI 318-19: constants, strength reduction, concretes of f'c 20 to 55 MPa,
/// reinforcement of Grade 40, 60 and 80, structural steels. It has no annexes.
/// @pre the country is none.
CConcCodeData MakeData(CCountry::Code country);

}  // namespace Orlix::Data::Design::Aci318
