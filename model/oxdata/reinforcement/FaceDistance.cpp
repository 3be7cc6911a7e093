#include "model/oxdata/reinforcement/FaceDistance.h"

#include <algorithm>
#include <limits>

#include "model/oxnumeric/polygon.h"

namespace Orlix::Data {
namespace {

double DistanceTo(const std::vector<Vec2<double>>& ring, Vec2<double> point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Vec2<double> from = ring[i];
    const Vec2<double> edge = ring[i + 1 == ring.size() ? 0 : i + 1] - from;
    const double square = Dot(edge, edge);
    const double share =
        square > 0.0 ? std::clamp(Dot(point - from, edge) / square, 0.0, 1.0) : 0.0;
    nearest = std::min(nearest, Length(point - from - share * edge));
  }
  return nearest;
}

bool IsInside(const std::vector<Vec2<double>>& ring, Vec2<double> point) {
  return Numeric::Contains(ring, point) == Numeric::Location::inside;
}

}  // namespace

bool IsRound(const CSecGeom& geometry) {
  return geometry.Kind() == ShapeKind::circle || geometry.Kind() == ShapeKind::ring;
}

FaceDistance::FaceDistance(const CSecGeom& geometry)
    : isRound_(IsRound(geometry)),
      centre_(geometry.Centre()),
      outer_(geometry.Dimensions().diameter / 2),
      inner_(geometry.Kind() == ShapeKind::ring ? outer_ - geometry.Dimensions().thickness : 0.0) {
  if (!isRound_) polygons_ = geometry.Polygons(0.0);
}

double FaceDistance::To(Vec2<double> point) const {
  if (isRound_) {
    const double radius = Length(point - centre_);
    return inner_ > 0.0 ? std::min(outer_ - radius, radius - inner_) : outer_ - radius;
  }
  double best = -std::numeric_limits<double>::infinity();
  for (const SectionPolygon& polygon : polygons_) {
    best = std::max(best, ToPolygon(polygon, point));
  }
  return best;
}

double FaceDistance::ToPolygon(const SectionPolygon& polygon, Vec2<double> point) const {
  double nearest = DistanceTo(polygon.outline, point);
  bool isIn = IsInside(polygon.outline, point);
  for (const auto& hole : polygon.holes) {
    nearest = std::min(nearest, DistanceTo(hole, point));
    isIn = isIn && !IsInside(hole, point);
  }
  return isIn ? nearest : -nearest;
}

}  // namespace Orlix::Data
