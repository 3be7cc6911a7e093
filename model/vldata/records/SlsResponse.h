#pragma once

#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/DetailedIntegrationResult.h"

namespace Orlix::Data::Velmo9 {

/// Serviceability response to a load: both states and the factor between them.
struct SlsResponse {
  DetailedIntegrationResult uncracked;
  DetailedIntegrationResult cracked;
  double zeta{};  ///< 0 uncracked, 1 cracked
};

/// The three deformations of a serviceability response.
struct SlsDeformation {
  Deformation uncracked;
  Deformation cracked;
  Deformation interpolated;
};

}  // namespace Orlix::Data::Velmo9
