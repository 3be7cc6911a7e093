#pragma once

#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Cli {

/// "one, two, three".
std::string Joined(const std::vector<std::string>& words);

/// Display units with some of them changed.
/// @param items  "force=kN" and the like
/// @throws CommandError for one that is no such text; it names the quantities.
Data::CUnit UnitsFrom(const std::vector<std::string>& items, Data::CUnit units);

/// Index of the grade with a name; without a name the one that the document's code has new sections
/// made of.
/// @throws CommandError that lists the grades when there is none.
int FindGrade(const VelmoApp& app, MatType type, const std::string& name);

}  // namespace Orlix::Cli
