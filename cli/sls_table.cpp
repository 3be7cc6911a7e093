#include "cli/sls_table.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <ostream>
#include <string>

#include "app/sls_record.h"
#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/case_table.h"
#include "model/oxutil/StringFrom.h"
#include "results/result_text.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::SlsResultKind;

namespace {

// Columns behind the state and, where there is one, the crack width.
constexpr std::size_t kAnswerColumns = 11;

// True of material models that tell a cracked state from an uncracked one and of those that do not.
constexpr const char* kLegend =
    "cracking: tension that uncracked concrete would have, at the strains of the uncracked or only "
    "state,\nover what it bears; - where it bears none\n"
    "zeta: 0 uncracked to 1 fully cracked; - where the model does not interpolate between the two\n"
    "EI: secant stiffness; concrete: the most compressed point of the outlines; bar: the largest "
    "stress of a bar;\nboth of the cracked state where the section is cracked and the model has "
    "one, else of the uncracked or only state\n";

constexpr const char* kWidthLegend =
    "crack width: of the widest crack in an outer face; faces of holes are not looked at\n";

/// What decides the order of the lines.
struct Rank {
  int iCase{};
  bool solved{};
  double cracking{};    ///< above 1: cracked
  double crackWidth{};  ///< +infinity: none is computed
};

std::vector<Rank> Ranked(const AnalysisTask& task, const std::vector<int>& cases) {
  std::vector<Rank> ranks;
  ranks.reserve(cases.size());
  for (const int iCase : cases) {
    const Data::Velmo9::SLSResult result = task.SLSResult(iCase, true, true, false);
    ranks.push_back({iCase, !result.IsFail(), result.CrackingUtilisation(), result.CrackWidth()});
  }
  std::stable_sort(ranks.begin(), ranks.end(), [](const Rank& a, const Rank& b) {
    return a.solved != b.solved ? b.solved : a.solved && a.cracking > b.cracking;
  });
  return ranks;
}

// What is applied stands first, what answers it behind the state.
TextTable MakeTable(const UnitText& units, bool isLoad, bool hasCrackWidth) {
  TextTable table;
  AddCaseColumns(table);
  isLoad ? AddLoadColumns(table, units) : AddPlaneColumns(table, units);
  table.AddColumn("state", "", TextTable::Align::left);
  table.AddColumn("cracking", "");
  table.AddColumn("zeta", "");
  if (hasCrackWidth) table.AddColumn("crack width", units.Unit(Dimension::sectionDimensions));
  isLoad ? AddPlaneColumns(table, units) : AddLoadColumns(table, units);
  table.AddColumn("EIyy", units.Unit(Dimension::bendingStiffness));
  table.AddColumn("EIzz", units.Unit(Dimension::bendingStiffness));
  AddStressColumns(table, units);
  return table;
}

Cells CellsOf(const Rank& rank, const CaseSLSDetails& record, const AnalysisTask& task,
              const UnitText& units, bool hasCrackWidth) {
  const bool isLoad = task.Action() == LoadAction::load;
  const Vec3<double>& input = task.Cases()[static_cast<std::size_t>(rank.iCase)].input;
  Cells cells = CaseCells(task, rank.iCase);
  AddThree(cells, isLoad ? units.Load(Data::Velmo9::VelmoLoad(input))
                         : units.Plane(Data::Velmo9::Deformation(input)));
  cells.emplace_back(StateText(record));
  if (!HasSolution(record)) {
    cells.insert(cells.end(), kAnswerColumns + (hasCrackWidth ? 1 : 0), "-");
    return cells;
  }
  cells.push_back(CrackingText(rank.cracking));
  cells.push_back(std::isfinite(record.zeta) ? StringFrom(record.zeta) : "-");
  if (hasCrackWidth) cells.push_back(units.Value(record.crackWidth, Dimension::sectionDimensions));
  AddThree(cells,
           isLoad ? units.Plane(record.interpolatedDeformation) : units.Load(CarriedLoad(record)));
  cells.push_back(units.Value(record.stiffness.bendingYY, Dimension::bendingStiffness));
  cells.push_back(units.Value(record.stiffness.bendingZZ, Dimension::bendingStiffness));
  const auto& both = record.stressStrainSummary;
  const bool cracked = record.cracked && both.cracked.has_value();
  const double concrete = MostCompressedConcrete(record, [cracked](const auto& point) {
    return cracked ? point.stressCracked : point.stressUncracked;
  });
  AddStressCells(cells, record.interpolatedDeformation, concrete,
                 cracked ? *both.cracked : both.uncracked, units);
  return cells;
}

std::string Outcome(const std::vector<Rank>& ranks) {
  const auto unsolved =
      std::count_if(ranks.begin(), ranks.end(), [](const Rank& r) { return !r.solved; });
  const auto cracked = std::count_if(ranks.begin(), ranks.end(),
                                     [](const Rank& r) { return r.solved && r.cracking > 1.0; });
  return std::to_string(cracked) + " cracked, " +
         std::to_string(std::ssize(ranks) - cracked - unsolved) + " not cracked, " +
         std::to_string(unsolved) + " without a solution";
}

// The widest crack of all cases, and how many of the cracked ones have no width.
void PrintWidest(const std::vector<Rank>& ranks, const UnitText& units, std::ostream& out) {
  const Rank* widest = nullptr;
  std::size_t without = 0;
  for (const Rank& rank : ranks) {
    if (!rank.solved) continue;
    if (!std::isfinite(rank.crackWidth)) {
      ++without;
    } else if (rank.crackWidth > (widest != nullptr ? widest->crackWidth : 0.0)) {
      widest = &rank;
    }
  }
  if (widest != nullptr) {
    out << "Widest crack: case " << widest->iCase + 1 << ", "
        << units.Value(widest->crackWidth, Dimension::sectionDimensions) << ' '
        << units.Unit(Dimension::sectionDimensions) << '\n';
  }
  if (without > 0) {
    out << without << (without == 1 ? " case" : " cases")
        << " without a crack width: --case says why\n";
  }
}

}  // namespace

void PrintSlsTable(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   std::size_t limit, std::ostream& out) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const std::vector<Rank> ranks = Ranked(task, cases);
  if (ranks.empty()) {
    out << "No cases\n";
    return;
  }
  const UnitText units(app.pData()->Units());
  const bool hasCrackWidth = app.pData()->concreteCode().IsCrackWidthCode() &&
                             app.pData()->Section(iSec).hasConcreteComponent(iTask);
  TextTable table = MakeTable(units, task.Action() == LoadAction::load, hasCrackWidth);
  const std::vector<int> shown = Shown(ranks, limit);
  auto rank = ranks.begin();
  ForEachSlsRecord(app, iSec, iTask, shown, [&](int, const CaseSLSDetails& record) {
    table.AddRow(CellsOf(*rank++, record, task, units, hasCrackWidth));
  });
  table.Print(out);
  PrintCounts(ranks.size(), Outcome(ranks), shown.size(), out);
  if (hasCrackWidth) PrintWidest(ranks, units, out);
  out << kLegend;
  if (hasCrackWidth) out << kWidthLegend;
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
