#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/oxdata/reinforcement/CBarHelper.h"

namespace Orlix::Bridge::BridgeMessages {

// Texts about a drawing that is to become a section. Numbers of bars count from one, in the order
// drawn.

/// @param problem  of the outline with its holes, in words
std::string NoOutline(const std::string& problem);
/// @param index  of the circular hole, from zero
std::string NoCircle(std::size_t index);
std::string NoBar(int number);
/// @param diameter  as drawn [mm]
std::string OddBars(const std::vector<int>& numbers, double diameter, const Util::BarSize& nearest);

}  // namespace Orlix::Bridge::BridgeMessages
