#pragma once

#include <array>

#include "model/oxutil/Enumerations.h"

namespace Orlix::Data {

/// A quantity whose unit can be chosen, and what it is called in documents, commands and options.
struct UnitKey {
  const char* key;
  Dimension dimension;
};

inline constexpr std::array<UnitKey, 7> kUnitKeys = {{
    {"force", Dimension::force},
    {"length", Dimension::length},
    {"sectionDims", Dimension::sectionDimensions},
    {"stress", Dimension::stress},
    {"mass", Dimension::mass},
    {"strain", Dimension::strain},
    {"temperature", Dimension::temperature},
}};

}  // namespace Orlix::Data
