#pragma once

#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::Numeric {

/// How far a strain plane reaches towards the strain limits.
struct Gauge {
  /// Smallest factor by which the plane has to be divided to satisfy every limit: below 1 inside,
  /// 1 on the boundary of the strain domain; +infinity when locked-in strain uses up a limit.
  double value{};
  Vec3<double> row{};  ///< of the active limit: row·d = value on this face of the domain
  bool limitIsCap{};   ///< the active limit is a numerical cap, not a material limit
};

/// Evaluates all strain limits: failure strains at hull vertices and bars, and the limit under
/// uniform compression, w c_max + (1-w) c_min <= eps_c2 with w = eps_c2/eps_cu2, which is pivot C
/// of EN 1992-1-1, figure 6.1 and clause 39.1(b) of IS 456. The least compressed strain c_min is
/// taken over all regions that have such a limit.
/// @param d  plane about the section's centre; finite
Gauge GaugeOf(const CompiledSection& section, const Plane& d);

}  // namespace Orlix::Numeric
