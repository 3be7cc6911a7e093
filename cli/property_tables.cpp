#include "cli/property_tables.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "model/oxdata/section/section_properties.h"
#include "model/vlsol/transformed_properties.h"

namespace Orlix::Cli {

using Data::CVelmoData;
using Data::Velmo9::VelmoSection;
using Numeric::CentroidalProperties;
using VlSol::TransformedProperties;
using VlSol::TransformedTerm;
using Align = TextTable::Align;

namespace {

void AddPlace(TextTable& table, const std::string& length) {
  table.AddColumn("area", length + "²");
  table.AddColumn("centroid y", length);
  table.AddColumn("centroid z", length);
}

void AppendPlace(const CentroidalProperties& p, const UnitText& units,
                 std::vector<std::string>& cells) {
  cells.push_back(units.SquaredValue(p.area, Dimension::sectionDimensions));
  cells.push_back(units.Value(p.centroid.x, Dimension::sectionDimensions));
  cells.push_back(units.Value(p.centroid.y, Dimension::sectionDimensions));
}

void PrintGeometry(const Data::SectionProperties& properties, const UnitText& units,
                   std::ostream& out) {
  const std::string length = units.Unit(Dimension::sectionDimensions);
  TextTable table;
  table.AddColumn("Section", "", Align::left);
  AddPlace(table, length);
  for (const char* heading : {"Iyy", "Izz", "Iyz", "Imax", "Imin"}) {
    table.AddColumn(heading, length + "⁴");
  }
  table.AddColumn("axis of Imax", "°");
  for (const auto& [name, p] :
       {std::pair("gross", properties.gross), std::pair("net of bars", properties.net)}) {
    std::vector<std::string> cells{name};
    AppendPlace(p, units, cells);
    for (const double moment : {p.iyy, p.izz, p.iyz, p.major, p.minor}) {
      cells.push_back(units.FourthPowerValue(moment, Dimension::sectionDimensions));
    }
    cells.push_back(AngleText(p.angle));
    table.AddRow(std::move(cells));
  }
  out << '\n';
  table.Print(out);
}

std::vector<std::string> Cells(const TransformedProperties& p, const UnitText& units) {
  std::vector<std::string> cells{units.Value(p.modulus, Dimension::stress)};
  AppendPlace(p.section, units, cells);
  cells.push_back(units.Value(p.EA(), Dimension::force));
  for (const double stiffness : {p.EIyy(), p.EIzz(), p.EImax(), p.EImin()}) {
    cells.push_back(units.Value(stiffness, Dimension::bendingStiffness));
  }
  cells.push_back(AngleText(p.section.angle));
  return cells;
}

// Lines of the table of transformed properties: tasks, term, numbers.
class TransformedLines {
 public:
  void Add(int iTask, const char* term, std::vector<std::string> cells) {
    const std::string number = std::to_string(iTask + 1);
    const auto same = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
      return line.term == term && line.cells == cells;
    });
    if (same == lines_.end()) {
      lines_.push_back({number, term, std::move(cells)});
    } else {
      same->tasks += "," + number;
    }
  }

  void AppendTo(TextTable& table) const {
    for (const Line& line : lines_) {
      std::vector<std::string> cells{line.tasks, line.term};
      cells.insert(cells.end(), line.cells.begin(), line.cells.end());
      table.AddRow(std::move(cells));
    }
  }

 private:
  struct Line {
    std::string tasks;
    std::string term;
    std::vector<std::string> cells;
  };
  std::vector<Line> lines_;
};

void PrintTransformed(const CVelmoData& document, const VelmoSection& section,
                      const UnitText& units, std::ostream& out) {
  TransformedLines lines;
  for (int i = 0; i < static_cast<int>(section.Tasks().size()); ++i) {
    const auto cells = [&](TransformedTerm term) {
      return Cells(VlSol::TransformedPropertiesOf(document, section, i, term), units);
    };
    lines.Add(i, "short", cells(TransformedTerm::shortTerm));
    lines.Add(i, "long", cells(TransformedTerm::longTerm));
  }
  TextTable table;
  table.AddColumn("Transformed, task", "", Align::left);
  table.AddColumn("term", "", Align::left);
  table.AddColumn("modulus", units.Unit(Dimension::stress));
  AddPlace(table, units.Unit(Dimension::sectionDimensions));
  table.AddColumn("EA", units.Unit(Dimension::force));
  for (const char* heading : {"EIyy", "EIzz", "EImax", "EImin"}) {
    table.AddColumn(heading, units.Unit(Dimension::bendingStiffness));
  }
  table.AddColumn("axis of EImax", "°");
  lines.AppendTo(table);
  if (table.IsEmpty()) return;
  out << '\n';
  table.Print(out);
}

}  // namespace

void PrintProperties(const CVelmoData& document, const VelmoSection& section, std::ostream& out) {
  const Data::SectionProperties properties = Data::SectionPropertiesOf(section);
  if (!(properties.gross.area > 0.0)) return;
  const UnitText units(document.Units());
  PrintGeometry(properties, units, out);
  PrintTransformed(document, section, units, out);
}

}  // namespace Orlix::Cli
