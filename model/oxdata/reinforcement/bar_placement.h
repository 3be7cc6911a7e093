#pragma once

#include <string>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxdata/reinforcement/bar_info.h"

namespace Orlix::Data {

/// A bar in its place.
struct PlacedBar {
  Vec2<double> position;  ///< (y, z) [m]
  Util::BarSize size;
};

/// What came of placing the bars of a description.
struct BarPlacement {
  std::vector<PlacedBar> bars;
  /// What kept the bars from being placed, in words; then there are none.
  std::string problem;
  /// By how much the bar that comes nearest to a face falls short of its cover [m]; 0: it fits.
  double missingCover{};
};

/// Places bars in a component. On outlines and holes the centre of a bar lies at the cover, the
/// link and half its diameter from the face: sides are moved parallel to themselves, a corner bar
/// keeps the distance from both of its sides; a circle or ring is followed as the true circle. A
/// bar on a line, at a radius or at a point lies there.
/// @param info       what a valid description says
/// @param linkDepth  what a closed link takes between cover and bars [m]
/// @pre the geometry has valid polygons
BarPlacement PlaceBars(const BarInfo& info, const CSecGeom& geometry, double linkDepth);

}  // namespace Orlix::Data
