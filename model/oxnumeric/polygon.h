#pragma once

#include <span>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Numeric {

/// On which side of the directed line from a to b the point c lies, without rounding error.
/// @return +1 left (a, b, c run anticlockwise), -1 right, 0 on the line.
/// @pre    coordinates are finite, their size between 1e-140 and 1e140 or zero.
/// Source: J. R. Shewchuk, Discrete & Computational Geometry 18 (1997), 305–363.
int Orientation(Vec2<double> a, Vec2<double> b, Vec2<double> c);

/// Area of a polygon [m²], positive when its vertices run anticlockwise; 0 for fewer than three.
/// Error: see `MomentsOf`.
double SignedArea(std::span<const Vec2<double>> ring);

/// Smallest convex polygon around points, anticlockwise, from the leftmost (then lowest) point on;
/// points on its edges are left out. O(n log n).
/// @param points  any order, repeated ones allowed.
/// @return one or two points when all coincide or lie on a line; nothing for no points.
/// @pre    as for `Orientation`: corners are then decided without rounding error.
std::vector<Vec2<double>> ConvexHull(std::span<const Vec2<double>> points);

/// Place of a point relative to a polygon.
enum class Location { inside, onBoundary, outside };

/// Where a point lies, by the even-odd rule: a part of the plane that a crossing outline winds
/// around twice is outside.
/// @return onBoundary exactly when the point, as the two doubles it is, lies on an edge or a
///         vertex; so a point computed to lie on a slanting edge is usually beside it.
/// @pre    as for `Orientation`; fewer than three vertices contain nothing.
Location Contains(std::span<const Vec2<double>> outline, Vec2<double> point);

/// A ring without repeated vertices: each vertex within a distance of the last one kept goes, and
/// so do those at the end that lie so near to the first.
/// @param tolerance  [m], >= 0; 0 takes out equal vertices alone.
std::vector<Vec2<double>> WithoutDuplicates(std::span<const Vec2<double>> ring, double tolerance);

}  // namespace Orlix::Numeric
