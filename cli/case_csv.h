#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/oxutil/CUnit.h"
#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/AnalysisTask.h"

namespace Orlix::Cli {

/// Load cases as comma-separated text has them.
struct CaseTable {
  std::vector<Data::Velmo9::TaskCase> cases;  ///< inputs in SI units
  std::array<std::string, 3> units;           ///< of the three numbers in the text
};

/// Reads load cases. The first line names the columns, in any order: N, Myy and Mzz of loads, eps,
/// kyy and kzz of deformations, and name, which may be left out. A second line may give units; a
/// number without one is in the document's. Commas, semicolons or tabs part the cells, as the first
/// line shows; texts may be quoted. A byte-order mark and blank lines are passed over.
/// @param from    the name of the text in messages
/// @param action  what the cases are to be
/// @throws CommandError that names the line and the column of the first cell that is wrong, what
///         stands there and what was expected.
CaseTable ReadCases(std::string_view text, const std::string& from, LoadAction action,
                    const Data::CUnit& units);

}  // namespace Orlix::Cli
