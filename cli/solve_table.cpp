#include "cli/solve_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <ostream>
#include <string>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/concrete_facts.h"
#include "model/oxutil/StringFrom.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;
using Align = TextTable::Align;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// What decides the order of the lines.
struct Rank {
  int iCase{};
  double utilisation{};
  bool carried{};
  bool atCap{};
};

double MostCompressedConcrete(const CaseULSDetails& record) {
  double least = kNone;
  for (const auto& [component, points] : record.pointResults) {
    for (const auto& point : points) {
      if (point.materialType == L"concrete") least = std::fmin(least, point.stress);
    }
  }
  return least;
}

double LargestBarStress(const CaseULSDetails& record) {
  const auto& summary = record.stressStrainSummary;
  if (!summary.HasRebar()) return kNone;
  const auto [max, min, maxStrain, minStrain] = summary.Rebar();
  return std::abs(max) >= std::abs(min) ? max : min;
}

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
  const std::string force = units.Unit(Dimension::force);
  const std::string moment = units.Unit(Dimension::moment);
  TextTable table;
  table.AddColumn("Case", "");
  table.AddColumn("name", "", Align::left);
  if (!isLoad) {
    table.AddColumn("eps0", units.Unit(Dimension::strain));
    table.AddColumn("kyy", units.Unit(Dimension::curvature));
    table.AddColumn("kzz", units.Unit(Dimension::curvature));
  }
  table.AddColumn("N", force);
  table.AddColumn("Myy", moment);
  table.AddColumn("Mzz", moment);
  table.AddColumn("utilisation", "");
  table.AddColumn("M/Mu", "");
  if (hasFactor) table.AddColumn("phi", "");
  table.AddColumn("status", "", Align::left);
  if (isLoad) {
    table.AddColumn("N fail", force);
    table.AddColumn("Myy fail", moment);
    table.AddColumn("Mzz fail", moment);
  }
  table.AddColumn("NA angle", "°");
  table.AddColumn("NA offset", units.Unit(Dimension::sectionDimensions));
  table.AddColumn("concrete", units.Unit(Dimension::stress));
  table.AddColumn("bar", units.Unit(Dimension::stress));
  return table;
}

std::vector<std::string> Cells(const Rank& rank, const CaseULSDetails& record,
                               const AnalysisTask& task, const UnitText& units, bool hasFactor) {
  const bool isLoad = task.Action() == LoadAction::load;
  std::vector<std::string> cells = {std::to_string(rank.iCase + 1),
                                    task.Cases()[static_cast<std::size_t>(rank.iCase)].name};
  const auto append = [&cells](const std::array<std::string, 3>& three) {
    cells.insert(cells.end(), three.begin(), three.end());
  };
  if (!isLoad) append(units.Plane(record.deformation));
  append(units.Load(record.load));
  cells.push_back(UtilisationText(rank.utilisation));
  cells.push_back(UtilisationText(record.momentRatio));
  if (hasFactor) cells.push_back(rank.carried ? StringFrom(record.reductionFactor) : "-");
  cells.push_back(std::string(rank.carried ? "OK" : "FAILS") + (rank.atCap ? "*" : ""));
  if (isLoad) append(units.LoadAtFailure(record.loadAtFailure));
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(record.deformation);
  cells.push_back(AngleText(axis.angle));
  cells.push_back(units.Value(axis.offset, Dimension::sectionDimensions));
  cells.push_back(units.Value(MostCompressedConcrete(record), Dimension::stress));
  cells.push_back(units.Value(LargestBarStress(record), Dimension::stress));
  return cells;
}

void PrintCounts(const std::vector<Rank>& ranks, std::size_t shown, std::ostream& out) {
  const auto carried =
      std::count_if(ranks.begin(), ranks.end(), [](const Rank& r) { return r.carried; });
  out << '\n'
      << ranks.size() << (ranks.size() == 1 ? " case: " : " cases: ") << carried << " carried, "
      << std::ssize(ranks) - carried << " not carried";
  if (shown < ranks.size()) out << "; " << shown << " shown, --all shows all";
  out << "\nGoverning: case " << ranks.front().iCase + 1 << ", utilisation "
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
  std::vector<int> shown;
  for (std::size_t i = 0; i < std::min(limit, ranks.size()); ++i) shown.push_back(ranks[i].iCase);
  auto rank = ranks.begin();
  ForEachUlsRecord(app, iSec, iTask, shown, [&](int, const CaseULSDetails& record) {
    table.AddRow(Cells(*rank++, record, task, units, hasFactor));
  });
  table.Print(out);
  PrintCounts(ranks, shown.size(), out);
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

void PrintReadingRules(const VelmoApp& app, int iSec, std::ostream& out) {
  out << "Signs: tension positive; positive Myy puts tension on the +z side, positive Mzz on the "
         "-y side\n"
      << "Loads act at the section's origin";
  const GrossArea gross = GrossConcreteOf(app.pData()->Section(iSec));
  if (gross.area > 0.0) {
    const UnitText units(app.pData()->Units());
    const std::string unit = " " + units.Unit(Dimension::sectionDimensions);
    const auto text = [&](double value) {
      return units.Value(value, Dimension::sectionDimensions) + unit;
    };
    out << "; the gross concrete centroid is at y = " << text(gross.centroid.x)
        << ", z = " << text(gross.centroid.y);
  }
  out << '\n';
}

}  // namespace Orlix::Cli
