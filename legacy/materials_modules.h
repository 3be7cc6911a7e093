#pragma once

#include <string_view>

#include "legacy/Context.h"

namespace Orlix::Legacy {

/// Reads CONCRETE, REINFORCEMENT, LINKS, STEEL or FRP. Grades of reinforcement and links go into
/// the document's table, the others wait in the context for the components that are made of them.
void ReadMaterials(std::string_view module, Context& context);

/// Puts the grades that no component is made of into the document's tables.
void KeepUnusedGrades(Context& context);

}  // namespace Orlix::Legacy
