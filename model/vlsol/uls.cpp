#include "model/vlsol/uls.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/failure.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/oxnumeric/section/kernel.h"

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

// A plane in the section's axes, with curvatures that are round-off of the search set to zero, so
// that symmetric cases have a clean neutral axis.
Vec3<double> Reported(const CompiledSection& section, const Plane& local) {
  constexpr double kRoundOff = 1e-13;  // a hundredth of the equilibrium's tolerance
  const double size = std::abs(local.x) + section.radius * std::hypot(local.y, local.z);
  const double noise = kRoundOff * size / section.radius;
  Plane clean = local;
  if (std::abs(clean.y) <= noise) clean.y = 0.0;
  if (std::abs(clean.z) <= noise) clean.z = 0.0;
  return section.ToOrigin(clean);
}

double Utilisation(const FailurePoint& failure) {
  return failure.found ? 1.0 / failure.lambda : kInfinity;
}

// Load utilisation, M/Mu and failure point of a load, seen from its plane with its gauge.
void FindCapacity(const CompiledSection& section, const Resultant& load, const Plane& plane,
                  double gauge, UlsCaseSolution& solution) {
  const Resultant local = section.LoadToLocal(load);
  const Numeric::PathPoint start{1.0, plane, gauge};
  const FailurePoint failure = Numeric::FindFailure(section, {{}, local}, start);
  solution.loadUtilisation = Utilisation(failure);
  if (failure.found) {
    solution.loadAtFailure = failure.lambda * load;
    solution.deformationAtFailure = Reported(section, failure.plane);
    solution.limitIsCap = failure.limitIsCap;
  }
  const double size = Numeric::ScaledNorm(section, load);
  const Resultant moments{0.0, load.y, load.z};
  if (Numeric::ScaledNorm(section, moments) <= kNegligible * size) {
    solution.momentRatio = solution.loadUtilisation <= 1.0 + kStatusMargin ? 0.0 : kInfinity;
  } else if (std::abs(load.x) <= kNegligible * size) {
    solution.momentRatio = solution.loadUtilisation;
  } else {
    const Numeric::LoadPath held{section.LoadToLocal({load.x, 0.0, 0.0}), moments};
    solution.momentRatio = Utilisation(Numeric::FindFailure(section, held, start));
  }
}

}  // namespace

UlsCaseSolution SolveUlsLoad(const CompiledSection& section, const Vec3<double>& load) {
  UlsCaseSolution solution;
  solution.input = load;
  solution.load = load;
  solution.loadUtilisation = solution.deformationUtilisation = solution.momentRatio = kInfinity;
  if (!IsFinite(load)) return solution;

  const Numeric::EquilibriumResult equilibrium =
      Numeric::SolveEquilibrium(section, section.LoadToLocal(load));
  const double gauge = Numeric::GaugeOf(section, equilibrium.plane).value;
  if (equilibrium.converged) {
    solution.deformation = Reported(section, equilibrium.plane);
    solution.deformationUtilisation = gauge;
  }
  if (load == Vec3<double>{}) {
    solution.loadUtilisation = solution.momentRatio = 0.0;
    solution.carried = equilibrium.converged && gauge <= 1.0 + kStatusMargin;
    return solution;
  }
  // Without equilibrium the load counts as outside: its capacity, if it has one, lies below it.
  const double seenGauge = equilibrium.converged ? gauge : std::max(2.0, gauge);
  FindCapacity(section, load, equilibrium.plane, seenGauge, solution);
  solution.carried = equilibrium.converged && solution.loadUtilisation <= 1.0 + kStatusMargin;
  return solution;
}

UlsCaseSolution SolveUlsDeformation(const CompiledSection& section, const Vec3<double>& plane) {
  UlsCaseSolution solution;
  solution.input = plane;
  solution.deformation = plane;
  solution.loadUtilisation = solution.deformationUtilisation = solution.momentRatio = kInfinity;
  if (!IsFinite(plane)) return solution;

  const Plane local = section.ToLocal(plane);
  const double gauge = Numeric::GaugeOf(section, local).value;
  solution.deformationUtilisation = gauge;
  solution.load = section.LoadToOrigin(Numeric::Integrate(section, local));
  solution.carried = gauge <= 1.0 + kStatusMargin;
  const double size = Numeric::ScaledNorm(section, solution.load);
  if (size <= kNegligible * section.squash) {
    solution.loadUtilisation = solution.momentRatio = 0.0;
  } else {
    FindCapacity(section, solution.load, local, gauge, solution);
  }
  solution.loadAtFailure = solution.deformationAtFailure = {};
  solution.limitIsCap = false;
  if (gauge > 0.0 && std::isfinite(gauge)) {
    const Plane failing = (1.0 / gauge) * local;
    solution.deformationAtFailure = section.ToOrigin(failing);
    solution.loadAtFailure = section.LoadToOrigin(Numeric::Integrate(section, failing));
    solution.limitIsCap = Numeric::GaugeOf(section, failing).limitIsCap;
  }
  return solution;
}

}  // namespace Orlix::VlSol
