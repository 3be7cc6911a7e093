#include "model/oxnumeric/section/StressCurve.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <utility>

namespace Orlix::Numeric {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
// Slope of the curve beyond its limits, over the reference modulus: enough for an equilibrium to
// exist under every load, too small to disturb Newton.
constexpr double kExtensionSlope = 0.02;
// A jump or fall below this part of the largest stress is round-off of the curve's data.
constexpr double kRealChange = 1e-9;
// Strain width of the ramp that replaces a step, over the compression limit (at most 0.01).
constexpr double kRampWidth = 1e-3;
// Steepest step of displaced material [Pa]: half of steel's modulus, so that steel minus displaced
// concrete keeps rising.
constexpr double kDisplacedSlope = 100e9;
// Points looked at in each segment for extremes and falling slopes.
constexpr int kSamples = 8;

double SampleStrain(const CSegment& s, int i) { return s.from + (s.to - s.from) * i / kSamples; }

double LargestStress(const std::vector<CSegment>& segments) {
  double largest = 0.0;
  for (const CSegment& s : segments) {
    for (int i = 0; i <= kSamples; ++i) {
      largest = std::max(largest, std::abs(s.Stress(SampleStrain(s, i))));
    }
  }
  return largest;
}

double ReferenceModulus(const std::vector<CSegment>& segments, double maxStress) {
  double steepest = 0.0;
  for (const CSegment& s : segments) {
    steepest = std::max({steepest, s.Tangent(s.from), s.Tangent(s.to)});
  }
  if (steepest > 0.0 || maxStress == 0.0) return steepest;
  // Only constant pieces: the limit of the side that carries stress stands for the strain scale.
  double limit = kInfinity;
  if (segments.front().Stress(segments.front().from) != 0.0) limit = -segments.front().from;
  if (segments.back().Stress(segments.back().to) != 0.0) {
    limit = std::min(limit, segments.back().to);
  }
  if (!std::isfinite(limit)) limit = std::max(-segments.front().from, segments.back().to);
  return 4.0 * maxStress / limit;
}

bool FallsWithin(const std::vector<CSegment>& segments, double maxStress) {
  for (const CSegment& s : segments) {
    for (int i = 0; i < kSamples; ++i) {
      const double change = s.Stress(SampleStrain(s, i + 1)) - s.Stress(SampleStrain(s, i));
      if (change < -kRealChange * maxStress) return true;
    }
  }
  return false;
}

// A pole close behind the end of a rational piece asks for shorter pieces to keep the quadrature's
// error below 1e-11.
std::vector<CSegment> SplitNearPole(const std::vector<CSegment>& segments) {
  std::vector<CSegment> split;
  for (const CSegment& s : segments) {
    if (s.kind == SegmentKind::rational && s.c[2] != 0.0) {
      const double pole = s.origin - 1.0 / s.c[2];
      const double reach = std::max(std::abs(s.from - s.origin), std::abs(s.to - s.origin));
      const double gap = std::min(std::abs(pole - s.from), std::abs(pole - s.to));
      if (gap < 0.4 * reach) {
        CSegment first = s;
        CSegment second = s;
        first.to = second.from = 0.5 * (s.from + s.to);
        split.push_back(first);
        split.push_back(second);
        continue;
      }
    }
    split.push_back(s);
  }
  return split;
}

std::vector<CSegment> Extended(std::vector<CSegment> segments, double slope) {
  const CSegment& first = segments.front();
  const CSegment& last = segments.back();
  const double lower = first.from;
  const double upper = last.to;
  CSegment below{-kInfinity, lower, SegmentKind::linear, lower, {first.Stress(lower), slope, 0, 0}};
  CSegment above{upper, kInfinity, SegmentKind::linear, upper, {last.Stress(upper), slope, 0, 0}};
  if (slope == 0.0) below.kind = above.kind = SegmentKind::zero;
  segments.insert(segments.begin(), below);
  segments.push_back(above);
  return segments;
}

// Replaces every upward step by a straight ramp whose strain width is told by `widthOf` the step.
template <class WidthOf>
std::vector<CSegment> WithRamps(const std::vector<CSegment>& segments, double negligible,
                                WidthOf&& widthOf) {
  std::vector<CSegment> result{segments.front()};
  for (std::size_t i = 1; i < segments.size(); ++i) {
    CSegment next = segments[i];
    CSegment& previous = result.back();
    const double at = next.from;
    const double step = next.Stress(at) - previous.Stress(at);
    if (step > negligible) {
      const double room = std::min(at - previous.from, next.to - at);
      const double half = std::min(0.5 * widthOf(step), 0.5 * room);
      previous.to = at - half;
      next.from = at + half;
      result.push_back(
          CSegment::Line(at - half, at + half, previous.Stress(at - half), next.Stress(at + half)));
    }
    result.push_back(next);
  }
  return result;
}

}  // namespace

PiecewiseCurve::PiecewiseCurve(std::vector<CSegment> segments, double negligible)
    : segments_(std::move(segments)), jumps_(segments_.size(), 0.0) {
  for (std::size_t i = 1; i < segments_.size(); ++i) {
    const double at = segments_[i].from;
    const double jump = segments_[i].Stress(at) - segments_[i - 1].Stress(at);
    if (std::abs(jump) > negligible) jumps_[i] = jump;
  }
  while (middle_ + 1 < segments_.size() && segments_[middle_].to <= 0.0) ++middle_;
}

void PiecewiseCurve::ScaleTension(double factor) {
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    CSegment& s = segments_[i];
    if (s.from < 0.0) continue;
    assert(s.IsPolynomial());
    for (double& c : s.c) c *= factor;
    jumps_[i] *= factor;
  }
}

void StressCurve::ScaleTension(double factor) {
  for (PiecewiseCurve* curve : {&exact, &ramp, &displaced}) curve->ScaleTension(factor);
  stressAtUpper *= factor;
}

StressCurve MakeStressCurve(const CurveInput& input) {
  assert(!input.segments.empty());
  const std::vector<CSegment>& given = input.segments;
  StressCurve curve;
  curve.lower = given.front().from;
  curve.upper = given.back().to;
  curve.uniformLimit = input.uniformLimit;
  curve.lowerIsCap = input.compressionLimitIsCap;
  curve.upperIsCap = input.tensionLimitIsCap;
  curve.stressAtLower = given.front().Stress(curve.lower);
  curve.stressAtUpper = given.back().Stress(curve.upper);
  curve.maxStress = LargestStress(given);
  curve.modulus = ReferenceModulus(given, curve.maxStress);
  curve.softens = FallsWithin(given, curve.maxStress);
  const std::vector<CSegment> all = Extended(SplitNearPole(given), kExtensionSlope * curve.modulus);
  const double rampWidth = kRampWidth * std::min(-curve.lower, 0.01);
  const double negligible = kRealChange * curve.maxStress;
  curve.exact = PiecewiseCurve(all, negligible);
  for (std::size_t i = 1; i < curve.exact.size(); ++i) {
    curve.hasSteps = curve.hasSteps || curve.exact.Jump(i) > 0.0;
    curve.softens = curve.softens || curve.exact.Jump(i) < 0.0;
  }
  curve.ramp =
      PiecewiseCurve(WithRamps(all, negligible, [&](double) { return rampWidth; }), negligible);
  curve.displaced = PiecewiseCurve(
      WithRamps(all, negligible, [](double step) { return step / kDisplacedSlope; }), negligible);
  return curve;
}

}  // namespace Orlix::Numeric
