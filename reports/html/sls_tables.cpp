#include "reports/html/sls_tables.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "app/sls_record.h"
#include "plot/drawing_text.h"
#include "results/result_text.h"

namespace Orlix::Velmo {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::SLSResult;
using Data::Velmo9::SlsResultKind;
using Plot::NumberText;

namespace {

constexpr std::size_t kGoverning = 5;  // cases that are shown in full

Columns SlsColumns(const TaskContext& c) {
  Columns columns = InputColumns(c);
  AppendColumns(columns, Columns{{"State", "", false}, {"Cracking"}, {"zeta"}});
  if (c.hasCrackWidth)
    columns.push_back({"Crack width", c.text.Unit(Dimension::sectionDimensions)});
  AppendColumns(columns, Columns{{"EIyy", c.text.Unit(Dimension::bendingStiffness)},
                                 {"EIzz", c.text.Unit(Dimension::bendingStiffness)}});
  return columns;
}

Cells SlsCells(const TaskContext& c, int iCase, const CaseSLSDetails& record) {
  const SLSResult result = c.task.SLSResult(iCase, true, true, false);
  const bool isSolved = HasSolution(record);
  const auto number = [&](const std::string& text) { return isSolved ? text : std::string("-"); };
  Cells cells = InputCells(c, iCase);
  cells.push_back(StateText(record));
  const double cracking = result.CrackingUtilisation();  // +infinity: the concrete bears no tension
  cells.push_back(number(CrackingText(cracking)));
  cells.push_back(number(NumberText(record.zeta)));
  if (c.hasCrackWidth) {
    cells.push_back(number(c.text.Value(record.crackWidth, Dimension::sectionDimensions)));
  }
  for (const double stiffness : {record.stiffness.bendingYY, record.stiffness.bendingZZ}) {
    cells.push_back(number(c.text.Value(stiffness, Dimension::bendingStiffness)));
  }
  return cells;
}

Cells SlsAnswer(const TaskContext& c, int iCase, const CaseSLSDetails& record,
                std::size_t numColumns) {
  Cells cells{ReportText::CaseName(c.task, iCase)};
  if (!HasSolution(record)) {
    cells.resize(numColumns, "-");
    return cells;
  }
  const bool isCracked = record.cracked && record.stressStrainSummary.cracked.has_value();
  AppendThree(cells, c.isLoad ? c.text.Plane(record.interpolatedDeformation.Vector())
                              : c.text.Load(CarriedLoad(record).Vector()));
  AppendAnswer(
      cells, c, record.interpolatedDeformation,
      isCracked ? *record.stressStrainSummary.cracked : record.stressStrainSummary.uncracked);
  return cells;
}

}  // namespace

std::vector<int> RankedSls(const AnalysisTask& task) {
  return SortedCases(task, [&](int iCase) {
    const SLSResult result = task.SLSResult(iCase, true, true, false);
    const bool hasWidth = std::isfinite(result.CrackWidth());
    const double cracking = result.CrackingUtilisation();
    return std::tuple(!result.IsFail(), hasWidth ? -result.CrackWidth() : 0.0,
                      std::isnan(cracking) ? 0.0 : -cracking);
  });
}

std::string SlsVerdict(const TaskContext& c) {
  int unsolved = 0;
  int cracked = 0;
  int widest = -1;
  double width = 0.0;
  for (const int iCase : AllCases(c.task)) {
    const SLSResult result = c.task.SLSResult(iCase, true, true, false);
    unsolved += result.IsFail() ? 1 : 0;
    cracked += !result.IsFail() && result.CrackingUtilisation() > 1.0 ? 1 : 0;
    if (result.IsFail() || !std::isfinite(result.CrackWidth())) continue;
    if (result.CrackWidth() <= width) continue;
    width = result.CrackWidth();
    widest = iCase;
  }
  std::string verdict = "Serviceability limit state: " + std::to_string(cracked) + " of " +
                        std::to_string(c.task.NumCases()) + " cases cracked";
  if (unsolved > 0) verdict += ", " + std::to_string(unsolved) + " WITHOUT A SOLUTION";
  if (c.hasCrackWidth && widest >= 0) {
    verdict += "; widest crack " + c.text.WithUnit(width, Dimension::sectionDimensions) +
               ", case " + ReportText::CaseName(c.task, widest);
  }
  return verdict;
}

void AddSlsGoverning(const TaskContext& c, HtmlPage& page) {
  const std::vector<int> cases = First(RankedSls(c.task), kGoverning);
  HtmlTable inputs{
      "Serviceability limit state: the cases with the widest cracks or, without "
      "widths, the furthest cracked",
      SlsColumns(c)};
  HtmlTable answers{"The same cases: mean " + std::string(c.isLoad ? "strains" : "loads") +
                        ", and extremes of stress of the cracked state where there is one",
                    AnswerColumns(c)};
  for (const auto& [iCase, records] : RecordsOf(c, cases, LoadState::SLS)) {
    inputs.rows.push_back(SlsCells(c, iCase, records.second));
    answers.rows.push_back(SlsAnswer(c, iCase, records.second, answers.columns.size()));
  }
  inputs.emphasised = answers.emphasised = {0};
  page.Table(inputs);
  page.Table(answers);
}

void AddSlsTable(const TaskContext& c, std::size_t mostRows, HtmlPage& page) {
  const bool isAll = static_cast<std::size_t>(c.task.NumCases()) <= mostRows;
  const std::vector<int> cases = isAll ? AllCases(c.task) : First(RankedSls(c.task), mostRows);
  HtmlTable table{"Serviceability limit state, " + ShownText(c, mostRows), SlsColumns(c)};
  for (const auto& [iCase, records] : RecordsOf(c, cases, LoadState::SLS)) {
    if (records.second.resultKind == SlsResultKind::noSolution) {
      table.emphasised.push_back(table.rows.size());
    }
    table.rows.push_back(SlsCells(c, iCase, records.second));
  }
  page.Table(table);
}

}  // namespace Orlix::Velmo
