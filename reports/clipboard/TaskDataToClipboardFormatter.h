#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"
#include "reports/clipboard/ClipboardCaseData.h"
#include "reports/clipboard/task_columns.h"

namespace Orlix {

/// A range of columns, counted from zero, both ends included.
struct ColumnRange {
  int first{};
  int last{};
};

/// Formats a range of a task's case table as text that a spreadsheet takes as rows and columns.
///
/// The columns follow from the task and its document's code: the number of the case, its input,
/// then what each limit state that the task computes has to say; docs/clipboard.md lists them.
/// Values are in the document's units; "-" stands for what is not calculated or was not wanted.
class TaskDataToClipboardFormatter {
 public:
  /// @param section  of the document, or a copy of one
  /// @pre   the section has the task
  TaskDataToClipboardFormatter(const Data::CVelmoData& document,
                               const Data::Velmo9::VelmoSection& section, int iTask);

  /// How many columns the task's table has.
  int NumColumns() const { return static_cast<int>(columns_.size()); }

  /// @param cases      consecutive cases; a row of "-" for one without data
  /// @param firstCase  index of the first of them
  /// @param range      what lies outside the table is left out
  /// @return a line of titles, one of units and one a case, each ended by a line feed, with tabs
  ///         between the cells; empty when the range has no column
  std::string FormatTaskData(const std::vector<std::optional<ClipboardCaseData>>& cases,
                             int firstCase, ColumnRange range) const;

 private:
  std::vector<TaskColumn> columns_;
};

}  // namespace Orlix
