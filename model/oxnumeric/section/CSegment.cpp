#include "model/oxnumeric/section/CSegment.h"

#include <cmath>

namespace Orlix::Numeric {

CSegment CSegment::Zero(double from, double to) { return {from, to, SegmentKind::zero, 0.0, {}}; }

CSegment CSegment::Constant(double from, double to, double stress) {
  return {from, to, SegmentKind::constant, 0.0, {stress, 0, 0, 0}};
}

CSegment CSegment::Line(double from, double to, double stressFrom, double stressTo) {
  // The origin at the end nearer to zero strain keeps a line through the origin exact there.
  const double slope = (stressTo - stressFrom) / (to - from);
  if (std::abs(to) < std::abs(from)) {
    return {from, to, SegmentKind::linear, to, {stressTo, slope, 0, 0}};
  }
  return {from, to, SegmentKind::linear, from, {stressFrom, slope, 0, 0}};
}

CSegment CSegment::Cubic(double from, double to, double origin, std::array<double, 4> c) {
  return {from, to, SegmentKind::cubic, origin, c};
}

CSegment CSegment::Power(double from, double to, double origin, double c0, double c1, double scale,
                         double exponent) {
  return {from, to, SegmentKind::power, origin, {c0, c1, scale, exponent}};
}

CSegment CSegment::Rational(double from, double to, double origin, double c0, double c1,
                            double c2) {
  return {from, to, SegmentKind::rational, origin, {c0, c1, c2, 0}};
}

double CSegment::TranscendentStress(double x) const {
  if (kind == SegmentKind::power) return c[0] + c[1] * std::pow(std::fmax(c[2] * x, 0.0), c[3]);
  return x * (c[0] + c[1] * x) / (1.0 + c[2] * x);
}

double CSegment::TranscendentTangent(double x) const {
  if (kind == SegmentKind::power) {
    return c[1] * c[2] * c[3] * std::pow(std::fmax(c[2] * x, 0.0), c[3] - 1.0);
  }
  const double d = 1.0 + c[2] * x;
  return (c[0] + c[1] * x * (2.0 + c[2] * x)) / (d * d);
}

CSegment CSegment::Mirrored() const {
  CSegment m{-to, -from, kind, -origin, c};
  switch (kind) {
    case SegmentKind::zero:
      break;
    case SegmentKind::constant:
      m.c[0] = -c[0];
      break;
    case SegmentKind::linear:
    case SegmentKind::cubic:
      m.c = {-c[0], c[1], -c[2], c[3]};
      break;
    case SegmentKind::power:
      m.c = {-c[0], -c[1], -c[2], c[3]};
      break;
    case SegmentKind::rational:
      m.c = {c[0], -c[1], -c[2], 0.0};
      break;
  }
  return m;
}

}  // namespace Orlix::Numeric
