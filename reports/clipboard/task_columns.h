#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"
#include "reports/clipboard/ClipboardCaseData.h"

namespace Orlix {

/// A column of a task's case table.
struct TaskColumn {
  std::string title;
  std::string unit;  ///< empty for a number without one and for text
  std::function<std::string(const ClipboardCaseData&)> cell;  ///< none: the number of the case
};

/// The columns that a task has under its document's code, in the order of docs/clipboard.md.
/// @pre the section has the task
std::vector<TaskColumn> ColumnsOf(const Data::CVelmoData& document,
                                  const Data::Velmo9::VelmoSection& section, int iTask);

}  // namespace Orlix
