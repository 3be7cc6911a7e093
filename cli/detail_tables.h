#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/Deformation.h"

namespace Orlix::Cli {

/// "Case 2 "wind"": what the account of a case begins with.
std::string CaseTitle(const Data::Velmo9::AnalysisTask& task, int iCase);

/// Prints "Neutral axis: …" of a plane and a line end; "none" without curvature.
void PrintNeutralAxis(const Data::Velmo9::Deformation& plane, const UnitText& units,
                      std::ostream& out);

/// A table of loads, or of planes; a row is what it is of and three numbers.
TextTable LoadTable(const UnitText& units);
TextTable PlaneTable(const UnitText& units);
void AddThree(TextTable& table, const char* what, const std::array<std::string, 3>& cells);

/// A table of points or bars, with columns of the component, of the point's type or the bar's
/// number under the heading `what`, and of grade and place.
TextTable SampleTable(const UnitText& units, const char* what, TextTable::Align align);

/// Adds a line for each sample; addCells(cells, sample) appends those behind the place.
template <class SamplesOfComponents, class AddCells>
void AddSamples(TextTable& table, const SamplesOfComponents& samples, const UnitText& units,
                AddCells addCells) {
  for (const auto& [component, list] : samples) {
    for (const auto& sample : list) {
      std::vector<std::string> cells = {std::to_string(component + 1)};
      if constexpr (requires { sample.number; }) {
        cells.push_back(std::to_string(sample.number + 1));
      } else {
        cells.push_back(to_string(sample.materialType));
      }
      cells.push_back(to_string(sample.grade));
      cells.push_back(units.Value(sample.position.x, Dimension::sectionDimensions));
      cells.push_back(units.Value(sample.position.y, Dimension::sectionDimensions));
      addCells(cells, sample);
      table.AddRow(std::move(cells));
    }
  }
}

/// Prints a table and an empty line; nothing of a table without rows.
void PrintTable(const TextTable& table, std::ostream& out);

}  // namespace Orlix::Cli
