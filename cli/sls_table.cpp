#include "cli/sls_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <ostream>
#include <string>

#include "app/sls_record.h"
#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/solve_table.h"
#include "model/oxutil/StringFrom.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::SlsResultKind;
using Align = TextTable::Align;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// Columns behind the state.
constexpr std::size_t kAnswerColumns = 11;

/// What decides the order of the lines.
struct Rank {
  int iCase{};
  bool solved{};
  double cracking{};  ///< above 1: cracked
};

std::vector<Rank> Ranked(const AnalysisTask& task, const std::vector<int>& cases) {
  std::vector<Rank> ranks;
  ranks.reserve(cases.size());
  for (const int iCase : cases) {
    const Data::Velmo9::SLSResult result = task.SLSResult(iCase, false, true, false);
    ranks.push_back({iCase, !result.IsFail(), result.CrackingUtilisation()});
  }
  std::stable_sort(ranks.begin(), ranks.end(), [](const Rank& a, const Rank& b) {
    return a.solved != b.solved ? b.solved : a.solved && a.cracking > b.cracking;
  });
  return ranks;
}

bool ShowsCracked(const CaseSLSDetails& record) {
  return record.cracked && record.stressStrainSummary.cracked.has_value();
}

double MostCompressedConcrete(const CaseSLSDetails& record) {
  double least = kNone;
  for (const auto& [component, points] : record.pointResults) {
    for (const auto& point : points) {
      if (point.materialType != L"concrete") continue;
      least = std::fmin(least, ShowsCracked(record) ? point.stressCracked : point.stressUncracked);
    }
  }
  return least;
}

double LargestBarStress(const CaseSLSDetails& record) {
  const auto& both = record.stressStrainSummary;
  const auto& summary = ShowsCracked(record) ? *both.cracked : both.uncracked;
  if (!summary.HasRebar()) return kNone;
  const auto [max, min, maxStrain, minStrain] = summary.Rebar();
  return std::abs(max) >= std::abs(min) ? max : min;
}

void AddLoadColumns(TextTable& table, const UnitText& units) {
  table.AddColumn("N", units.Unit(Dimension::force));
  table.AddColumn("Myy", units.Unit(Dimension::moment));
  table.AddColumn("Mzz", units.Unit(Dimension::moment));
}

void AddPlaneColumns(TextTable& table, const UnitText& units) {
  table.AddColumn("eps0", units.Unit(Dimension::strain));
  table.AddColumn("kyy", units.Unit(Dimension::curvature));
  table.AddColumn("kzz", units.Unit(Dimension::curvature));
}

// What is applied stands first, what answers it behind the state.
TextTable MakeTable(const UnitText& units, bool isLoad) {
  TextTable table;
  table.AddColumn("Case", "");
  table.AddColumn("name", "", Align::left);
  (isLoad ? AddLoadColumns : AddPlaneColumns)(table, units);
  table.AddColumn("state", "", Align::left);
  table.AddColumn("cracking", "");
  table.AddColumn("zeta", "");
  (isLoad ? AddPlaneColumns : AddLoadColumns)(table, units);
  table.AddColumn("EIyy", units.Unit(Dimension::bendingStiffness));
  table.AddColumn("EIzz", units.Unit(Dimension::bendingStiffness));
  table.AddColumn("NA angle", "°");
  table.AddColumn("NA offset", units.Unit(Dimension::sectionDimensions));
  table.AddColumn("concrete", units.Unit(Dimension::stress));
  table.AddColumn("bar", units.Unit(Dimension::stress));
  return table;
}

