#include "model/oxnumeric/section/failure.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/oxnumeric/section/Scaling.h"
#include "model/oxnumeric/section/boundary.h"
#include "model/oxnumeric/section/equilibrium.h"

namespace Orlix::Numeric {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
// A force below this part of the squash force is no capacity: plain concrete in tension or bending.
constexpr double kNoCapacity = 1e-9;
// Nor is one below this part of the force held: ten times the residual that an equilibrium may
// have.
constexpr double kNoCapacityBesideHeld = 1e-7;
// Slack when a found factor is compared with the start's: the accuracy of both.
constexpr double kLambdaSlack = 1e-9;
// dlambda/dgauge may vanish on a plastic plateau; below this part of lambda it is an entry.
constexpr double kEntryRate = -1e-9;

class FailureSearch {
 public:
  FailureSearch(const CompiledSection& section, const LoadPath& path, const PathPoint& start)
      : section_(section),
        path_(path),
        start_(start),
        scale_(ScaledNorm(section, path.scaled)),
        leastCapacity_(std::max(kNoCapacity * section.squash,
                                kNoCapacityBesideHeld * ScaledNorm(section, path.fixed))) {}

  FailurePoint Run() {
    const FailurePoint failure = Search();
    return failure.found && section_.hasSteps ? Sharpened(failure) : failure;
  }

  // The failure point that Newton finds from the start's plane, taken for a neighbour's.
  FailurePoint Beside() const {
    BoundaryPoint from;
    from.plane = start_.plane;
    const BoundaryPoint p = SolveAtGauge(section_, path_, start_.plane, 1.0);
    if (!IsExit(p) || !IsNear(from, p)) return {};
    const FailurePoint failure = Accept(p);
    return failure.found && section_.hasSteps ? Sharpened(failure) : failure;
  }

 private:
  FailurePoint Search() {
    if (!std::isfinite(start_.gauge) || !IsFinite(start_.plane)) return {};
    if (!section_.softens) {
      const FailurePoint direct = Direct();
      if (direct.found) return direct;
    }
    PathPoint inside = start_;
    double outside = kInfinity;
    if (start_.gauge > 1.0) {
      if (!FindInside(inside)) return {};
      outside = start_.lambda;
    }
    FailurePoint failure = Continue(inside);
    if (!failure.found) failure = Bracket(inside, outside);
    return failure;
  }

  // The searches let displaced material set in over a range of strain, which makes their answer
  // unique. The exact curve's answer beside it stands wherever no bar sits on the step itself.
  FailurePoint Sharpened(const FailurePoint& regular) const {
    constexpr double kBeside = 0.01;  // displaced concrete is a small part of any section
    const double gauge = GaugeOf(section_, regular.plane).value;
    const BoundaryPoint p = SolveAtGauge(section_, path_, regular.plane, gauge, CurveForm::exact);
    const bool isBeside = std::abs(p.lambda - regular.lambda) <= kBeside * regular.lambda;
    return p.converged && isBeside ? Accept(p, regular.isPeak) : regular;
  }

  FailurePoint Accept(const BoundaryPoint& p, bool isPeak = false) const {
    const bool hasCapacity = p.lambda * scale_ >= leastCapacity_;
    return {hasCapacity, p.lambda, p.plane, !isPeak && p.gauge.limitIsCap, isPeak};
  }

  bool IsExit(const BoundaryPoint& p) const {
    return p.converged && p.lambda > 0.0 && p.lambdaRate >= kEntryRate * p.lambda;
  }

  // Newton from the start itself: almost always enough.
  FailurePoint Direct() const {
    const BoundaryPoint p = SolveAtGauge(section_, path_, AimedStart(), 1.0);
    if (!IsExit(p)) return {};
    const bool onSide = start_.gauge <= 1.0 ? p.lambda >= start_.lambda * (1.0 - kLambdaSlack)
                                            : p.lambda <= start_.lambda * (1.0 + kLambdaSlack);
    return onSide ? Accept(p) : FailurePoint{};
  }

  // Change of the equilibrium plane with lambda, to first order; false where it has none.
  bool Direction(const Plane& at, Plane& direction) const {
    const Scaling scaling(section_);
    const Sym3 k = scaling.Tangent(IntegrateWithTangent(section_, at, CurveForm::regular).tangent);
    Vec3<double> scaled;
    constexpr double kSoft = 1e-6;  // keeps the direction finite on a plateau
    if (!SolveCholesky(k + kSoft * scaling.Elastic(), scaling.Load(path_.scaled), scaled)) {
      return false;
    }
    direction = scaling.ToPlane(scaled);
    return IsFinite(direction);
  }

