#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::CsaA23 {

/// The data of CSA A23.3-14: constants, concretes of f'c 20 to 80 MPa, bars of CSA G30.18,
/// structural steels of CSA G40.21. Resistance factors of materials take the place of partial
/// factors, gamma = 1/phi. The factored axial resistance has the cap of 10.10.4. No annexes.
/// @pre the country is none.
CConcCodeData MakeData(CCountry::Code country);

}  // namespace Orlix::Data::Design::CsaA23
