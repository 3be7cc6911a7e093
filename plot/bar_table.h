#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "plot/SectionView.h"

namespace Orlix::Plot {

/// Bars at one level, with one stress.
struct BarGroup {
  double distance{};  ///< along the direction that was asked for [m]
  double stress{};    ///< [Pa]
  double force{};     ///< of all of them [N]
  std::vector<std::string> numbers{};
};

/// The bars of a view that have a stress, from the largest distance down; those whose distances
/// differ by less than `tolerance` [m] and whose stresses by less than 0.2 % of the largest are
/// one group.
/// @param across  unit vector (y, z) that distances are measured along
std::vector<BarGroup> GroupedBars(const SectionView& view, Vec2<double> across, double tolerance);

/// At most so many groups: those of the largest and the least stress and, evenly, of the others.
/// @pre most >= 4
std::vector<BarGroup> ThinnedOut(std::vector<BarGroup> groups, std::size_t most);

/// "1–4,7": numbers that follow each other as a range.
std::string JoinedNumbers(const std::vector<std::string>& numbers);

}  // namespace Orlix::Plot
