#pragma once

#include "legacy/Context.h"

namespace Orlix::Legacy {

/// Reads the module SECTIONS: sections with their components, outlines and bars.
void ReadSections(Context& context);

}  // namespace Orlix::Legacy
