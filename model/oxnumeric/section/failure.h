#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/gauge.h"

namespace Orlix::Numeric {

/// The family of loads A + lambda B along which the section is brought to failure: proportional
/// (A = 0) or with the axial force held. About the section's centre.
struct LoadPath {
  Resultant fixed{};   ///< A
  Resultant scaled{};  ///< B, not zero

  Resultant At(double lambda) const { return fixed + lambda * scaled; }
};

/// A point of the path with its equilibrium plane and gauge.
struct PathPoint {
  double lambda{};
  Plane plane{};
  double gauge{};
};

/// Where a path leaves the strain domain.
struct FailurePoint {
  bool found{};       ///< false: no state of the path with a force worth the name lies inside
  double lambda{};    ///< capacity factor
  Plane plane{};      ///< about the section's centre; gauge 1, or below it at a load peak
  bool limitIsCap{};  ///< the limit reached is a numerical cap on strain
  bool isPeak{};      ///< the load peaks before a strain limit is reached (softening curves)
};

/// Finds the failure point of a load path, as seen from a point of it in equilibrium: the exit of
/// the strain domain at or beyond the point when that lies inside, at or before it when outside.
/// Newton on (plane, lambda) with the active limit as fourth equation; continuation along the path
/// and bracketing of gauge(plane(lambda)) = 1 behind it. Allocates nothing.
/// Error: residual at most 1e-10 of the load, 2e-13 F_s at least, in the scaled norm.
FailurePoint FindFailure(const CompiledSection& section, const LoadPath& path,
                         const PathPoint& start);

/// Finds the failure point of a load path beside that of a neighbouring path: Newton alone, several
/// times cheaper than `FindFailure`.
/// @param near  failure plane of the neighbouring path, about the section's centre
/// @return not found where Newton fails or leaves: then `FindFailure` has to look
FailurePoint FindFailureBeside(const CompiledSection& section, const LoadPath& path,
                               const Plane& near);

}  // namespace Orlix::Numeric
