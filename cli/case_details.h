#pragma once

#include <iosfwd>
#include <vector>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Prints cases of a solved task in full: loads, strain planes, neutral axis, and the strains and
/// stresses of all points and bars. In the document's units.
/// @throws CommandError when a case has no result.
void PrintCaseDetails(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                      std::ostream& out);

}  // namespace Orlix::Cli