  // The start moved along the response to B until it meets the boundary: that keeps the fixed load
  // to first order. Proportional paths need no aim, radial return keeps their direction.
  Plane AimedStart() const {
    Plane v;
    if (path_.fixed == Resultant{} || !Direction(start_.plane, v)) return start_.plane;
    double t = 0.0;
    Gauge g = GaugeOf(section_, start_.plane);
    for (double next = 1.0; g.value <= 1.0; next *= 2.0) {
      t = next;
      if (!IsFinite(t * v)) return start_.plane;
      g = GaugeOf(section_, start_.plane + t * v);
    }
    // From outside Newton on the gauge, a maximum of linear functions, comes down monotonically.
    constexpr double kAim = 1e-2;  // the search itself corrects the rest
    for (int i = 0; i < 5 && g.value > 1.0 + kAim; ++i) {
      const double slope = Dot(g.row, v);
      if (!(slope > 0.0)) break;
      t -= (g.value - 1.0) / slope;
      g = GaugeOf(section_, start_.plane + t * v);
    }
    return start_.plane + t * v;
  }

  // Point of the path at a factor: equilibrium from a nearby plane.
  PathPoint At(double lambda, const Plane& near) const {
    EquilibriumOptions options;
    options.sharpest = CurveForm::ramp;  // the answer itself is found by SolveAtGauge
    const EquilibriumResult e = SolveEquilibrium(section_, path_.At(lambda), &near, options);
    if (!e.converged) return {lambda, near, kInfinity};
    return {lambda, e.plane, GaugeOf(section_, e.plane).value};
  }

  // A point inside the strain domain at a smaller factor than the start, which is outside.
  bool FindInside(PathPoint& inside) const {
    constexpr double kSlack = 1.0 + 1e-9;
    const double n = path_.fixed.x;
    inside = At(0.0, Plane{});
    if (inside.gauge <= 1.0) return true;
    if (path_.scaled.x == 0.0 &&
        (n > kSlack * section_.mostTension || n < kSlack * section_.mostCompression)) {
      return false;
    }
    // The fixed load alone is outside: look for the point of the path that lies deepest.
    const double golden = 0.5 * (std::sqrt(5.0) - 1.0);
    PathPoint low = inside;
    PathPoint high = start_;
    const auto width = [&] { return golden * (high.lambda - low.lambda); };
    PathPoint a = At(high.lambda - width(), low.plane);
    PathPoint b = At(low.lambda + width(), high.plane);
    constexpr int kSections = 48;  // the bracket shrinks to 1e-10
    for (int i = 0; i < kSections; ++i) {
      inside = a.gauge < b.gauge ? a : b;
      if (inside.gauge <= 1.0) return true;
      if (StaysOutside(low, a, b, high)) return false;
      if (a.gauge < b.gauge) {
        high = b;
        b = a;
        a = At(high.lambda - width(), b.plane);
      } else {
        low = a;
        a = b;
        b = At(low.lambda + width(), a.plane);
      }
    }
    return false;
  }

  // Whether a gauge that is convex between four points of the path stays well above 1 there: the
  // lines through the outer pairs bound it from below between the inner two.
  static bool StaysOutside(const PathPoint& low, const PathPoint& a, const PathPoint& b,
                           const PathPoint& high) {
    constexpr double kWellAbove = 1.05;  // leaves room for a gauge that is not quite convex
    if (!std::isfinite(low.gauge) || !std::isfinite(high.gauge)) return false;
    const double left = (a.gauge - low.gauge) / (a.lambda - low.lambda);
    const double right = (high.gauge - b.gauge) / (high.lambda - b.lambda);
    const double gap = b.lambda - a.lambda;
    const double lowest = std::min({a.gauge, b.gauge, a.gauge + left * gap, b.gauge - right * gap});
    return lowest > kWellAbove;
  }

  // Follows the path from an inside point by rising gauge; the only way to meet the load's peak
  // when curves soften.
  FailurePoint Continue(const PathPoint& from) const {
    constexpr double kLargestStep = 0.25;
    constexpr double kSmallestStep = 1e-5;
    PathPoint first;
    if (!Depart(from, first)) return {};
    BoundaryPoint at = SolveAtGauge(section_, path_, first.plane, first.gauge);
    if (!at.converged || at.lambdaRate <= 0.0) return {};
    double step = kLargestStep;
    while (step > kSmallestStep) {
      const double gauge = at.gauge.value;
      const double target = std::min(1.0, gauge + step);
      const BoundaryPoint next =
          SolveAtGauge(section_, path_, at.plane + (target - gauge) * at.planeRate, target);
      if (!next.converged || !IsNear(at, next)) {
        step *= 0.5;
        continue;
      }
      if (section_.softens && next.lambdaRate < kEntryRate * std::abs(next.lambda)) {
        return Accept(Peak(at, next), true);
      }
      at = next;
      step = std::min(2.0 * step, kLargestStep);
      if (target == 1.0) return IsExit(at) ? Accept(at) : FailurePoint{};
    }
    return {};
  }

