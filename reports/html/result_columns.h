#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "app/VelmoApp.h"
#include "reports/html/HtmlPage.h"
#include "reports/html/ReportText.h"
#include "results/CaseRecords.h"

// What the tables of both limit states share. Indices count from zero.

namespace Orlix::Velmo {

using Cells = std::vector<std::string>;
using Columns = std::vector<HtmlTable::Column>;

/// What the tables of a task need to know.
struct TaskContext {
  TaskContext(const VelmoApp& app, int iSec, int iTask);

  const VelmoApp& app;
  const Data::Velmo9::AnalysisTask& task;
  ReportText text;
  int iSec;
  int iTask;
  bool isLoad;         ///< the cases are loads
  double area;         ///< gross, of the section [m²]
  bool hasPhi;         ///< the code reduces strength
  bool hasCrackWidth;  ///< the code has crack widths and the task concrete
};

/// The indices of all cases.
std::vector<int> AllCases(const Data::Velmo9::AnalysisTask& task);
/// The first ones of a list.
std::vector<int> First(std::vector<int> cases, std::size_t most);
/// The cases by the key of each, the smallest first, equal ones as they stand.
template <class KeyOf>
std::vector<int> SortedCases(const Data::Velmo9::AnalysisTask& task, KeyOf keyOf) {
  std::vector<std::pair<decltype(keyOf(0)), int>> keys;
  for (const int iCase : AllCases(task)) keys.emplace_back(keyOf(iCase), iCase);
  std::sort(keys.begin(), keys.end());
  std::vector<int> cases;
  cases.reserve(keys.size());
  for (const auto& [key, iCase] : keys) cases.push_back(iCase);
  return cases;
}
/// The records of cases in a limit state, with their points.
std::vector<VelmoApp::CaseRecords> RecordsOf(const TaskContext& c, const std::vector<int>& cases,
                                             LoadState state);
/// "all cases" or "the worst 200 of 3000 cases".
std::string ShownText(const TaskContext& c, std::size_t mostRows);

/// Columns of a case with what is applied, of loads, of planes, and their cells.
Columns InputColumns(const TaskContext& c);
Cells InputCells(const TaskContext& c, int iCase);
Columns LoadColumns(const ReportText& text, const std::string& suffix = "");
Columns PlaneColumns(const ReportText& text);
void AppendThree(Cells& cells, const std::array<std::string, 3>& three);
void AppendColumns(Columns& columns, const Columns& more);

/// Columns that tell what a case does to the section: plane or load, neutral axis, extremes of
/// stress; and the cells of the last two.
Columns AnswerColumns(const TaskContext& c);
void AppendAnswer(Cells& cells, const TaskContext& c, const Data::Velmo9::Deformation& plane,
                  const Data::Velmo9::StressStrainSummary& summary);

}  // namespace Orlix::Velmo
