#include "reports/clipboard/TaskDataToClipboardFormatter.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace Orlix {

namespace {

constexpr const char* kNotCalculated = "-";

// The line that cellOf(column) gives.
template <class CellOf>
std::string Line(std::span<const TaskColumn> columns, const CellOf& cellOf) {
  std::string line;
  for (const TaskColumn& column : columns) {
    if (&column != columns.data()) line += '\t';
    line += cellOf(column);
  }
  return line + '\n';
}

}  // namespace

TaskDataToClipboardFormatter::TaskDataToClipboardFormatter(
    const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section, int iTask)
    : columns_(ColumnsOf(document, section, iTask)) {}

std::string TaskDataToClipboardFormatter::FormatTaskData(
    const std::vector<std::optional<ClipboardCaseData>>& cases, int firstCase,
    ColumnRange range) const {
  const int first = std::max(range.first, 0);
  const int last = std::min(range.last, NumColumns() - 1);
  if (first > last) return {};
  const auto columns = std::span(columns_).subspan(static_cast<std::size_t>(first),
                                                   static_cast<std::size_t>(last - first) + 1);
  std::string text = Line(columns, [](const TaskColumn& column) { return column.title; }) +
                     Line(columns, [](const TaskColumn& column) { return column.unit; });
  std::size_t number = static_cast<std::size_t>(firstCase);
  for (const std::optional<ClipboardCaseData>& data : cases) {
    ++number;
    text += Line(columns, [&](const TaskColumn& column) {
      if (!column.cell) return std::to_string(number);
      return data ? column.cell(*data) : kNotCalculated;
    });
  }
  return text;
}

}  // namespace Orlix
