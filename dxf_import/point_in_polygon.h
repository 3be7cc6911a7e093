#pragma once

#include <span>
#include <vector>

#include "dxf_import/SectionGeometry.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::dxf_import {

/// Tells by the even-odd rule in the XY plane whether a point is inside `polygon`: an edge from a
/// to b counts when a.y <= y < b.y or b.y <= y < a.y, and is crossed when its point at y lies
/// strictly to the right. No tolerance: a point on an edge falls on either side. O(n).
/// @return false for fewer than three vertices.
bool IsPointInsidePolygon(const Vec2<double>& point, const Polygon& polygon);

/// The same for many points at once.
///
/// Laws: answers bit for bit as IsPointInsidePolygon, for any coordinates, NaN and infinity too.
/// Cost: O(n log n + m log m) for n short edges and m points. Edges that are nearly as high as the
/// polygon cost O(log m) for every 256 points, those that go across the section O(1) for each of
/// the points they pass at about the same height.
std::vector<bool> ArePointsInsidePolygon(std::span<const Vec2<double>> points,
                                         const Polygon& polygon);

}  // namespace Orlix::dxf_import
