#pragma once

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Checks a task and solves it, with the earlier tasks that preload it; the results stay in the
/// document.
/// @return false when checks fail: standard error says which
/// @throws Interrupted on Ctrl-C under an InterruptGuard, and CommandError when the task passes all
/// checks and yet has no results.
bool CheckAndSolve(VelmoApp& app, int iSec, int iTask);

}  // namespace Orlix::Cli
