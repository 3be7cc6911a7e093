#include "model/oxnumeric/section/equilibrium.h"

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/section/Scaling.h"
#include "model/oxnumeric/section/gauge.h"

namespace Orlix::Numeric {
namespace {

// The elastic start is pulled back inside the strain limits: beyond them the curves are artificial.
constexpr double kStartGauge = 0.7;
// Added to the tangent, over the elastic one, so that plateaus keep a direction.
constexpr double kFirstRegularisation = 1e-13;
constexpr double kNextRegularisation = 1e-6;
// Solves (k + mu K_el) step = b with the smallest mu that makes the matrix definite.
bool SolveRegularised(const Sym3& k, const Sym3& elastic, const Vec3<double>& b,
                      Vec3<double>& step) {
  double mu = kFirstRegularisation;
  for (int i = 0; i < 12; ++i) {
    if (SolveCholesky(k + mu * elastic, b, step) && IsFinite(step)) return true;
    mu = i == 0 ? kNextRegularisation : 10.0 * mu;
  }
  return false;
}

Plane ElasticStart(const CompiledSection& section, const Scaling& scaling, const Resultant& load) {
  Vec3<double> s;
  if (!SolveCholesky(scaling.Elastic(), scaling.Load(load), s)) return {};
  const Plane d = scaling.ToPlane(s);
  if (!IsFinite(d)) return {};
  const double g = GaugeOf(section, d).value;
  if (!std::isfinite(g)) return {};
  return g > kStartGauge ? (kStartGauge / g) * d : d;
}

class Newton {
 public:
  Newton(const CompiledSection& section, const Resultant& load, CurveForm form)
      : section_(section), scaling_(section), load_(scaling_.Load(load)), form_(form) {}

  const Scaling& Scale() const { return scaling_; }

  // Runs from `d` until the residual is within `tolerance` or the steps are used up.
  EquilibriumResult Run(const Plane& d, double tolerance, int maxIterations) {
    EquilibriumResult best;
    best.plane = d;
    Evaluate(d, best);
    for (; best.iterations < maxIterations && best.residual > tolerance; ++best.iterations) {
      const Vec3<double> residual = scaling_.Load(best.response.force) - load_;
      Vec3<double> step;
      if (!SolveRegularised(scaling_.Tangent(best.response.tangent), scaling_.Elastic(),
                            -1.0 * residual, step)) {
        break;
      }
      const double size = StrainSize(step);
      const double cap = 0.02 + 2.0 * StrainSize(scaling_.FromPlane(best.plane));
      if (size > cap) step = (cap / size) * step;
      if (!Search(step, Dot(residual, step), best)) break;
    }
    best.converged = best.residual <= tolerance && std::isfinite(tolerance);
    return best;
  }

 private:
  void Evaluate(const Plane& d, EquilibriumResult& at) const {
    at.plane = d;
    at.response = IntegrateWithTangent(section_, d, form_);
    at.residual = MaxNorm(scaling_.Load(at.response.force) - load_);
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
      Evaluate(from + scaling_.ToPlane(t * step), best);
      if (!std::isfinite(best.residual)) return false;
      const double h = Dot(scaling_.Load(best.response.force) - load_, step);
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
  Scaling scaling_;
  Vec3<double> load_;
  CurveForm form_;
};

}  // namespace

double ScaledNorm(const CompiledSection& section, const Resultant& f) {
  return std::max({std::abs(f.x), std::abs(f.y) / section.radius, std::abs(f.z) / section.radius});
}

EquilibriumResult SolveEquilibrium(const CompiledSection& section, const Resultant& load,
                                   const Plane* start, const EquilibriumOptions& options) {
  const double tolerance =
      std::max(options.floor * section.squash, options.relative * ScaledNorm(section, load));
  const auto isAccepted = [&](const EquilibriumResult& r) {
    const double bound = options.accept * tolerance;
    return r.residual <= bound && std::isfinite(bound);  // a load near overflow has no bound
  };
  Newton newton(section, load, CurveForm::exact);
  Plane d = start != nullptr ? *start : ElasticStart(section, newton.Scale(), load);
  if (section.hasSteps) {
    // From the smooth form to the exact one. The ramp's minimum lies within the ramp's width of the
    // exact one; where a sharper form does not converge, the minimum sits on a step of it.
    constexpr int kPolish = 8;
    Newton ramp(section, load, CurveForm::ramp);
    EquilibriumResult best = ramp.Run(d, tolerance, options.maxIterations);
    for (const CurveForm form : {CurveForm::regular, CurveForm::exact}) {
      if (form < options.sharpest) break;  // the forms are declared from the sharpest on
      Newton sharper(section, load, form);
      EquilibriumResult result = sharper.Run(best.plane, tolerance, kPolish);
      if (!result.converged && best.converged) {
        best.onStep = true;
        best.response = IntegrateWithTangent(section, best.plane);
        return best;
      }
      best = result;
    }
    best.converged = isAccepted(best);
    return best;
  }
  EquilibriumResult result = newton.Run(d, tolerance, options.maxIterations);
  result.converged = isAccepted(result);
  return result;
}

}  // namespace Orlix::Numeric
