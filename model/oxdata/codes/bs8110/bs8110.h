#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::Bs8110 {

/// The data of BS 8110-1:1997 as it was published (gamma_m 1.05 of reinforcement, bars of
/// BS 4449:1997) and with Amendment 3 of 2005 (1.15, bars of BS 4449:2005; Grade 460 stays for
/// structures that are there). Concretes by cube strength C20 to C60, tendons of BS 5896,
/// structural steels of BS 5950-1. No annexes.
/// @pre the country is none.
CConcCodeData MakeData1997(CCountry::Code country);
CConcCodeData MakeData2005(CCountry::Code country);

}  // namespace Orlix::Data::Design::Bs8110
