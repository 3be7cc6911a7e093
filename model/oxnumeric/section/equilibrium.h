#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::Numeric {

/// Size of a resultant in force units: max(|N|, |My|/R, |Mz|/R) [N].
double ScaledNorm(const CompiledSection& section, const Resultant& f);

/// When `SolveEquilibrium` stops.
struct EquilibriumOptions {
  int maxIterations{60};
  double relative{1e-11};  ///< |F(d) - P| <= relative |P| …
  double floor{2e-14};     ///< … or <= floor F_s, in the scaled norm
  double accept{1000.0};   ///< out of steps: still converged within this multiple
  /// Sharpest form of curves with steps that is solved: `ramp` is enough where only the gauge
  /// counts.
  CurveForm sharpest{CurveForm::exact};
};

struct EquilibriumResult {
  Plane plane{};        ///< about the section's centre
  Response response{};  ///< at the plane, exact curves
  double residual{};    ///< |F - P| [N], scaled norm
  int iterations{};
  bool converged{};
  /// The equilibrium sits on a stress step, where the exact curve has no unique stress field (a
  /// stress block at no curvature, a bar on the edge of one); the plane is that of a steep ramp in
  /// its place, and so is the residual.
  bool onStep{};
};

/// Finds the strain plane that carries a load. Curves go on beyond their limits, so that the plane
/// exists for every load the geometry can take; whether the load is carried is the gauge's answer.
/// Newton on the exact tangent with a line search on the directional residual: converges from
/// anywhere for curves that do not soften. Allocates nothing.
/// @param load   about the section's centre
/// @param start  plane to start from; null: the elastic plane
EquilibriumResult SolveEquilibrium(const CompiledSection& section, const Resultant& load,
                                   const Plane* start = nullptr,
                                   const EquilibriumOptions& options = {});

}  // namespace Orlix::Numeric
