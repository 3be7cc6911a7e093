#pragma once

#include <cstddef>
#include <iosfwd>
#include <vector>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Prints one line for each of the cases of a solved task, worst utilisation first, then how many
/// are carried, which governs, and how the numbers are to be read. In the document's units.
/// @param limit  the most lines shown
/// @throws CommandError when a case has no result.
void PrintCaseTable(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                    std::size_t limit, std::ostream& out);

}  // namespace Orlix::Cli
