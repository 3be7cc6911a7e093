#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iosfwd>
#include <limits>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "cli/TextTable.h"
#include "cli/UnitText.h"

// What the tables of both limit states share.

namespace Orlix::Cli {

using Cells = std::vector<std::string>;

/// Columns of a load and of a plane, `suffix` behind each heading.
void AddLoadColumns(TextTable& table, const UnitText& units, const std::string& suffix = "");
void AddPlaneColumns(TextTable& table, const UnitText& units);
void AddThree(Cells& cells, const std::array<std::string, 3>& three);

/// The columns a line of a case begins with, its number and name, and their cells.
void AddCaseColumns(TextTable& table);
Cells CaseCells(const Data::Velmo9::AnalysisTask& task, int iCase);

/// The columns it ends with, the neutral axis and the stresses, and their cells.
/// @param concrete  stress at the most compressed point [Pa]
void AddStressColumns(TextTable& table, const UnitText& units);
void AddStressCells(Cells& cells, const Data::Velmo9::Deformation& plane, double concrete,
                    const Data::Velmo9::StressStrainSummary& summary, const UnitText& units);

/// The least stress(point) of the points in concrete; NaN without any.
template <class Record, class Stress>
double MostCompressedConcrete(const Record& record, Stress stress) {
  double least = std::numeric_limits<double>::quiet_NaN();
  for (const auto& [component, points] : record.pointResults) {
    for (const auto& point : points) {
      if (point.materialType == L"concrete") least = std::fmin(least, stress(point));
    }
  }
  return least;
}

/// The cases of the first ranks, no more than the limit.
template <class Rank>
std::vector<int> Shown(const std::vector<Rank>& ranks, std::size_t limit) {
  std::vector<int> cases;
  for (std::size_t i = 0; i < std::min(limit, ranks.size()); ++i) cases.push_back(ranks[i].iCase);
  return cases;
}

/// Prints how many cases there are, what they gave and how many of them are shown.
void PrintCounts(std::size_t count, const std::string& outcome, std::size_t shown,
                 std::ostream& out);

/// Prints the sign rule and the point the loads act at.
void PrintReadingRules(const VelmoApp& app, int iSec, std::ostream& out);

}  // namespace Orlix::Cli
