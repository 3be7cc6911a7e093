#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::En1992 {

/// The data of EN 1992-1-1:2004 with a country's national choices: constants, concretes C12/15 to
/// C90/105, bars with a horizontal and with an inclined upper branch, strands and the structural
/// steels S235 to S460.
/// @param country  none: the recommended values
/// @pre            the country is one of `KnownCodes` for this code.
CConcCodeData MakeData(CCountry::Code country);

/// The same with the choices of an annex that the user wrote.
/// @pre  the annex has an allowed choice for every one of `Parameters`.
CConcCodeData MakeData(const NationalAnnex& annex);

}  // namespace Orlix::Data::Design::En1992
