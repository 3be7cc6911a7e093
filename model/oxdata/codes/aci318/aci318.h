#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::Aci318 {

/// The data of ACI 318-14 and of ACI 318-19: constants, strength reduction, concretes of f'c 20 to
/// 55 MPa, reinforcement of Grade 40, 60 and 80, structural steels. They have no annexes and differ
/// in the strain from which on a section is tension-controlled: 0.005, and eps_ty + 0.003.
/// @pre the country is none.
CConcCodeData MakeData2014(CCountry::Code country);
CConcCodeData MakeData2019(CCountry::Code country);

}  // namespace Orlix::Data::Design::Aci318
