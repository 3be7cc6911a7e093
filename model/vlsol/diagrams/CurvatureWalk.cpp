#include "model/vlsol/diagrams/CurvatureWalk.h"

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/gauge.h"

namespace Orlix::VlSol {

using Numeric::CompiledSection;
using Numeric::CurveForm;
using Numeric::Plane;
using Numeric::Sym3;

namespace {

constexpr double kRelative = 1e-12;
constexpr double kFloor = 2e-14;  // of the squash force
constexpr double kAccept = 1e3;   // out of steps: still converged within this multiple
constexpr int kIterations = 40;
constexpr int kPolish = 8;

double MaxNorm(Vec2<double> r) { return std::max(std::abs(r.x), std::abs(r.y)); }

}  // namespace

CurvatureWalk::CurvatureWalk(const CompiledSection& section, double axial, double angle)
    : section_(section),
      along_{0.0, std::cos(angle), std::sin(angle)},
      across_{0.0, -std::sin(angle), std::cos(angle)},
      held_(section.LoadToLocal({axial, 0.0, 0.0})) {}

CurvatureWalk::State CurvatureWalk::Of(const Plane& plane) const {
  const Numeric::Response r = Numeric::IntegrateWithTangent(section_, plane);
  const Vec3<double> row = r.tangent * along_;
  const Vec3<double> side = r.tangent * across_;
  const double a = r.tangent.xx;
  const double b = side.x;
  const double c = Dot(side, across_);
  const double across = Dot(row, across_);
  const double det = a * c - b * b;
  State state;
  state.curvature = Dot(plane, along_);
  state.moment = Dot(r.force - held_, along_);
  // What axial strain and curvature across take over as they follow.
  const double yielded =
      det > 0.0 ? (c * row.x * row.x - 2.0 * b * row.x * across + a * across * across) / det : 0.0;
  state.stiffness = Dot(row, along_) - yielded;
  state.plane = plane;
  state.gauge = Numeric::GaugeOf(section_, plane).value;
  state.converged = true;
  return state;
}

CurvatureWalk::State CurvatureWalk::Start() const {
  const auto e = Numeric::SolveEquilibrium(section_, held_);
  State state = Of(e.plane);
  state.moment = 0.0;
  state.converged = e.converged;
  return state;
}

CurvatureWalk::State CurvatureWalk::At(double curvature, const Plane& near) const {
  Trial at = Evaluate(near + (curvature - Dot(near, along_)) * along_, CurveForm::regular);
  bool converged = Solve(CurveForm::regular, kIterations, at);
  if (converged && section_.hasSteps) {
    // Where a bar sits on the step itself the state of the regular form stands.
    Trial exact = Evaluate(at.plane, CurveForm::exact);
    if (Solve(CurveForm::exact, kPolish, exact)) at = exact;
  }
  State state = Of(at.plane);
  state.curvature = curvature;
  state.converged = converged;
  return state;
}

CurvatureWalk::Trial CurvatureWalk::Evaluate(const Plane& plane, CurveForm form) const {
  Trial trial{plane, Numeric::IntegrateWithTangent(section_, plane, form), {}};
  const Vec3<double> r = trial.response.force - held_;
  trial.residual = {r.x, Dot(r, across_) / section_.radius};
  return trial;
}

double CurvatureWalk::Tolerance(const Trial& at) const {
  return std::max(kFloor * section_.squash,
                  kRelative * Numeric::ScaledNorm(section_, at.response.force));
}

// Newton's step in (axial strain, curvature across times R), with as much of the elastic stiffness
// added as makes the matrix definite.
bool CurvatureWalk::Step(const Sym3& tangent, Vec2<double> residual, Vec2<double>& step) const {
  constexpr double kFirst = 1e-13;
  constexpr double kNext = 1e-6;
  constexpr int kTries = 9;
  const double r = section_.radius;
  double mu = kFirst;
  for (int i = 0; i < kTries; ++i, mu = i == 1 ? kNext : 10.0 * mu) {
    const Sym3 k = tangent + mu * section_.elastic;
    const Vec3<double> side = k * across_;
    const double a = k.xx;
    const double b = side.x / r;
    const double c = Dot(side, across_) / (r * r);
    const double det = a * c - b * b;
    if (!(a > 0.0) || !(det > 0.0)) continue;
    step = {-(c * residual.x - b * residual.y) / det, -(a * residual.y - b * residual.x) / det};
    if (std::isfinite(step.x) && std::isfinite(step.y)) return true;
  }
  return false;
}

// Line search on residual·step, which rises from below zero along a step of curves that do not
// soften.
bool CurvatureWalk::Advance(Vec2<double> step, CurveForm form, Trial& at) const {
  const double size = std::abs(step.x) + std::abs(step.y);
  const double cap = 0.02 + 2.0 * (std::abs(at.plane.x) +
                                   section_.radius * Length(Vec2<double>{at.plane.y, at.plane.z}));
  if (size > cap) step = (cap / size) * step;
  const Plane from = at.plane;
  const Plane move = Plane{step.x, 0.0, 0.0} + (step.y / section_.radius) * across_;
  const double h0 = Dot(at.residual, step);
  double low = 0.0;
  double hLow = h0;
  double high = 0.0;
  double hHigh = 0.0;
  double t = 1.0;
  constexpr int kTrials = 30;
  for (int i = 0; i < kTrials; ++i) {
    at = Evaluate(from + t * move, form);
    const double h = Dot(at.residual, step);
    if (!std::isfinite(h)) return false;
    if (std::abs(h) <= 0.8 * std::abs(h0) || (i == 0 && h < 0.0)) return true;
    (h > 0.0 ? high : low) = t;
    (h > 0.0 ? hHigh : hLow) = h;
    if (high == 0.0) return true;
    t = low + std::clamp(-hLow / (hHigh - hLow), 0.1, 0.7) * (high - low);
  }
  return true;
}

bool CurvatureWalk::Solve(CurveForm form, int iterations, Trial& at) const {
  for (int i = 0; i < iterations; ++i) {
    const double size = MaxNorm(at.residual);
    if (size <= Tolerance(at)) return true;
    Vec2<double> step;
    if (!std::isfinite(size) || !Step(at.response.tangent, at.residual, step)) return false;
    if (!Advance(step, form, at)) return false;
  }
  return MaxNorm(at.residual) <= kAccept * Tolerance(at);
}

}  // namespace Orlix::VlSol
