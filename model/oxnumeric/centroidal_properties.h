#pragma once

#include <limits>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/area_moments.h"

namespace Orlix::Numeric {

/// Area and second moments about the centroid. Where there is no area all but `area` are NaN: not
/// calculated.
struct CentroidalProperties {
  double area{};                        ///< [m²], or N when the moments are weighted by a modulus
  Vec2<double> centroid{kNone, kNone};  ///< (y, z) [m]
  double iyy{kNone};                    ///< ∫ z² dA, bending about the y axis [m⁴]
  double izz{kNone};                    ///< ∫ y² dA, bending about the z axis [m⁴]
  double iyz{kNone};                    ///< ∫ y z dA [m⁴]
  double major{kNone};                  ///< the largest second moment about any axis [m⁴]
  double minor{kNone};                  ///< the smallest [m⁴]
  /// From the y axis to the axis that `major` is about, anticlockwise, in (-π/2, π/2] [rad]; 0
  /// where all axes are alike.
  double angle{kNone};

 private:
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
};

/// Law:   a region turned by an angle keeps `major` and `minor` and adds it to `angle`.
/// Error: what is below 1e-12 of the region's size, in a position, or of iyy + izz, in iyz, comes
/// out
///        as zero; the axes count as alike when major - minor is below 1e-10 of that sum.
CentroidalProperties CentroidalPropertiesOf(const AreaMoments& moments);

}  // namespace Orlix::Numeric
