#pragma once

#include <string>

namespace Orlix {

/// A utilisation with three decimals, or as many as it takes to keep it on its side of 1; what is
/// within 1e-12 of 1, less than any solution is good for, is 1.
/// "no capacity" for +infinity, "-" for what is not calculated.
std::string UtilisationText(double utilisation);

/// A finite number with so many decimals, whatever the locale.
std::string Fixed(double value, int decimals);

}  // namespace Orlix
