#include "model/oxnumeric/section/gauge.h"

#include <cmath>
#include <limits>

namespace Orlix::Numeric {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A hull vertex of a region with its compressive strain.
struct Extreme {
  double compression;
  const CompiledSection::Region* region{};
  Vec2<double> at{};
};

const StressCurve& CurveOf(const CompiledSection& section, const CompiledSection::Region& region) {
  return section.curves[static_cast<std::size_t>(region.curve)];
}

double Compression(const CompiledSection::Region& region, Vec2<double> at, const Plane& d) {
  return -Dot(Phi(at), d + region.locked);
}

Extreme MostCompressed(const CompiledSection::Region& region, const Plane& d) {
  Extreme most{-kInfinity};
  for (const Vec2<double>& p : region.hull) {
    const double c = Compression(region, p, d);
    if (c > most.compression) most = {c, &region, p};
  }
  return most;
}

Extreme LeastCompressed(const CompiledSection& section, const Plane& d) {
  Extreme least{kInfinity};
  for (const CompiledSection::Region& region : section.regions) {
    if (CurveOf(section, region).uniformLimit <= 0.0) continue;
    for (const Vec2<double>& p : region.hull) {
      const double c = Compression(region, p, d);
      if (c < least.compression) least = {c, &region, p};
    }
  }
  return least;
}

// The rule for one region: the value over the limit, 1 on the boundary, and the extremes behind it.
struct PivotRule {
  double ratio{};
  double weight{};
  double limit{};
  Extreme most{};
  Extreme least{};
};

PivotRule WorstPivot(const CompiledSection& section, const Plane& d) {
  PivotRule worst;
  const Extreme least = LeastCompressed(section, d);
  if (least.region == nullptr) return worst;
  for (const CompiledSection::Region& region : section.regions) {
    const StressCurve& curve = CurveOf(section, region);
    if (curve.uniformLimit <= 0.0) continue;
    const double w = curve.uniformLimit / -curve.lower;
    const Extreme most = MostCompressed(region, d);
    const double ratio =
        (w * most.compression + (1.0 - w) * least.compression) / curve.uniformLimit;
    if (ratio > worst.ratio) worst = {ratio, w, curve.uniformLimit, most, least};
  }
  return worst;
}

Vec3<double> PivotRow(const PivotRule& rule) {
  const Vec3<double> phi =
      rule.weight * Phi(rule.most.at) + (1.0 - rule.weight) * Phi(rule.least.at);
  const double locked = rule.weight * Dot(Phi(rule.most.at), rule.most.region->locked) +
                        (1.0 - rule.weight) * Dot(Phi(rule.least.at), rule.least.region->locked);
  return (-1.0 / (rule.limit + locked)) * phi;
}

// With locked-in planes the rule is no longer homogeneous in d: the factor s with s d on its
// boundary is the first root of a piecewise linear function.
Gauge LockedPivotGauge(const CompiledSection& section, const Plane& d, double atLeast) {
  if (WorstPivot(section, Plane{}).ratio >= 1.0) return {kInfinity, {}, false};
  // A root beyond 1/atLeast is weaker than the limits already looked at.
  double outside = atLeast > 0.0 ? 1.0 / atLeast : 1.0;
  double inside = 0.0;
  if (atLeast <= 0.0) {
    while (WorstPivot(section, outside * d).ratio < 1.0) {
      outside *= 2.0;
      if (outside > 1e12) return {};
    }
  } else if (WorstPivot(section, outside * d).ratio <= 1.0) {
    return {};
  }
  constexpr int kHalvings = 100;  // to the last bit, from any bracket met in practice
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = 0.5 * (inside + outside);
    (WorstPivot(section, middle * d).ratio >= 1.0 ? outside : inside) = middle;
  }
  return {1.0 / outside, PivotRow(WorstPivot(section, outside * d)), false};
}

}  // namespace

Gauge GaugeOf(const CompiledSection& section, const Plane& d) {
  if (section.lockedBeyondLimit) return {kInfinity, {}, false};
  Gauge gauge;
  for (const CompiledSection::LimitPoint& limit : section.limits) {
    const double e = Dot(limit.phi, d);
    const double inverse = e > 0.0 ? limit.inverseUpper : limit.inverseLower;
    if (e * inverse > gauge.value) {
      gauge = {e * inverse, inverse * limit.phi, e > 0.0 ? limit.upperIsCap : limit.lowerIsCap};
    }
  }
  if (section.hasLockedRegions) {
    const Gauge pivot = LockedPivotGauge(section, d, gauge.value);
    return pivot.value > gauge.value ? pivot : gauge;
  }
  const PivotRule pivot = WorstPivot(section, d);
  if (pivot.ratio > gauge.value) gauge = {pivot.ratio, PivotRow(pivot), false};
  return gauge;
}

}  // namespace Orlix::Numeric
