#pragma once

#include <limits>
#include <span>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Plot {

/// A point or a size on the sheet [mm], x to the right and y downwards from the upper left corner.
using Spot = Vec2<double>;
using Ring = std::vector<Spot>;

/// An upright rectangle on the sheet [mm].
struct Box {
  double left{};
  double top{};
  double right{};
  double bottom{};

  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
  Spot Centre() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
  bool Contains(Spot p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
  bool Overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  Box Grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
};

/// A straight line on the sheet [mm].
struct Stroke {
  Spot from;
  Spot to;
};

/// Whether some of a line lies in a box.
bool Crosses(const Box& box, const Stroke& stroke);

/// Part of a line within a box; nothing of it: both ends are NaN.
Stroke Within(const Box& box, Stroke stroke);

/// All points p with Dot(normal, p) <= limit.
struct HalfPlane {
  Spot normal;
  double limit{std::numeric_limits<double>::infinity()};
};

/// Parallel lines that fill the inside of rings, by the even-odd rule, as far as it is in a half
/// plane.
/// @param angleDeg  of the lines, anticlockwise as seen on the sheet
/// @param spacing   [mm], positive; lines stand at multiples of it, so that neighbours match
/// @pre the rings are finite and on a sheet: the work is their height over the spacing, times their
///      vertices
std::vector<Stroke> HatchLines(std::span<const Ring> rings, double angleDeg, double spacing,
                               const HalfPlane& part = {});

}  // namespace Orlix::Plot
