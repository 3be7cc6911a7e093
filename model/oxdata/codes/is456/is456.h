#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::Is456 {

/// The data of IS 456:2000: constants, concretes M20 to M55, mild steel Fe 250 and cold-worked bars
/// Fe 415 and Fe 500, structural steels of IS 2062 by IS 800:2007. No annexes.
/// @pre the country is none.
CConcCodeData MakeData(CCountry::Code country);

}  // namespace Orlix::Data::Design::Is456
