#pragma once

#include "app/VelmoApp.h"
#include "reports/html/HtmlPage.h"

// The parts of the report that say what was given. Indices count from zero.

namespace Orlix::Velmo {

/// Code, settings of the task, components with their bars, materials with their curves.
void AddInputs(const VelmoApp& app, int iSec, int iTask, HtmlPage& page);

}  // namespace Orlix::Velmo
