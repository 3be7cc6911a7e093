#include "cli/solve_table.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <ostream>
#include <string>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/case_table.h"
#include "model/oxutil/StringFrom.h"
#include "model/vldata/document/governing_utilisation.h"
#include "results/result_text.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;

namespace {

/// What decides the order of the lines.
struct Rank {
  int iCase{};
  double utilisation{};
  bool carried{};
  bool atCap{};
};

std::vector<Rank> Ranked(const AnalysisTask& task, const std::vector<int>& cases) {
  std::vector<Rank> ranks;
  ranks.reserve(cases.size());
  for (const int iCase : cases) {
    const Data::Velmo9::UlSResult result = task.ULSResult(iCase, false);
    ranks.push_back({iCase, GoverningUtilisation(result, task.Action()), !result.IsFail(),
                     result.IsFailureAtCap()});
  }
  // A utilisation that could not be computed is the first that should be looked at.
  std::stable_sort(ranks.begin(), ranks.end(), [](const Rank& a, const Rank& b) {
    if (std::isnan(a.utilisation)) return !std::isnan(b.utilisation);
    return a.utilisation > b.utilisation;
  });
  return ranks;
}

TextTable MakeTable(const UnitText& units, bool isLoad, bool hasFactor) {
  TextTable table;
  AddCaseColumns(table);
  if (!isLoad) AddPlaneColumns(table, units);
  AddLoadColumns(table, units);
  table.AddColumn("utilisation", "");
  table.AddColumn("M/Mu", "");
  if (hasFactor) table.AddColumn("phi", "");
  table.AddColumn("status", "", TextTable::Align::left);
  if (isLoad) AddLoadColumns(table, units, " fail");
  AddStressColumns(table, units);
  return table;
}

Cells CellsOf(const Rank& rank, const CaseULSDetails& record, const AnalysisTask& task,
              const UnitText& units, bool hasFactor) {
  const bool isLoad = task.Action() == LoadAction::load;
  Cells cells = CaseCells(task, rank.iCase);
  if (!isLoad) AddThree(cells, units.Plane(record.deformation));
  AddThree(cells, units.Load(record.load));
  cells.push_back(UtilisationText(rank.utilisation));
  cells.push_back(UtilisationText(record.momentRatio));
  if (hasFactor) cells.push_back(rank.carried ? StringFrom(record.reductionFactor) : "-");
  cells.push_back(std::string(rank.carried ? "OK" : "FAILS") + (rank.atCap ? "*" : ""));
  if (isLoad) AddThree(cells, units.LoadAtFailure(record.loadAtFailure));
  const double concrete =
      MostCompressedConcrete(record, [](const auto& point) { return point.stress; });
  AddStressCells(cells, record.deformation, concrete, record.stressStrainSummary, units);
  return cells;
}

void PrintOutcome(const std::vector<Rank>& ranks, std::size_t shown, std::ostream& out) {
  const auto carried =
      std::count_if(ranks.begin(), ranks.end(), [](const Rank& r) { return r.carried; });
  PrintCounts(ranks.size(),
              std::to_string(carried) + " carried, " + std::to_string(std::ssize(ranks) - carried) +
                  " not carried",
              shown, out);
  out << "Governing: case " << ranks.front().iCase + 1 << ", utilisation "
      << UtilisationText(ranks.front().utilisation) << '\n';
}

}  // namespace

void PrintCaseTable(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                    std::size_t limit, std::ostream& out) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const std::vector<Rank> ranks = Ranked(task, cases);
  if (ranks.empty()) {
    out << "No cases\n";
    return;
  }
  const UnitText units(app.pData()->Units());
  const bool hasFactor = app.pData()->concreteCode().IsStrengthReduction();
  TextTable table = MakeTable(units, task.Action() == LoadAction::load, hasFactor);
  const std::vector<int> shown = Shown(ranks, limit);
  auto rank = ranks.begin();
  ForEachUlsRecord(app, iSec, iTask, shown, [&](int, const CaseULSDetails& record) {
    table.AddRow(CellsOf(*rank++, record, task, units, hasFactor));
  });
  table.Print(out);
  PrintOutcome(ranks, shown.size(), out);
  if (std::any_of(ranks.begin(), ranks.end(), [](const Rank& r) { return r.atCap; })) {
    out << "* failure at a numerical cap on strain: no limit of a material governs\n";
  }
  if (std::any_of(ranks.begin(), ranks.end(),
                  [](const Rank& r) { return r.carried && r.utilisation > 1.0; })) {
    out << "A utilisation up to 1e-6 above 1 counts as carried: the capacity is found that "
           "closely\n";
  }
  if (hasFactor) out << "phi: strength reduction factor, part of the capacity\n";
  out << "concrete: the most compressed point of the outlines; bar: the largest stress of a bar\n";
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
