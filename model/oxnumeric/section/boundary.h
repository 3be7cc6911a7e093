#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::Numeric {

/// A point of a load path at a given gauge, and how the path goes on from it.
struct BoundaryPoint {
  Plane plane{};
  double lambda{};
  Gauge gauge{};
  double residual{};    ///< |F(plane) - A - lambda B| [N], scaled norm
  Plane planeRate{};    ///< d plane / d gauge along the equilibrium path
  double lambdaRate{};  ///< d lambda / d gauge; negative: the path enters the domain here
  bool converged{};
};

/// Finds the point of a load path whose plane has the gauge `target`, near a given plane: Newton
/// on (plane, lambda) with the active limit as fourth equation and radial return to the gauge.
/// @param start  plane to start from; its direction counts, not its length
BoundaryPoint SolveAtGauge(const CompiledSection& section, const LoadPath& path, const Plane& start,
                           double target, CurveForm form = CurveForm::regular);

}  // namespace Orlix::Numeric
