#pragma once

#include <string>

namespace Orlix {

/// @return `value` with at most six significant digits, without trailing zeros, in fixed or
/// exponent form,
///         whichever is shorter in the manner of printf's %g; "inf", "-inf", "nan", and "0" for
///         either zero. The process locale has no influence.
std::string StringFrom(double value);

}  // namespace Orlix
