#pragma once

#include <string>
#include <string_view>

#include "model/vldata/document/CVelmoData.h"
#include "reports/csv/CsvOptions.h"

namespace Orlix::Cli {

/// The names of the report's tables with what each holds, a line a table, for the help.
std::string OutputNames();

/// Reads which tables are wanted: names such as "uls.appliedLoad", or "all", "uls" and "sls" for
/// those that say something of the task, separated by commas.
/// @throws CommandError for a name that is none and for a table that says nothing of the task.
Velmo::CsvOptions OutputsFrom(std::string_view text, const Data::CVelmoData& document, int iSec,
                              int iTask);

}  // namespace Orlix::Cli
