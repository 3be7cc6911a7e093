#pragma once

#include <array>
#include <iosfwd>
#include <string>
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

/// Columns of a point's or bar's grade and place, and their cells.
void AddPlaceColumns(TextTable& table, const UnitText& units);
template <class Sample>
void AddPlaceCells(std::vector<std::string>& cells, const Sample& sample, const UnitText& units) {
  cells.push_back(to_string(sample.grade));
  cells.push_back(units.Value(sample.position.x, Dimension::sectionDimensions));
  cells.push_back(units.Value(sample.position.y, Dimension::sectionDimensions));
}

/// Prints a table and an empty line.
void PrintTable(const TextTable& table, std::ostream& out);

}  // namespace Orlix::Cli
