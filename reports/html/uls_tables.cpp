#include "reports/html/uls_tables.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "model/vldata/document/governing_utilisation.h"
#include "plot/drawing_text.h"
#include "results/result_text.h"

namespace Orlix::Velmo {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::UlSResult;
using Plot::NumberText;

namespace {

constexpr std::size_t kGoverning = 5;  // cases that are shown in full

Columns UlsColumns(const TaskContext& c) {
  Columns columns = InputColumns(c);
  AppendColumns(columns, Columns{{"Utilisation"}, {"M/Mu"}});
  if (c.hasPhi) columns.push_back({"phi"});
  columns.push_back({"Status", "", false});
  return columns;
}

Cells UlsCells(const TaskContext& c, int iCase) {
  const UlSResult result = c.task.ULSResult(iCase, false);
  Cells cells = InputCells(c, iCase);
  cells.push_back(UtilisationText(GoverningUtilisation(result, c.task.Action())));
  cells.push_back(UtilisationText(result.MomentRatio()));
  if (c.hasPhi) cells.push_back(result.IsFail() ? "-" : NumberText(result.ReductionFactor()));
  cells.push_back(std::string(result.IsFail() ? "FAILS" : "carried") +
                  (result.IsFailureAtCap() ? "*" : ""));
  return cells;
}

}  // namespace

std::vector<int> RankedUls(const AnalysisTask& task) {
  return SortedCases(task, [&](int iCase) {
    const double utilisation = GoverningUtilisation(task.ULSResult(iCase, false), task.Action());
    return std::pair(!std::isnan(utilisation), std::isnan(utilisation) ? 0.0 : -utilisation);
  });
}

std::string UlsVerdict(const TaskContext& c) {
  const std::vector<int> ranked = RankedUls(c.task);
  const auto failed = std::ranges::count_if(
      ranked, [&](int iCase) { return c.task.ULSResult(iCase, false).IsFail(); });
  const UlSResult worst = c.task.ULSResult(ranked.front(), false);
  return "Ultimate limit state: " +
         (failed == 0 ? "all " + std::to_string(ranked.size()) + " cases are carried"
                      : std::to_string(failed) + " of " + std::to_string(ranked.size()) +
                            " cases are NOT carried") +
         "; case " + ReportText::CaseName(c.task, ranked.front()) + " governs, utilisation " +
         UtilisationText(GoverningUtilisation(worst, c.task.Action()));
}

void AddUlsGoverning(const TaskContext& c, HtmlPage& page) {
  const std::vector<int> ranked = RankedUls(c.task);
  HtmlTable loads{"Ultimate limit state: the cases with the highest utilisation", UlsColumns(c)};
  AppendColumns(loads.columns, LoadColumns(c.text, " at failure"));
  for (const int iCase : First(ranked, kGoverning)) {
    loads.rows.push_back(UlsCells(c, iCase));
    AppendThree(loads.rows.back(),
                c.text.LoadAtFailure(c.task.ULSResult(iCase, false).LoadAtFailure().Vector()));
  }
  loads.emphasised = {0};
  page.Table(loads);

  // A load that is not carried has no strains.
  std::vector<int> answered = ranked;
  std::erase_if(answered,
                [&](int iCase) { return c.isLoad && c.task.ULSResult(iCase, false).IsFail(); });
  HtmlTable answers{c.isLoad ? "The worst of the cases that are carried: strains, and extremes of "
                               "stress, tension positive"
                             : "The same cases: loads, and extremes of stress, tension positive",
                    AnswerColumns(c)};
  for (const auto& [iCase, records] : RecordsOf(c, First(answered, kGoverning), LoadState::ULS)) {
    const CaseULSDetails& record = records.first;
    Cells cells{ReportText::CaseName(c.task, iCase)};
    AppendThree(cells, c.isLoad ? c.text.Plane(record.deformation.Vector())
                                : c.text.Load(record.load.Vector()));
    AppendAnswer(cells, c, record.deformation, record.stressStrainSummary);
    answers.rows.push_back(std::move(cells));
  }
  if (!answers.rows.empty()) page.Table(answers);
}

void AddUlsTable(const TaskContext& c, std::size_t mostRows, HtmlPage& page) {
  const bool isAll = static_cast<std::size_t>(c.task.NumCases()) <= mostRows;
  const std::vector<int> cases = isAll ? AllCases(c.task) : First(RankedUls(c.task), mostRows);
  HtmlTable table{"Ultimate limit state, " + ShownText(c, mostRows), UlsColumns(c)};
  bool isAtCap = false;
  for (const int iCase : cases) {
    const UlSResult result = c.task.ULSResult(iCase, false);
    if (result.IsFail()) table.emphasised.push_back(table.rows.size());
    isAtCap = isAtCap || result.IsFailureAtCap();
    table.rows.push_back(UlsCells(c, iCase));
  }
  page.Table(table);
  if (isAtCap) {
    page.Paragraph("* Failure at a numerical cap on strain: no limit of a material governs.");
  }
}

}  // namespace Orlix::Velmo
