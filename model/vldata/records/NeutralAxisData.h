#pragma once

#include <limits>

namespace Orlix {

/// The line of zero strain; both members are NaN for a plane without curvature.
struct NeutralAxisData {
  double angle{std::numeric_limits<double>::quiet_NaN()};   ///< from the y axis [rad], -π..π
  double offset{std::numeric_limits<double>::quiet_NaN()};  ///< signed distance from the origin [m]
};

}  // namespace Orlix
