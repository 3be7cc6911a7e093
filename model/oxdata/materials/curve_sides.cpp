#include "model/oxdata/materials/curve_sides.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Data::Design {
namespace {

using Segments = std::vector<CSegment>;
using Points = std::vector<Vec2<double>>;  // x strain, y stress [Pa]

/// Largest strain of a material that has no limit of its own: it keeps the strain domain bounded
/// and lies beyond what any such material stands.
double Cap(MatType type) {
  switch (type) {
    case MatType::reinforcement:
      return 0.1;
    case MatType::steel:
    case MatType::FRP:
      return 0.05;
    case MatType::concrete:
    case MatType::none:
      break;
  }
  return 1.0;
}

bool AllFiniteAndNotNegative(std::initializer_list<double> values) {
  return std::all_of(values.begin(), values.end(),
                     [](double v) { return std::isfinite(v) && v >= 0.0; });
}

bool IsSane(const CurveShape& s, const CurveScale& scale) {
  return AllFiniteAndNotNegative({s.epsPeak, s.exponent, s.epsLimit, s.uniformLimit, s.blockStart,
                                  s.blockFactor, s.hardening, s.epsHardening, s.slope,
                                  scale.strength, scale.modulus});
}

double LinearModulus(const CurveShape& shape, const CurveScale& scale) {
  return shape.slope > 0.0 ? shape.slope : scale.modulus;
}

Segments Linear(double modulus, double limit) {
  if (!(modulus > 0.0)) return {};
  return {CSegment::Line(0.0, limit, 0.0, modulus * limit)};
}

Segments Bilinear(const CurveShape& shape, const CurveScale& scale, double limit) {
  const double f = scale.strength;
  if (!(f > 0.0) || !(shape.epsPeak > 0.0 || scale.modulus > 0.0)) return {};
  if (shape.epsPeak > limit) return {};
  const double yield = shape.epsPeak > 0.0 ? shape.epsPeak : f / scale.modulus;
  if (yield >= limit) return {CSegment::Line(0.0, limit, 0.0, f * (limit / yield))};

  Segments side = {CSegment::Line(0.0, yield, 0.0, f)};
  const double end = shape.epsHardening;
  if (end == 0.0 || shape.hardening == 1.0) {
    side.push_back(CSegment::Constant(yield, limit, f));
    return side;
  }
  if (end <= yield) return {};
  const double top = shape.hardening * f;
  if (limit <= end) {
    const double share = (limit - yield) / (end - yield);
    side.push_back(CSegment::Line(yield, limit, f, f + share * (top - f)));
  } else {
    side.push_back(CSegment::Line(yield, end, f, top));
    side.push_back(CSegment::Constant(end, limit, top));
  }
  return side;
}

Segments ParabolaRectangle(const CurveShape& shape, const CurveScale& scale, double limit) {
  const double f = scale.strength;
  const double p = shape.epsPeak;
  const double n = shape.exponent;
  if (!(f > 0.0) || !(p > 0.0) || p > limit || n < 1.0) return {};
  Segments side;
  if (n == 1.0) {
    side.push_back(CSegment::Line(0.0, p, 0.0, f));
  } else if (n == 2.0) {
    side.push_back(CSegment::Cubic(0.0, p, 0.0, {0.0, 2.0 * f / p, -f / (p * p), 0.0}));
  } else if (n == 3.0) {
    side.push_back(
        CSegment::Cubic(0.0, p, 0.0, {0.0, 3.0 * f / p, -3.0 * f / (p * p), f / (p * p * p)}));
  } else {
    side.push_back(CSegment::Power(0.0, p, p, f, -f, -1.0 / p, n));
  }
  if (limit > p) side.push_back(CSegment::Constant(p, limit, f));
  return side;
}

Segments RectangularBlock(const CurveShape& shape, const CurveScale& scale, double limit) {
  const double f = shape.blockFactor * scale.strength;
  if (!(f > 0.0) || shape.blockStart >= limit) return {};
  Segments side;
  if (shape.blockStart > 0.0) side.push_back(CSegment::Zero(0.0, shape.blockStart));
  side.push_back(CSegment::Constant(shape.blockStart, limit, f));
  return side;
}

/// Plasticity number k of EN 1992-1-1 (3.14).
double PlasticityNumber(const CurveShape& shape, const CurveScale& scale) {
  return 1.05 * scale.modulus * shape.epsPeak / scale.strength;
}

Segments NonLinear(const CurveShape& shape, const CurveScale& scale, double limit) {
  const double f = scale.strength;
  const double p = shape.epsPeak;
  if (!(f > 0.0) || !(p > 0.0) || p > limit) return {};
  const double k = PlasticityNumber(shape, scale);
  // k <= 1 does not rise to the peak; beyond k p the stress would be negative. The pole at
  // p / (2 - k) lies beyond k p for every such k.
  if (!(k > 1.0) || limit > k * p) return {};
  return {CSegment::Rational(0.0, limit, 0.0, f * k / p, -f / (p * p), (k - 2.0) / p)};
}

/// Rows of the table in ascending strain. Rows that run down from the largest strain are turned
/// round and others sorted, so that the two rows of a vertical step stay in the order of the walk.
Points SortedRows(const CTableT<double>& table) {
  Points rows;
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    rows.push_back({table(i, 0) + 0.0, table(i, 1) + 0.0});  // no negative zeros
  }
  const auto less = [](const Vec2<double>& a, const Vec2<double>& b) { return a.x < b.x; };
  const auto greater = [](const Vec2<double>& a, const Vec2<double>& b) { return a.x > b.x; };
  if (std::is_sorted(rows.begin(), rows.end(), greater)) std::reverse(rows.begin(), rows.end());
  std::stable_sort(rows.begin(), rows.end(), less);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

/// The table's points of one side, counted outwards from zero strain; empty: it has none there.
Points OutwardPoints(const Points& rows, LoadSign sign) {
  Points side;
  if (sign == LoadSign::tension) {
    for (const auto& row : rows) {
      if (row.x >= 0.0) side.push_back(row);
    }
  } else {
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
      if (row->x <= 0.0) side.push_back({-row->x, -row->y});
    }
  }
  if (side.empty() || side.back().x == 0.0) return {};
  if (side.front().x > 0.0) side.insert(side.begin(), {0.0, 0.0});
  return side;
}

