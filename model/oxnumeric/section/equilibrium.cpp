#include "model/oxnumeric/section/equilibrium.h"

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/section/gauge.h"

namespace Orlix::Numeric {
namespace {

// The elastic start is pulled back inside the strain limits: beyond them the curves are artificial.
constexpr double kStartGauge = 0.7;
// Added to the tangent, over the elastic one, so that plateaus keep a direction.
constexpr double kFirstRegularisation = 1e-13;
constexpr double kNextRegularisation = 1e-6;
// Makes the elastic tangent definite where bars on a line leave it singular: picks the smallest
// curvature.
constexpr double kSmallestStiffness = 1e-9;

// All vectors here are scaled: planes (e0, ky R, kz R), loads (N, My/R, Mz/R).
class Scaled {
 public:
  explicit Scaled(const CompiledSection& section) : r_(section.radius), elastic_(Tangent(section.elastic)) {
    const double smallest = kSmallestStiffness * elastic_.MaxDiagonal();
    elastic_ = elastic_ + Sym3{smallest, 0, 0, smallest, 0, smallest};
  }
  Vec3<double> Load(const Resultant& f) const { return {f.x, f.y / r_, f.z / r_}; }
  Plane ToPlane(const Vec3<double>& s) const { return {s.x, s.y / r_, s.z / r_}; }
  Sym3 Tangent(const Sym3& k) const {
    return {k.xx, k.xy / r_, k.xz / r_, k.yy / (r_ * r_), k.yz / (r_ * r_), k.zz / (r_ * r_)};
  }
  const Sym3& Elastic() const { return elastic_; }
  double Size(const Plane& d) const { return std::abs(d.x) + r_ * std::hypot(d.y, d.z); }

  // Solves (k + mu K_el) step = b with the smallest mu that makes the matrix definite.
  bool Solve(const Sym3& k, const Vec3<double>& b, Vec3<double>& step) const {
    double mu = kFirstRegularisation;
    for (int i = 0; i < 12; ++i) {
      if (SolveCholesky(k + mu * elastic_, b, step) && IsFinite(step)) return true;
      mu = i == 0 ? kNextRegularisation : 10.0 * mu;
    }
    return false;
  }

 private:
  double r_;
  Sym3 elastic_;
};

double Norm(const Vec3<double>& f) {
  return std::max({std::abs(f.x), std::abs(f.y), std::abs(f.z)});
}

Plane ElasticStart(const CompiledSection& section, const Scaled& scaled, const Resultant& load) {
  Vec3<double> s;
  if (!SolveCholesky(scaled.Elastic(), scaled.Load(load), s)) return {};
  const Plane d = scaled.ToPlane(s);
  if (!IsFinite(d)) return {};
  const double g = GaugeOf(section, d).value;
  if (!std::isfinite(g)) return {};
  return g > kStartGauge ? (kStartGauge / g) * d : d;
}

class Newton {
 public:
  Newton(const CompiledSection& section, const Resultant& load, CurveForm form)
      : section_(section), scaled_(section), load_(scaled_.Load(load)), form_(form) {}

  const Scaled& Scale() const { return scaled_; }

  // Runs from `d` until the residual is within `tolerance` or the steps are used up.
  EquilibriumResult Run(const Plane& d, double tolerance, int maxIterations) {
    EquilibriumResult best;
    best.plane = d;
    Evaluate(d, best);
    for (; best.iterations < maxIterations && best.residual > tolerance; ++best.iterations) {
      const Vec3<double> residual = scaled_.Load(best.response.force) - load_;
      Vec3<double> step;
      if (!scaled_.Solve(scaled_.Tangent(best.response.tangent), -1.0 * residual, step)) break;
      const double size = std::abs(step.x) + std::hypot(step.y, step.z);
      const double cap = 0.02 + 2.0 * scaled_.Size(best.plane);
      if (size > cap) step = (cap / size) * step;
      if (!Search(step, Dot(residual, step), best)) break;
    }
    best.converged = best.residual <= tolerance;
    return best;
  }

 private:
  void Evaluate(const Plane& d, EquilibriumResult& at) const {
    at.plane = d;
    at.response = IntegrateWithTangent(section_, d, form_);
    at.residual = Norm(scaled_.Load(at.response.force) - load_);
  }

  // Line search on h(t) = residual(d + t step)·step, which rises with t for curves that do not
  // soften and is negative at 0.
  bool Search(const Vec3<double>& step, double h0, EquilibriumResult& best) const {
    const Plane from = best.plane;
    double low = 0.0;
    double hLow = h0;
    double high = 0.0;
    double hHigh = 0.0;
    double t = 1.0;
    for (int i = 0; i < 30; ++i) {
      Evaluate(from + scaled_.ToPlane(t * step), best);
      if (!std::isfinite(best.residual)) return false;
      const double h = Dot(scaled_.Load(best.response.force) - load_, step);
      if (std::abs(h) <= 0.8 * std::abs(h0) || (i == 0 && h < 0.0)) return true;
      if (h > 0.0) {
        high = t;
        hHigh = h;
      } else {
        low = t;
        hLow = h;
      }
      if (high == 0.0) return true;
      const double part = std::clamp(-hLow / (hHigh - hLow), 0.1, 0.7);
      t = low + part * (high - low);
    }
    return true;
  }

  const CompiledSection& section_;
  Scaled scaled_;
  Vec3<double> load_;
  CurveForm form_;
};

}  // namespace

double ScaledNorm(const CompiledSection& section, const Resultant& f) {
  return std::max({std::abs(f.x), std::abs(f.y) / section.radius, std::abs(f.z) / section.radius});
}

EquilibriumResult SolveEquilibrium(const CompiledSection& section, const Resultant& load,
                                   const Plane* start, const EquilibriumOptions& options) {
  const double tolerance = std::max(options.floor * section.squash,
                                    options.relative * ScaledNorm(section, load));
  Newton newton(section, load, CurveForm::exact);
  Plane d = start != nullptr ? *start : ElasticStart(section, newton.Scale(), load);
  if (section.hasSteps) {
    // The ramp's minimum lies within the ramp's width of the exact one; where the exact curve then
    // does not converge, the minimum sits on the step.
    Newton ramp(section, load, CurveForm::ramp);
    EquilibriumResult onRamp = ramp.Run(d, tolerance, options.maxIterations);
    constexpr int kPolish = 8;
    EquilibriumResult exact = newton.Run(onRamp.plane, tolerance, kPolish);
    if (exact.converged || !onRamp.converged) {
      exact.converged = exact.residual <= options.accept * tolerance;
      return exact;
    }
    onRamp.onStep = true;
    onRamp.response = IntegrateWithTangent(section, onRamp.plane);
    return onRamp;
  }
  EquilibriumResult result = newton.Run(d, tolerance, options.maxIterations);
  result.converged = result.residual <= options.accept * tolerance;
  return result;
}

}  // namespace Orlix::Numeric
