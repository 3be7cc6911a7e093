#include "cli/detail_tables.h"

#include <cmath>
#include <cstddef>
#include <ostream>

#include "cli/case_table.h"
#include "cli/printable.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Cli {

using Align = TextTable::Align;

std::string CaseTitle(const Data::Velmo9::AnalysisTask& task, int iCase) {
  const std::string& name = task.Cases()[static_cast<std::size_t>(iCase)].name;
  return "Case " + std::to_string(iCase + 1) + (name.empty() ? "" : " \"" + Printable(name) + "\"");
}

void PrintNeutralAxis(const Data::Velmo9::Deformation& plane, const UnitText& units,
                      std::ostream& out) {
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(plane);
  out << "Neutral axis: ";
  if (std::isfinite(axis.angle)) {
    out << "angle " << AngleText(axis.angle) << "° from the y axis, offset "
        << units.Value(axis.offset, Dimension::sectionDimensions) << ' '
        << units.Unit(Dimension::sectionDimensions) << '\n';
  } else {
    out << "none\n";
  }
}

TextTable LoadTable(const UnitText& units) {
  TextTable table;
  table.AddColumn("Load", "", Align::left);
  AddLoadColumns(table, units);
  return table;
}

TextTable PlaneTable(const UnitText& units) {
  TextTable table;
  table.AddColumn("Deformation", "", Align::left);
  AddPlaneColumns(table, units);
  return table;
}

void AddThree(TextTable& table, const char* what, const std::array<std::string, 3>& cells) {
  table.AddRow({what, cells[0], cells[1], cells[2]});
}

TextTable SampleTable(const UnitText& units, const char* what, Align align) {
  TextTable table;
  table.AddColumn("Component", "");
  table.AddColumn(what, "", align);
  table.AddColumn("grade", "", Align::left);
  table.AddColumn("y", units.Unit(Dimension::sectionDimensions));
  table.AddColumn("z", units.Unit(Dimension::sectionDimensions));
  return table;
}

void PrintTable(const TextTable& table, std::ostream& out) {
  if (table.IsEmpty()) return;
  table.Print(out);
  out << '\n';
}

}  // namespace Orlix::Cli