  // A point of the path a little beyond an inside point, where the gauge rises with lambda: a path
  // may lead inwards first, and at the inside point itself it may have no direction.
  bool Depart(const PathPoint& from, PathPoint& point) const {
    constexpr double kRise = 0.02;
    Plane v;
    if (!Direction(from.plane, v)) return false;
    double t = 1.0;
    const double size = GaugeOf(section_, v).value;
    if (size > 0.0) t = kRise / size;
    PathPoint last = from;
    for (int i = 0; i < 100; ++i) {
      point = At(last.lambda + t, last.plane + t * v);
      if (!(point.gauge < 1.0)) {
        t *= 0.25;
        continue;
      }
      if (point.gauge > last.gauge) return true;
      last = point;
      t *= 1.5;
      if (!Direction(last.plane, v)) return false;
    }
    return false;
  }

  // Guards against a jump to another branch: the plane may not change more than its own size.
  bool IsNear(const BoundaryPoint& a, const BoundaryPoint& b) const {
    const Scaling scaling(section_);
    return StrainSize(scaling.FromPlane(b.plane - a.plane)) <=
           StrainSize(scaling.FromPlane(a.plane)) + StrainSize(scaling.FromPlane(b.plane));
  }

  // The load's peak between a point where lambda rises and one where it falls.
  BoundaryPoint Peak(BoundaryPoint rising, BoundaryPoint falling) const {
    constexpr double kGaugeWidth = 1e-10;
    while (falling.gauge.value - rising.gauge.value > kGaugeWidth) {
      const double width = falling.gauge.value - rising.gauge.value;
      const double secant = rising.lambdaRate / (rising.lambdaRate - falling.lambdaRate);
      // Regula falsi kept within the middle, so that the bracket shrinks by a tenth at least.
      const double target = rising.gauge.value + std::clamp(secant, 0.1, 0.9) * width;
      const BoundaryPoint p = SolveAtGauge(section_, path_, rising.plane, target);
      if (!p.converged) break;
      (p.lambdaRate >= 0.0 ? rising : falling) = p;
    }
    return rising.lambda >= falling.lambda ? rising : falling;
  }

  // Bisection on the gauge of the equilibrium along the path: always ends.
  FailurePoint Bracket(PathPoint low, double outside) const {
    PathPoint high{outside, low.plane, kInfinity};
    if (!std::isfinite(outside)) {
      double lambda = low.lambda > 0.0 ? 2.0 * low.lambda : 1.0;
      constexpr int kDoublings = 80;
      for (int i = 0;; ++i, lambda *= 2.0) {
        high = At(lambda, low.plane);
        if (high.gauge > 1.0) break;
        if (i == kDoublings) return {};
        low = high;
      }
    }
    constexpr double kWidth = 1e-13;
    constexpr double kPolishWithin = 0.02;
    while (high.lambda - low.lambda > kWidth * high.lambda) {
      if (high.lambda * scale_ < leastCapacity_) return {};
      const PathPoint middle = At(0.5 * (low.lambda + high.lambda), low.plane);
      (middle.gauge > 1.0 ? high : low) = middle;
      if (std::abs(middle.gauge - 1.0) < kPolishWithin) {
        const BoundaryPoint p = SolveAtGauge(section_, path_, middle.plane, 1.0);
        const double slack = kLambdaSlack * high.lambda;
        if (IsExit(p) && p.lambda >= low.lambda - slack && p.lambda <= high.lambda + slack) {
          return Accept(p);
        }
      }
    }
    // Beyond `low` there is no equilibrium, or Newton cannot tell its gauge: a peak of the load
    // when it lies well inside.
    BoundaryPoint last;
    last.plane = low.plane;
    last.lambda = low.lambda;
    last.gauge = GaugeOf(section_, low.plane);
    return Accept(last, low.gauge < 1.0 - kPolishWithin);
  }

  const CompiledSection& section_;
  const LoadPath& path_;
  const PathPoint& start_;
  double scale_;
  double leastCapacity_;  // [N], scaled norm
};

// With B of the squash force's size lambda is a number near one, whatever the load's size: the
// factor that brings B there, 0 when there is none.
double UnitOf(const CompiledSection& section, const LoadPath& path) {
  const double unit = section.squash / ScaledNorm(section, path.scaled);
  return unit > 0.0 && std::isfinite(unit) ? unit : 0.0;
}

}  // namespace

FailurePoint FindFailure(const CompiledSection& section, const LoadPath& path,
                         const PathPoint& start) {
  const double unit = UnitOf(section, path);
  if (unit == 0.0) return {};
  const LoadPath scaled{path.fixed, unit * path.scaled};
  const PathPoint from{start.lambda / unit, start.plane, start.gauge};
  FailurePoint failure = FailureSearch(section, scaled, from).Run();
  failure.lambda *= unit;
  return failure;
}

FailurePoint FindFailureBeside(const CompiledSection& section, const LoadPath& path,
                               const Plane& near) {
  const double unit = UnitOf(section, path);
  if (unit == 0.0 || section.softens) return {};
  const LoadPath scaled{path.fixed, unit * path.scaled};
  const PathPoint from{0.0, near, 1.0};
  FailurePoint failure = FailureSearch(section, scaled, from).Beside();
  failure.lambda *= unit;
  return failure;
}

}  // namespace Orlix::Numeric
