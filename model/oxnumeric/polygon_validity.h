#pragma once

#include <span>
#include <string>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Numeric {

/// What can be wrong with a polygon.
enum class PolygonFault {
  none,
  notFinite,       ///< a coordinate is infinite or not a number
  tooFewVertices,  ///< a ring has fewer than three distinct vertices
  noArea,          ///< a ring encloses next to nothing
  crossing,        ///< edges cross, run on each other, or a ring touches itself
  holeOutside,     ///< a hole or a part of it lies outside the outline
  holesOverlap,    ///< holes cross, overlap, lie in each other, or cut the polygon apart
};

/// Result of the check of one polygon.
struct PolygonValidity {
  PolygonFault fault{PolygonFault::none};
  std::string reason;  ///< in words; empty when nothing is wrong
  Vec2<double> place;  ///< a point where it is wrong [m]; the origin when there is no such point
  bool IsValid() const { return fault == PolygonFault::none; }
};

/// A polygon: its outline and its holes, vertices [m] in order, either direction, the first not
/// repeated at the end.
struct PolygonView {
  std::span<const Vec2<double>> outline;
  std::span<const std::vector<Vec2<double>>> holes;
};

/// Checks a polygon as simple features define validity (OGC 06-103r4, 6.1.11). Repeated
/// neighbouring vertices are no fault; nor are holes that touch the outline or each other in one
/// point. A ring has no area when it encloses at most 1e-12 of the square of its bounding box's
/// diagonal.
/// @throws std::runtime_error when the geometry library fails (out of memory).
PolygonValidity ValidityOf(const PolygonView& polygon);

/// Area that two polygons share and a point of it.
struct PolygonOverlap {
  double area{};       ///< [m²]
  Vec2<double> place;  ///< a point inside the shared area; the origin when there is none
};

/// The common area of two polygons. Edges that touch share none, but for rounding: for edges that
/// rounding has moved across each other it is about their length times 1e-16 of the coordinates.
/// @pre    both are valid.
/// @throws std::runtime_error when the geometry library fails, as it may for invalid polygons.
PolygonOverlap OverlapOf(const PolygonView& a, const PolygonView& b);

/// Whether the interiors of two polygons overlap: their common area is more than 1e-9 of the
/// smaller one's, which is more than rounded coordinates of a common edge make up.
/// @pre, @throws as `OverlapOf`.
bool InteriorsOverlap(const PolygonView& a, const PolygonView& b);

}  // namespace Orlix::Numeric
