#pragma once

#include <string>
#include <vector>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Makes a task ready for its solution: solves the earlier tasks whose cases preload it, the first
/// stage first, as far as they have no results yet, then checks the task, which itself is not
/// solved. An earlier task that its own checks refuse stays unsolved, as do those built on it.
/// @return the messages of all these checks, each once; empty: the task can be solved
std::vector<std::string> PrepareTask(VelmoApp& app, int iSec, int iTask);

}  // namespace Orlix::Cli
