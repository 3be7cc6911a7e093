#pragma once

#include <span>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/polygon_validity.h"

namespace Orlix::Numeric {

/// A polygon that owns its vertices.
struct OwnedPolygon {
  std::vector<Vec2<double>> outline;
  std::vector<std::vector<Vec2<double>>> holes;
};

/// What is left of polygons when others are laid over them: no area is counted twice. Slivers below
/// 1e-9 of the polygons' area are dropped.
/// @param polygons  valid, apart from each other
/// @param covers    valid; may overlap each other
/// @throws std::runtime_error when the overlay fails, with the library's reason.
std::vector<OwnedPolygon> Difference(std::span<const PolygonView> polygons,
                                     std::span<const PolygonView> covers);

}  // namespace Orlix::Numeric
