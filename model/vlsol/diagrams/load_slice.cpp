#include "model/vlsol/diagrams/load_slice.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/gauge.h"
#include "model/vlsol/diagrams/root_between.h"
#include "model/vlsol/diagrams/worst_intervals.h"

namespace Orlix::VlSol {

using Numeric::CompiledSection;
using Numeric::FailurePoint;
using Numeric::Plane;

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

double Positive(double turn) { return turn < 0.0 ? turn + kTurn : turn; }

}  // namespace

std::optional<LoadSlice> LoadSlice::About(const CompiledSection& section,
                                          const Vec3<double>& origin, const Vec3<double>& first,
                                          const Vec3<double>& second, Vec2<double> inside,
                                          const Plane& plane) {
  LoadSlice slice(section, origin, first, second);
  slice.middle_ = inside;
  slice.middlePlane_ = plane;
  slice.middleGauge_ = Numeric::GaugeOf(section, plane).value;
  // Every chord is halved in turn. The first may be empty: where a section carries no tension, its
  // zero load has no moment beside it.
  constexpr int kRounds = 2;
  bool isWide = false;
  for (int i = 0; i < kRounds; ++i) {
    const bool hasFirst = slice.Centre({1.0, 0.0}, slice.halfWidth_.x);
    const bool hasSecond = slice.Centre({0.0, 1.0}, slice.halfWidth_.y);
    isWide = hasFirst && hasSecond;
  }
  if (!isWide) return std::nullopt;
  return slice;
}

FailurePoint LoadSlice::Failure(Vec2<double> direction, const Plane* near) const {
  const Numeric::LoadPath path{section_->LoadToLocal(Load(middle_)),
                               section_->LoadToLocal(direction.x * first_ + direction.y * second_)};
  FailurePoint failure;
  if (near != nullptr) failure = Numeric::FindFailureBeside(*section_, path, *near);
  if (!failure.found) {
    failure = Numeric::FindFailure(*section_, path, {0.0, middlePlane_, middleGauge_});
  }
  return failure;
}

// Moves the middle to that of its chord along an axis; false where the chord has no length.
bool LoadSlice::Centre(Vec2<double> axis, double& halfWidth) {
  const FailurePoint ahead = Failure(axis, nullptr);
  const FailurePoint behind = Failure(-1.0 * axis, nullptr);
  const double a = ahead.found ? ahead.lambda : 0.0;
  const double b = behind.found ? behind.lambda : 0.0;
  if (!(a + b > 0.0)) return false;
  halfWidth = 0.5 * (a + b);
  // Where curves soften the capacity depends on the path: those from the slice's origin are the
  // ones that the capacity search follows.
  constexpr double kWellInside = 0.01;
  if (section_->softens && std::min(a, b) > kWellInside * halfWidth) return true;
  const Vec2<double> middle = middle_ + 0.5 * (a - b) * axis;
  const Numeric::EquilibriumResult e =
      Numeric::SolveEquilibrium(*section_, section_->LoadToLocal(Load(middle)), &middlePlane_);
  const double gauge = Numeric::GaugeOf(*section_, e.plane).value;
  if (!e.converged || gauge > 1.0) return true;  // the middle stays: any load inside serves
  middle_ = middle;
  middlePlane_ = e.plane;
  middleGauge_ = gauge;
  return true;
}

std::optional<SlicePoint> LoadSlice::At(double turn, const Plane* near) const {
  const Vec2<double> ray{halfWidth_.x * std::cos(turn), halfWidth_.y * std::sin(turn)};
  const FailurePoint failure = Failure(ray, near);
  if (!failure.found) return std::nullopt;
  SlicePoint point = PointAt(middle_ + failure.lambda * ray, failure);
  point.turn = turn;
  return point;
}

SlicePoint LoadSlice::PointAt(Vec2<double> at, const FailurePoint& failure) const {
  const Vec2<double> ray = at - middle_;
  SlicePoint point;
  point.turn = Positive(std::atan2(ray.y / halfWidth_.y, ray.x / halfWidth_.x));
  point.at = at;
  point.plane = failure.plane;
  point.limitIsCap = failure.limitIsCap;
  point.strainUtilisation = failure.isPeak ? Numeric::GaugeOf(*section_, failure.plane).value : 1.0;
  return point;
}

std::vector<SlicePoint> LoadSlice::Trace(int count) const {
  const auto total = static_cast<std::size_t>(count);
  const std::size_t even = std::max<std::size_t>(8, total * 5 / 8);
  std::vector<SlicePoint> curve;
  curve.reserve(total + 16);  // and the points with a mark
  const Plane* near = nullptr;
  for (std::size_t i = 0; i < even; ++i) {
    const double turn = kTurn * static_cast<double>(i) / static_cast<double>(even);
    if (const auto point = At(turn, near)) curve.push_back(*point);
    near = curve.empty() ? nullptr : &curve.back().plane;
  }
  // In two rounds, the second halves what the first left bent.
  Refine(even + (total - std::min(total, even)) * 2 / 3, curve);
  Refine(total, curve);
  return curve;
}

void LoadSlice::Refine(std::size_t count, std::vector<SlicePoint>& curve) const {
  if (curve.size() >= count) return;
  std::vector<Vec2<double>> scaled;
  scaled.reserve(curve.size());
  for (const SlicePoint& p : curve) {
    scaled.push_back({p.at.x / halfWidth_.x, p.at.y / halfWidth_.y});
  }
  const std::size_t before = curve.size();
  for (const std::size_t i : WorstIntervals(scaled, true, count - before)) {
    const SlicePoint& a = curve[i];
    const double width = Positive(curve[(i + 1) % before].turn - a.turn);
    const double turn = std::fmod(a.turn + 0.5 * width, kTurn);
    const Plane near = a.plane;
    if (const auto point = At(turn, &near)) curve.push_back(*point);
  }
  std::sort(curve.begin(), curve.end(),
            [](const SlicePoint& a, const SlicePoint& b) { return a.turn < b.turn; });
}

std::vector<std::pair<std::size_t, SlicePoint>> LoadSlice::Crossings(
    const std::vector<SlicePoint>& curve, const PointFunction& f) const {
  std::vector<std::pair<std::size_t, SlicePoint>> crossings;
  double before = curve.empty() ? 0.0 : f(curve.front());
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const SlicePoint& next = curve[(i + 1) % curve.size()];
    const double after = f(next);
    if ((before < 0.0) != (after < 0.0)) {
      if (const auto p = Crossing(curve[i], before, next, after, f)) crossings.emplace_back(i, *p);
    }
    before = after;
  }
  return crossings;
}

std::optional<SlicePoint> LoadSlice::Crossing(const SlicePoint& a, double fa, const SlicePoint& b,
                                              double fb, const PointFunction& f) const {
  constexpr double kWidth = 1e-14;
  const double end = b.turn < a.turn ? b.turn + kTurn : b.turn;
  Plane near = a.plane;
  const auto at = [&](double turn) {
    auto point = At(std::fmod(turn, kTurn), &near);
    if (point) near = point->plane;
    return point;
  };
  const double root = RootBetween(a.turn, fa, end, fb, kWidth, [&](double turn) {
    const auto point = at(turn);
    return point ? f(*point) : std::numeric_limits<double>::quiet_NaN();
  });
  return std::isfinite(root) ? at(root) : std::nullopt;
}

}  // namespace Orlix::VlSol
