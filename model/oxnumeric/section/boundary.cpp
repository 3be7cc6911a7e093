#include "model/oxnumeric/section/boundary.h"

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/section/Scaling.h"

namespace Orlix::Numeric {
namespace {

constexpr int kMaxIterations = 25;
// Relative residual and its floor over the squash force.
constexpr double kRelative = 1e-10;
constexpr double kFloor = 2e-13;
// A step that does not lower the residual is damped so often by this factor …
constexpr int kDampings = 6;
constexpr double kDamping = 0.4;
// … and taken whole all the same so many times, since the active limit may have changed.
constexpr int kFreeSteps = 3;
constexpr double kRegularisation = 1e-13;

class BoundaryNewton {
 public:
  BoundaryNewton(const CompiledSection& section, const LoadPath& path, double target,
                 CurveForm form)
      : section_(section),
        target_(target),
        form_(form),
        scaling_(section),
        fixed_(scaling_.Load(path.fixed)),
        scaled_(scaling_.Load(path.scaled)) {}

  BoundaryPoint Run(const Plane& start) {
    State at;
    if (!Evaluate(start, at)) return at.point;
    int freeSteps = kFreeSteps;
    for (int i = 0; i < kMaxIterations; ++i) {
      Plane step;
      const bool solved = Linearise(at, step);
      if (at.point.residual <= Tolerance(at)) {
        at.point.converged = true;
        return at.point;
      }
      if (!solved || !Advance(step, freeSteps, at)) return at.point;
    }
    return at.point;
  }

 private:
  struct State {
    BoundaryPoint point;
    Response response;
  };

  double Tolerance(const State& at) const {
    const double load = MaxNorm(fixed_ + at.point.lambda * scaled_);
    return std::max(kRelative * load, kFloor * section_.squash);
  }

  // Radial return of a plane to the gauge, lambda by least squares. False when it has no direction.
  bool Evaluate(const Plane& d, State& at) const {
    at.point.gauge = GaugeOf(section_, d);
    const double g = at.point.gauge.value;
    if (!(g > 0.0) || !std::isfinite(g)) return false;
    // The gauge is homogeneous: along a ray it scales and the active limit stays.
    at.point.plane = (target_ / g) * d;
    at.point.gauge.value = target_;
    at.response = IntegrateWithTangent(section_, at.point.plane, form_);
    const Vec3<double> carried = scaling_.Load(at.response.force) - fixed_;
    at.point.lambda = Dot(carried, scaled_) / Dot(scaled_, scaled_);
    at.point.residual = MaxNorm(carried - at.point.lambda * scaled_);
    return std::isfinite(at.point.residual);
  }

  // Solves  K δd - B δλ = -(F - A - λB),  a·δd = 0  for the step and, with (0, 0, 0, 1) on the
  // right, for the rates along the path. All in scaled unknowns, λ in units of force.
  bool Linearise(State& at, Plane& step) const {
    const Sym3 k = scaling_.Tangent(at.response.tangent) + kRegularisation * scaling_.Elastic();
    const double stiffness = scaling_.Elastic().MaxDiagonal();
    const double force = MaxNorm(scaled_);
    const Vec3<double> b = (1.0 / force) * scaled_;
    const Vec3<double> residual =
        scaling_.Load(at.response.force) - fixed_ - at.point.lambda * scaled_;
    const Vec3<double> r = (-1.0 / stiffness) * residual;
    const Vec3<double> row = scaling_.Row(at.point.gauge.row);
    const double rowSize = MaxNorm(row);
    if (!(rowSize > 0.0)) return false;
    const double s = 1.0 / stiffness;
    Augmented4 m{{{s * k.xx, s * k.xy, s * k.xz, -b.x, r.x, 0.0},
                  {s * k.xy, s * k.yy, s * k.yz, -b.y, r.y, 0.0},
                  {s * k.xz, s * k.yz, s * k.zz, -b.z, r.z, 0.0},
                  {row.x / rowSize, row.y / rowSize, row.z / rowSize, 0.0, 0.0, 1.0 / rowSize}}};
    at.point.planeRate = {};
    at.point.lambdaRate = 0.0;
    constexpr double kSingular = 1e-15;
    if (!SolveGauss(m, kSingular)) return false;
    step = scaling_.ToPlane({m[0][4], m[1][4], m[2][4]});
    at.point.planeRate = scaling_.ToPlane({m[0][5], m[1][5], m[2][5]});
    at.point.lambdaRate = m[3][5] * stiffness / force;
    return IsFinite(step) && IsFinite(at.point.planeRate);
  }

  bool Advance(Plane step, int& freeSteps, State& at) const {
    const double size = StrainSize(scaling_.FromPlane(step));
    const double cap = StrainSize(scaling_.FromPlane(at.point.plane));
    if (size > cap) step = (cap / size) * step;
    State next;
    State whole;
    bool wholeIsValid = false;
    double t = 1.0;
    for (int i = 0; i <= kDampings; ++i, t *= kDamping) {
      if (!Evaluate(at.point.plane + t * step, next)) continue;
      if (next.point.residual < at.point.residual) {
        at = next;
        return true;
      }
      if (i == 0) {
        whole = next;
        wholeIsValid = true;
      }
    }
    if (freeSteps == 0 || !wholeIsValid) return false;
    --freeSteps;
    at = whole;
    return true;
  }

  const CompiledSection& section_;
  double target_;
  CurveForm form_;
  Scaling scaling_;
  Vec3<double> fixed_;
  Vec3<double> scaled_;
};

}  // namespace

BoundaryPoint SolveAtGauge(const CompiledSection& section, const LoadPath& path, const Plane& start,
                           double target, CurveForm form) {
  return BoundaryNewton(section, path, target, form).Run(start);
}

}  // namespace Orlix::Numeric