std::vector<std::string> Cells(const Rank& rank, const CaseSLSDetails& record,
                               const AnalysisTask& task, const UnitText& units) {
  const bool isLoad = task.Action() == LoadAction::load;
  const Data::Velmo9::TaskCase& input = task.Cases()[static_cast<std::size_t>(rank.iCase)];
  std::vector<std::string> cells = {std::to_string(rank.iCase + 1), input.name};
  const auto append = [&cells](const std::array<std::string, 3>& three) {
    cells.insert(cells.end(), three.begin(), three.end());
  };
  append(isLoad ? units.Load(Data::Velmo9::VelmoLoad(input.input))
                : units.Plane(Data::Velmo9::Deformation(input.input)));
  cells.emplace_back(StateText(record));
  if (!HasSolution(record)) {
    cells.insert(cells.end(), kAnswerColumns, "-");
    return cells;
  }
  cells.push_back(CrackingText(rank.cracking));
  cells.push_back(std::isfinite(record.zeta) ? StringFrom(record.zeta) : "-");
  append(isLoad ? units.Plane(record.interpolatedDeformation) : units.Load(CarriedLoad(record)));
  cells.push_back(units.Value(record.stiffness.bendingYY, Dimension::bendingStiffness));
  cells.push_back(units.Value(record.stiffness.bendingZZ, Dimension::bendingStiffness));
  const NeutralAxisData axis =
      NeutralAxisCalculator::ComputeNeutralAxisData(record.interpolatedDeformation);
  cells.push_back(AngleText(axis.angle));
  cells.push_back(units.Value(axis.offset, Dimension::sectionDimensions));
  cells.push_back(units.Value(MostCompressedConcrete(record), Dimension::stress));
  cells.push_back(units.Value(LargestBarStress(record), Dimension::stress));
  return cells;
}

void PrintCounts(const std::vector<Rank>& ranks, std::size_t shown, std::ostream& out) {
  const auto unsolved =
      std::count_if(ranks.begin(), ranks.end(), [](const Rank& r) { return !r.solved; });
  const auto cracked = std::count_if(ranks.begin(), ranks.end(),
                                     [](const Rank& r) { return r.solved && r.cracking > 1.0; });
  out << '\n'
      << ranks.size() << (ranks.size() == 1 ? " case: " : " cases: ") << cracked << " cracked, "
      << std::ssize(ranks) - cracked - unsolved << " not cracked, " << unsolved
      << " without a solution";
  if (shown < ranks.size()) out << "; " << shown << " shown, --all shows all";
  out << '\n';
}

}  // namespace

bool HasSolution(const CaseSLSDetails& record) {
  return record.resultKind == SlsResultKind::uncracked ||
         record.resultKind == SlsResultKind::cracked;
}

std::string CrackingText(double utilisation) {
  // Concrete without tensile strength cracks at once.
  return std::isfinite(utilisation) ? UtilisationText(utilisation) : "-";
}

const char* StateText(const CaseSLSDetails& record) {
  switch (record.resultKind) {
    case SlsResultKind::uncracked:
      return "uncracked";
    case SlsResultKind::cracked:
      return "cracked";
    case SlsResultKind::noSolution:
      return "NO SOLUTION";
    case SlsResultKind::notCalculated:
      break;
  }
  return "nothing applied";
}

void PrintSlsTable(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                   std::size_t limit, std::ostream& out) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const std::vector<Rank> ranks = Ranked(task, cases);
  if (ranks.empty()) {
    out << "No cases\n";
    return;
  }
  const UnitText units(app.pData()->Units());
  TextTable table = MakeTable(units, task.Action() == LoadAction::load);
  std::vector<int> shown;
  for (std::size_t i = 0; i < std::min(limit, ranks.size()); ++i) shown.push_back(ranks[i].iCase);
  auto rank = ranks.begin();
  ForEachSlsRecord(app, iSec, iTask, shown, [&](int, const CaseSLSDetails& record) {
    table.AddRow(Cells(*rank++, record, task, units));
  });
  table.Print(out);
  PrintCounts(ranks, shown.size(), out);
  out << "cracking: tension of the uncracked section over what its concrete bears; zeta: 0 "
         "uncracked to 1 fully cracked\n"
         "EI: secant stiffness; concrete: the most compressed point of the outlines; bar: the "
         "largest stress of a bar;\nboth in the cracked state where the section is cracked\n";
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
