#pragma once

#include <limits>

#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/DetailedIntegrationResult.h"

namespace Orlix::Data::Velmo9 {

/// Serviceability response to a load or a deformation: both states and the factor between them.
struct SlsResponse {
  DetailedIntegrationResult uncracked;
  DetailedIntegrationResult cracked;
  /// 0 uncracked to 1 cracked; +infinity where the model does not interpolate, NaN where the factor
  /// is not known yet and follows from the cracking utilisation.
  double zeta{std::numeric_limits<double>::quiet_NaN()};
};

/// The three deformations of a serviceability response.
struct SlsDeformation {
  Deformation uncracked;
  Deformation cracked;
  Deformation interpolated;
};

}  // namespace Orlix::Data::Velmo9
