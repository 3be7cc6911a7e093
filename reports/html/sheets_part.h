#pragma once

#include "app/VelmoApp.h"
#include "reports/html/HtmlPage.h"

// The drawings of the report. Indices count from zero.

namespace Orlix::Velmo {

/// The section as it is given.
void AddSectionSheet(const VelmoApp& app, int iSec, HtmlPage& page);

/// The governing case of each limit state with its strains and stresses, and the diagrams that show
/// it: axial force and moment in the direction of its moment, both moments and moment and curvature
/// at its axial force. Only of a solved task.
void AddResultSheets(const VelmoApp& app, int iSec, int iTask, HtmlPage& page);

}  // namespace Orlix::Velmo
