#pragma once

#include <string>
#include <vector>

#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Cli {

/// Reads JSON that an option or an argument gives: a file, or standard input for "-".
/// @throws CommandError when it cannot be read; for broken JSON with line and column.
void ReadJson(const std::string& file, Util::JsonDocument& json);

/// Refuses JSON that was not understood in all its parts.
/// @throws CommandError when there are problems, which it prints to standard error.
void CheckUnderstood(const std::string& file, const std::vector<Data::ReadProblem>& problems);

}  // namespace Orlix::Cli
