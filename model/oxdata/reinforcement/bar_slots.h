#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "model/oxdata/reinforcement/bar_info.h"

namespace Orlix::Data {

/// The bars of a layer place by place; pointers into the layer.
using BarSlots = std::vector<const BarGroup*>;

/// In the order of the description.
BarSlots InOrder(const BarLayer& layer);
/// For a line with two ends: every group takes the outermost places that are left, in pairs; of an
/// odd number one goes to the middle when there is a middle place left.
BarSlots FromTheEnds(const BarLayer& layer);
/// For a closed line: the first group is spread evenly, the others fill up in order.
BarSlots Spread(const BarLayer& layer);
/// `count` places of the layer's one group by spacing.
BarSlots Repeated(const BarLayer& layer, std::size_t count);

/// Number of intervals on a line so that none is longer than the spacing, at least one; at most
/// `most`.
std::size_t Intervals(double length, double spacing, std::size_t most);
/// Shares bars out among lines so that the largest interval is as small as it can be; of lines with
/// intervals as large the first takes the bar.
/// @param lengths  [m]
/// @return number of bars between the ends of each line
std::vector<std::size_t> ShareOut(std::span<const double> lengths, std::size_t bars);

/// Half of what a bar or bundle takes along the line [m].
double HalfWidth(const BarGroup& group);
/// What a layer takes of the depth [m].
double Thickness(const BarLayer& layer);
/// Distances of the outer faces of the layers from that of the first [m]; between layers is the
/// gap given, else 25 mm or the largest bar beside it, whichever is more.
std::vector<double> LayerDepths(const BarInfo& info);
double LargestDiameter(const BarLayer& layer);

}  // namespace Orlix::Data
