#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/SlsResponse.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Data {

/// The deformation that a serviceability case is reported with: between the uncracked and the
/// cracked state under the interpolated model (22), the governing one of them elsewhere.
/// Source: EN 1992-1-1, 7.4.3(3), (7.18) and (7.19).
class CInterpolateStrain {
 public:
  /// @param load      the load of the case
  /// @param response  both states; a zeta that is NaN is computed here
  /// @param tensionStiffening  false: a cracked section counts as fully cracked
  CInterpolateStrain(const Velmo9::VelmoLoad& load, const Velmo9::SlsResponse& response,
                     const CVelmoData& document, const Velmo9::VelmoSection& section, int iTask,
                     bool tensionStiffening);

  const Velmo9::Deformation& InterpolatedStrain() const { return interpolated_; }
  /// Cracking utilisation of the uncracked state above 1.
  bool IsCracked() const { return isCracked_; }
  /// 0 uncracked to 1 fully cracked; +infinity where the model does not interpolate.
  double Zeta() const { return zeta_; }

 private:
  Velmo9::Deformation interpolated_;
  bool isCracked_{};
  double zeta_{};
};

}  // namespace Orlix::Data
