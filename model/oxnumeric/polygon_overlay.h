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

/// What is left of polygons when others are laid over them: no area is counted twice. Outlines run
/// anticlockwise, holes clockwise, the first vertex is not repeated. Vertices and edges nearer than
/// 1e-9 of a polygon's size are made one, so that common edges leave no hair; pieces of at most
/// 1e-9 of the polygons' area are dropped.
/// @param polygons  valid, apart from each other
/// @param covers    valid; may overlap each other
/// Error: in area, at most 1e-9 of each polygon's size times the length of its and the covers'
///        common edges, and the pieces dropped; rounding alone where no edges are that near.
/// @throws std::runtime_error when the overlay fails, with the library's reason.
std::vector<OwnedPolygon> Difference(std::span<const PolygonView> polygons,
                                     std::span<const PolygonView> covers);

}  // namespace Orlix::Numeric
