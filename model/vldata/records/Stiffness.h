#pragma once

#include "model/oxutil/json_fwd.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Data::Velmo9 {

/// Secant stiffness: load over deformation, component by component. A divisor below 1e-15 gives
/// +infinity: not calculated.
struct Stiffness {
  double axial{};      ///< N / eps0 [N]
  double bendingYY{};  ///< Myy / kyy [Nm²]
  double bendingZZ{};  ///< Mzz / kzz [Nm²]

  /// {"EA", "EIyy", "EIzz"}; "-" for a value not calculated.
  Util::JsonValue toJson(Util::JsonAllocator& allocator) const;
};

Stiffness operator/(const VelmoLoad& load, const Deformation& deformation);

}  // namespace Orlix::Data::Velmo9
