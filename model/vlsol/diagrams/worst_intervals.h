#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::VlSol {

/// Picks the intervals of a curve that leave their chords most, by the length of each and the
/// angles with its neighbours.
/// @param points    (n) in order, scaled so that both directions count alike
/// @param isClosed  the last point is followed by the first
/// @return at most `count` indices of points that begin an interval
std::vector<std::size_t> WorstIntervals(std::span<const Vec2<double>> points, bool isClosed,
                                        std::size_t count);

}  // namespace Orlix::VlSol
