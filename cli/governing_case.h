#pragma once

#include "app/VelmoApp.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Cli {

/// The case with the largest utilisation of a solved task with cases, in service with the largest
/// cracking utilisation; the first of equals, and the first where nothing is calculated.
int GoverningCase(const Data::Velmo9::AnalysisTask& task, LoadState state);

/// The axial force of a solved case [N], tension positive: applied, or the answer to the plane that
/// is imposed.
double AxialForceOf(const VelmoApp& app, int iSec, int iTask, int iCase, LoadState state);

}  // namespace Orlix::Cli
