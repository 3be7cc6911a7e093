#include "model/vlsol/uls.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"
#include "model/vlsol/reported_plane.h"

namespace Orlix::VlSol {
namespace {

using Data::Velmo9::UlsCaseSolution;
using Numeric::CompiledSection;
using Numeric::FailurePoint;
using Numeric::Plane;
using Numeric::Resultant;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
// Moments or axial forces below this part of the load are round-off of its input.
constexpr double kNegligible = 1e-12;

double Utilisation(const FailurePoint& failure) {
  return failure.found ? 1.0 / failure.lambda : kInfinity;
}

Numeric::PathPoint StartOf(const CompiledSection& section,
                           const Numeric::EquilibriumResult& equilibrium) {
  const double gauge = Numeric::GaugeOf(section, equilibrium.plane).value;
  // Without equilibrium the load counts as outside: its capacity, if it has one, lies below it.
  return {1.0, equilibrium.plane, equilibrium.converged ? gauge : std::max(2.0, gauge)};
}

// The load's nominal failure, no further than the code lets the axial force go.
FailurePoint NominalFailure(const CompiledSection& section, const Resultant& local,
                            const Numeric::PathPoint& start, const StrengthReduction* reduction) {
  FailurePoint failure = Numeric::FindFailure(section, {{}, local}, start);
  if (reduction == nullptr || !failure.found || local.x >= 0.0) return failure;
  const double capped = reduction->axialCap / -local.x;
  if (capped >= failure.lambda) return failure;
  failure.lambda = capped;
  failure.limitIsCap = false;
  failure.plane = Numeric::SolveEquilibrium(section, capped * local, &failure.plane).plane;
  return failure;
}

double MomentRatio(const CompiledSection& section, const Resultant& load,
                   const Numeric::PathPoint& start, const StrengthReduction* reduction,
                   double loadUtilisation) {
  const double size = Numeric::ScaledNorm(section, load);
  const Resultant moments{0.0, load.y, load.z};
  if (Numeric::ScaledNorm(section, moments) <= kNegligible * size) {
    return loadUtilisation <= 1.0 + kStatusMargin ? 0.0 : kInfinity;
  }
  if (std::abs(load.x) <= kNegligible * size) return loadUtilisation;
  if (reduction != nullptr) {
    const auto factor = ReducedMomentFactor(section, *reduction, load, start.plane);
    return factor ? 1.0 / *factor : kInfinity;
  }
  const Numeric::LoadPath held{section.LoadToLocal({load.x, 0.0, 0.0}), moments};
  return Utilisation(Numeric::FindFailure(section, held, start));
}

// Load utilisation, M/Mu, reduction factor and failure point of a load.
// @return the design load over that which the stresses of a plane make up
double FindCapacity(const CompiledSection& section, const Resultant& load,
                    const Numeric::PathPoint& start, const StrengthReduction* reduction,
                    UlsCaseSolution& solution) {
  const FailurePoint nominal = NominalFailure(section, section.LoadToLocal(load), start, reduction);
  double factor = 1.0;
  if (nominal.found && reduction != nullptr) {
    solution.reductionFactor = reduction->Phi(section, nominal.plane);
    factor = solution.reductionFactor * reduction->LineFactor(section, nominal.plane);
  }
  if (nominal.found && factor > 0.0) {
    const double lambda = factor * nominal.lambda;
    solution.loadUtilisation = 1.0 / lambda;
    solution.loadAtFailure = lambda * load;
    solution.deformationAtFailure = ReportedPlane(section, nominal.plane);
    solution.limitIsCap = nominal.limitIsCap;
  }
  solution.momentRatio = MomentRatio(section, load, start, reduction, solution.loadUtilisation);
  return factor;
}

UlsCaseSolution Unsolved(const Vec3<double>& input) {
  UlsCaseSolution solution;
  solution.input = input;
  solution.loadUtilisation = solution.deformationUtilisation = solution.momentRatio = kInfinity;
  return solution;
}

}  // namespace

UlsCaseSolution SolveUlsLoad(const CompiledSection& section, const Vec3<double>& load,
                             const StrengthReduction* reduction) {
  UlsCaseSolution solution = Unsolved(load);
  solution.load = load;
  if (!IsFinite(load)) return solution;

  const bool isLoaded = load != Vec3<double>{};
  Numeric::EquilibriumOptions options;
  // Under strength reduction the plane is that of another load: here it is a place to start from.
  if (isLoaded && reduction != nullptr) options.sharpest = Numeric::CurveForm::ramp;
  Numeric::EquilibriumResult equilibrium =
      Numeric::SolveEquilibrium(section, section.LoadToLocal(load), nullptr, options);
  double factor = 1.0;
  if (isLoaded) {
    factor = FindCapacity(section, load, StartOf(section, equilibrium), reduction, solution);
  }
  if (isLoaded && reduction != nullptr) {
    const Resultant nominal = section.LoadToLocal((1.0 / factor) * load);
    if (IsFinite(nominal)) {
      equilibrium = Numeric::SolveEquilibrium(section, nominal, &equilibrium.plane);
    } else {  // a factor of zero: nothing is carried
      equilibrium.converged = false;
    }
  }
  if (equilibrium.converged) {
    solution.deformation = ReportedPlane(section, equilibrium.plane);
    solution.deformationUtilisation = Numeric::GaugeOf(section, equilibrium.plane).value;
  }
  if (!isLoaded) {
    solution.loadUtilisation = solution.momentRatio = 0.0;
    solution.carried =
        equilibrium.converged && solution.deformationUtilisation <= 1.0 + kStatusMargin;
    return solution;
  }
  solution.carried = solution.loadUtilisation <= 1.0 + kStatusMargin;
  if (!equilibrium.converged && solution.carried) {
    // At the peak of a softening section Newton finds no way, but the failure plane is the answer.
    constexpr double kNearPeak = 1e-3;
    solution.carried = solution.loadUtilisation >= 1.0 - kNearPeak;
    if (solution.carried) {
      solution.deformation = solution.deformationAtFailure;
      solution.deformationUtilisation =
          Numeric::GaugeOf(section, section.ToLocal(solution.deformation)).value;
    }
  }
  return solution;
}

UlsCaseSolution SolveUlsDeformation(const CompiledSection& section, const Vec3<double>& plane,
                                    const StrengthReduction* reduction) {
  UlsCaseSolution solution = Unsolved(plane);
  solution.deformation = plane;
  if (!IsFinite(plane)) return solution;

  const Plane local = section.ToLocal(plane);
  const double gauge = Numeric::GaugeOf(section, local).value;
  const bool hasFailure = gauge > 0.0 && std::isfinite(gauge);
  const Plane failing = hasFailure ? (1.0 / gauge) * local : local;
  const double phi = reduction != nullptr ? reduction->Phi(section, failing) : 1.0;
  const double factor = reduction != nullptr ? phi * reduction->LineFactor(section, failing) : 1.0;
  solution.deformationUtilisation = gauge;
  solution.load = factor * section.LoadToOrigin(Numeric::Integrate(section, local));
  solution.carried = gauge <= 1.0 + kStatusMargin;
  const double size = Numeric::ScaledNorm(section, solution.load);
  if (size <= kNegligible * section.squash) {
    solution.loadUtilisation = solution.momentRatio = 0.0;
  } else {
    // The plane carries the load over the factor: there the search begins on the path.
    FindCapacity(section, solution.load, {1.0 / factor, local, gauge}, reduction, solution);
  }
  solution.reductionFactor = phi;
  solution.loadAtFailure = solution.deformationAtFailure = {};
  solution.limitIsCap = false;
  if (hasFailure) {
    solution.deformationAtFailure = section.ToOrigin(failing);
    solution.loadAtFailure = factor * section.LoadToOrigin(Numeric::Integrate(section, failing));
    solution.limitIsCap = Numeric::GaugeOf(section, failing).limitIsCap;
  }
  return solution;
}

}  // namespace Orlix::VlSol
