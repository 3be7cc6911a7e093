#include "model/oxdata/materials/CMatCurveParam.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>

#include "model/oxdata/materials/curve_sides.h"

namespace Orlix::Data::Design {

void CMatCurveParam::SetShapes(const CurveShape& compression, const CurveShape& tension,
                               const CurveScale& scale) {
  compression_ = compression;
  tension_ = tension;
  scale_ = scale;
  Rebuild();
}

void CMatCurveParam::SetExplicitPoints(const CTableT<double>& points) {
  if (points.Columns() != 2) {
    throw std::invalid_argument("a table of stress-strain points needs two columns");
  }
  points_ = points;
  Rebuild();
}

void CMatCurveParam::Rebuild() {
  segments_.clear();
  const CurveSide compression =
      BuildSide(type_, LoadSign::compression, compression_, scale_, points_);
  const CurveSide tension = BuildSide(type_, LoadSign::tension, tension_, scale_, points_);
  compressionIsCap_ = compression.limitIsCap;
  tensionIsCap_ = tension.limitIsCap;
  if (compression.segments.empty() || tension.segments.empty()) return;
  std::transform(tension.segments.rbegin(), tension.segments.rend(), std::back_inserter(segments_),
                 [](const CSegment& s) { return s.Mirrored(); });
  segments_.insert(segments_.end(), compression.segments.begin(), compression.segments.end());
}

double CMatCurveParam::Stress(double strain) const {
  if (segments_.empty()) return 0.0;
  if (std::isnan(strain)) return strain;
  const double held = std::clamp(strain, segments_.front().from, segments_.back().to);
  const auto next = std::upper_bound(segments_.begin() + 1, segments_.end(), held,
                                     [](double e, const CSegment& s) { return e < s.from; });
  return std::prev(next)->Stress(held);
}

double CMatCurveParam::Strain(double stress) const {
  if (std::isnan(stress)) return stress;
  if (segments_.empty() || stress == 0.0) return 0.0;
  const auto zero = std::lower_bound(segments_.begin(), segments_.end(), 0.0,
                                     [](const CSegment& s, double e) { return s.from < e; });
  if (stress > 0.0) return StrainOfSide({zero, segments_.end()}, compression_, scale_, stress);
  std::vector<CSegment> outward;
  std::transform(std::make_reverse_iterator(zero), segments_.rend(), std::back_inserter(outward),
                 [](const CSegment& s) { return s.Mirrored(); });
  return -StrainOfSide(outward, tension_, scale_, -stress);
}

const CurveShape& CMatCurveParam::Shape(LoadSign sign) const {
  return sign == LoadSign::compression ? compression_ : tension_;
}

double CMatCurveParam::CompressionLimit() const {
  return segments_.empty() ? 0.0 : segments_.back().to;
}

double CMatCurveParam::TensionLimit() const {
  return segments_.empty() ? 0.0 : -segments_.front().from;
}

bool CMatCurveParam::IsLimitCap(LoadSign sign) const {
  return sign == LoadSign::compression ? compressionIsCap_ : tensionIsCap_;
}

double CMatCurveParam::UniformCompressionLimit() const { return compression_.uniformLimit; }

}  // namespace Orlix::Data::Design
