#pragma once

#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/UlSResult.h"

namespace Orlix::Data::Velmo9 {

/// The utilisation that an ultimate limit state case is judged by: of the load, or of the
/// deformation where deformations are imposed.
inline double GoverningUtilisation(const UlSResult& result, LoadAction action) {
  return action == LoadAction::load ? result.LoadUtilisation() : result.DeformationUtilisation();
}

}  // namespace Orlix::Data::Velmo9
