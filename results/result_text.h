#pragma once

#include <string>

#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/UlSResult.h"

namespace Orlix {

/// The utilisation that a case is judged by: of the load, or of the deformation where deformations
/// are imposed.
double GoverningUtilisation(const Data::Velmo9::UlSResult& result, LoadAction action);

/// A utilisation with three decimals, or as many as it takes to keep it on its side of 1.
/// "no capacity" for +infinity, "-" for what is not calculated.
std::string UtilisationText(double utilisation);

/// A finite number with so many decimals, whatever the locale.
std::string Fixed(double value, int decimals);

}  // namespace Orlix