Segments Lines(const Points& points) {
  constexpr double kSameStrain = 1e-12;  // nearer points make a vertical step: slopes stay finite
  Segments side;
  Vec2<double> a = points.front();
  for (const auto& b : points) {
    if (b.x - a.x <= kSameStrain) {
      a.y = b.y;
      continue;
    }
    if (a.y != b.y) {
      side.push_back(CSegment::Line(a.x, b.x, a.y, b.y));
    } else if (a.y != 0.0) {
      side.push_back(CSegment::Constant(a.x, b.x, a.y));
    } else {
      side.push_back(CSegment::Zero(a.x, b.x));
    }
    a = b;
  }
  return side;
}

CurveSide ExplicitSide(MatType type, LoadSign sign, const CTableT<double>& table) {
  for (std::size_t i = 0; i < table.Rows(); ++i) {
    if (!std::isfinite(table(i, 0)) || !std::isfinite(table(i, 1))) return {};
  }
  const Points rows = SortedRows(table);
  const LoadSign other = sign == LoadSign::tension ? LoadSign::compression : LoadSign::tension;
  const Points own = OutwardPoints(rows, sign);
  if (!own.empty()) return {Lines(own), false};
  const Points opposite = OutwardPoints(rows, other);
  if (opposite.empty()) return {};  // no points at all
  const bool mirrored = type == MatType::steel || type == MatType::reinforcement;
  if (mirrored) return {Lines(opposite), false};
  return {{CSegment::Zero(0.0, Cap(type))}, true};
}

}  // namespace

CurveSide BuildSide(MatType type, LoadSign sign, const CurveShape& shape, const CurveScale& scale,
                    const CTableT<double>& points) {
  if (shape.kind == CurveKind::explicitPoints) return ExplicitSide(type, sign, points);
  if (!IsSane(shape, scale)) return {};

  double limit = shape.epsLimit;
  const bool brittle = type == MatType::FRP && shape.kind == CurveKind::linear;
  const double modulus = LinearModulus(shape, scale);
  if (limit == 0.0 && brittle && modulus > 0.0) limit = scale.strength / modulus;
  const bool isCap = limit == 0.0;
  if (isCap) limit = Cap(type);
  if (!std::isfinite(limit) || shape.uniformLimit > limit) return {};

  switch (shape.kind) {
    case CurveKind::none:
      return {{CSegment::Zero(0.0, limit)}, isCap};
    case CurveKind::linear:
      return {Linear(modulus, limit), isCap};
    case CurveKind::bilinear:
      return {Bilinear(shape, scale, limit), isCap};
    case CurveKind::parabolaRectangle:
      return {ParabolaRectangle(shape, scale, limit), isCap};
    case CurveKind::rectangularBlock:
      return {RectangularBlock(shape, scale, limit), isCap};
    case CurveKind::nonLinear:
      return {NonLinear(shape, scale, limit), isCap};
    case CurveKind::bs8110Tension:
    case CurveKind::interpolated:
      if (sign == LoadSign::compression) return {Linear(scale.modulus, limit), isCap};
      return {{CSegment::Zero(0.0, limit)}, isCap};
    case CurveKind::explicitPoints:
      break;
  }
  return {};
}

double StrainOfSide(const std::vector<CSegment>& segments, const CurveShape& shape,
                    const CurveScale& scale, double stress) {
  const double t = stress / scale.strength;
  if (shape.kind == CurveKind::parabolaRectangle) {
    // 1 - (1 - t)^(1/n), without cancellation for small t.
    return t < 1.0 ? -shape.epsPeak * std::expm1(std::log1p(-t) / shape.exponent) : shape.epsPeak;
  }
  if (shape.kind == CurveKind::nonLinear) {
    if (!(t < 1.0)) return shape.epsPeak;
    // The smaller root of h² - b h + t = 0, h the strain over the peak's.
    const double b = (1.0 - t) * PlasticityNumber(shape, scale) + 2.0 * t;
    return shape.epsPeak * 2.0 * t / (b + std::sqrt(std::max(b * b - 4.0 * t, 0.0)));
  }
  Vec2<double> peak;
  for (const CSegment& s : segments) {  // straight pieces
    const double a = s.Stress(s.from);
    const double b = s.Stress(s.to);
    if (a >= stress) return s.from;
    if (b >= stress) return s.from + (stress - a) / (b - a) * (s.to - s.from);
    if (a > peak.y) peak = {s.from, a};
    if (b > peak.y) peak = {s.to, b};
  }
  return peak.x;
}

}  // namespace Orlix::Data::Design
