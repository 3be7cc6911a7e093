#pragma once

#include "legacy/Context.h"

namespace Orlix::Legacy {

/// Reads the module TASKS: the tasks of the sections with their cases.
void ReadTasks(Context& context);

}  // namespace Orlix::Legacy
