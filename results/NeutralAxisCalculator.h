#pragma once

#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/NeutralAxisData.h"

namespace Orlix {

/// Where the neutral axis of a strain plane lies.
class NeutralAxisCalculator {
 public:
  /// The line of zero strain of eps(y, z) = eps0 + kyy z - kzz y: its direction from the y axis,
  /// atan2(kzz, kyy) [rad], and its signed distance from the origin, -eps0 / hypot(kyy, kzz) [m].
  ///
  /// The angle is NaN when both curvatures are below 1e-10 /m in magnitude, the offset when their
  /// vector is; so a plane just at the limit can have an offset without an angle.
  static NeutralAxisData ComputeNeutralAxisData(const Data::Velmo9::Deformation& deformation);

 private:
  static double ComputeNeutralAxisAngle(const Data::Velmo9::Deformation& deformation);
  static double ComputeNeutralAxisOffset(const Data::Velmo9::Deformation& deformation);
};

}  // namespace Orlix
