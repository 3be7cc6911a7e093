#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include "app/VelmoApp.h"

namespace Orlix::Cli {

/// Prints one line for each of the cases of a task solved at the serviceability limit state, those
/// without a solution first and then by how far they are cracked, and how the numbers are to be
/// read. In the document's units.
/// @param limit  the most lines shown
/// @throws CommandError when a case has no result.
void PrintSlsTable(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   std::size_t limit, std::ostream& out);

/// Prints cases in full: loads and planes of both states, the plane between them, stiffness, and
/// the strains and stresses of all points and bars.
/// @throws CommandError when a case has no result.
void PrintSlsDetails(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                     std::ostream& out);

}  // namespace Orlix::Cli
