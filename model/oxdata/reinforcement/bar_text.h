#pragma once

#include <string>

#include "model/oxdata/reinforcement/bar_info.h"

namespace Orlix::Data {

/// The description that says what `info` does, with lengths in mm and nothing spelt out that goes
/// without saying. Reading it gives `info` again but for rounding to 1e-9 of mm, degrees, MPa, kN
/// and per mille.
std::wstring BarText(const BarInfo& info);

}  // namespace Orlix::Data
