#include "cli/curve_points.h"

#include <algorithm>

namespace Orlix::Cli {

namespace {

using Data::Design::CMatCurveParam;
using Data::Design::CSegment;

constexpr int kPartsOfCurvedPiece = 8;

// Strain [compression positive] at which a side's table ends.
double LastStrain(const CMatCurveParam& curve, LoadSign sign, double strainOfStrength) {
  const bool isCompression = sign == LoadSign::compression;
  const CSegment& last = isCompression ? curve.Segments().back() : curve.Segments().front();
  const double limit = isCompression ? last.to : last.from;
  if (!curve.IsLimitCap(sign)) return limit;
  constexpr double kBeyond = 1.5;
  const double corner = std::max(isCompression ? last.from : -last.to, 0.0);
  const double shown = std::max(kBeyond * corner, strainOfStrength);
  return isCompression ? std::min(limit, shown) : std::max(limit, -shown);
}

}  // namespace

std::vector<Vec2<double>> CurvePoints(const Data::Design::CMat& material, LoadState state) {
  const CMatCurveParam& curve = material.Curve(state);
  std::vector<Vec2<double>> points;
  if (curve.Segments().empty()) return points;
  const auto add = [&points](Vec2<double> point) {
    if (points.empty() || !(points.back() == point)) points.push_back(point);
  };
  const double strength = material.Properties().f_k / material.Properties().E;
  const double first = LastStrain(curve, LoadSign::tension, strength);
  const double last = LastStrain(curve, LoadSign::compression, strength);
  for (const CSegment& segment : curve.Segments()) {
    const double from = std::max(segment.from, first);
    const double to = std::min(segment.to, last);
    if (!(from < to)) continue;
    const bool isStraight = segment.kind <= Numeric::SegmentKind::linear;
    const int parts = isStraight ? 1 : kPartsOfCurvedPiece;
    for (int i = 0; i <= parts; ++i) {
      const double strain = i == parts ? to : from + (to - from) * i / parts;
      add({strain, segment.Stress(strain)});
    }
  }
  return points;
}

}  // namespace Orlix::Cli
