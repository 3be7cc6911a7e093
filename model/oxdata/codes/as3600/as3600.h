#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::As3600 {

/// The data of AS 3600:2018: constants, strength reduction, the standard grades of concrete, bars
/// of AS/NZS 4671, structural steels of AS/NZS 3679.1. The code has no annexes.
/// @pre the country is none.
CConcCodeData MakeData(CCountry::Code country);

}  // namespace Orlix::Data::Design::As3600
