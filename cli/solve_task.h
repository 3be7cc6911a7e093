#pragma once

#include <string>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// What a message of a task begins with: "section 1, task 2: ", without the task where the message
/// names it itself.
std::string PlaceText(int iSec, int iTask, const std::string& message);

/// Checks a task, after the earlier ones that preload it are solved.
/// @return false when checks fail: standard error says which
bool CheckTask(VelmoApp& app, int iSec, int iTask);

/// Checks a task and solves it, with the earlier tasks that preload it; the results stay in the
/// document.
/// @return false when checks fail: standard error says which
/// @throws Interrupted on Ctrl-C under an InterruptGuard, and CommandError when the task passes all
/// checks and yet has no results.
bool CheckAndSolve(VelmoApp& app, int iSec, int iTask);

}  // namespace Orlix::Cli
