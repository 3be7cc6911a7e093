#pragma once

#include <string>

#include "model/vldata/records/CaseSLSDetails.h"

namespace Orlix {

/// A utilisation with three decimals, or as many as it takes to keep it on its side of 1; what is
/// within 1e-12 of 1, less than any solution is good for, is 1.
/// "no capacity" for +infinity, "-" for what is not calculated.
std::string UtilisationText(double utilisation);

/// A cracking utilisation, as UtilisationText; "-" where the concrete bears no tension.
std::string CrackingText(double utilisation);

/// Whether a serviceability case has strains, stresses and stiffness.
bool HasSolution(const Data::Velmo9::CaseSLSDetails& record);

/// "cracked", "uncracked", "NO SOLUTION", or "nothing applied" for an empty case.
const char* StateText(const Data::Velmo9::CaseSLSDetails& record);

/// A finite number with so many decimals, whatever the locale.
std::string Fixed(double value, int decimals);

}  // namespace Orlix
