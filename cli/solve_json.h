#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Writes the facade's JSON object of the cases of a solved task, piece by piece, without a line
/// end behind it.
/// @param margin  what every line but the first begins with
/// @throws CommandError when a case has no result.
void WriteCaseJson(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   const std::string& margin, std::ostream& out);

}  // namespace Orlix::Cli
