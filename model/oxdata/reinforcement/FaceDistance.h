#pragma once

#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::Data {

/// Distances of points from the faces of a geometry; of circle and ring from the true circles.
class FaceDistance {
 public:
  /// @pre the geometry has valid polygons
  explicit FaceDistance(const CSecGeom& geometry);

  /// Distance from the nearest face, outline or hole [m]; negative outside the material.
  double To(Vec2<double> point) const;

 private:
  double ToPolygon(const SectionPolygon& polygon, Vec2<double> point) const;

  bool isRound_;
  Vec2<double> centre_;
  double outer_;  // radii [m]
  double inner_;  // 0: no hole
  std::vector<SectionPolygon> polygons_;
};

/// Whether the faces of a geometry are true circles: circle and ring.
bool IsRound(const CSecGeom& geometry);

}  // namespace Orlix::Data
