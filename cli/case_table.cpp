#include "cli/case_table.h"

#include <ostream>

#include "cli/concrete_facts.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Cli {

namespace {

double LargestBarStress(const Data::Velmo9::StressStrainSummary& summary) {
  if (!summary.HasRebar()) return std::numeric_limits<double>::quiet_NaN();
  const auto [max, min, maxStrain, minStrain] = summary.Rebar();
  return std::abs(max) >= std::abs(min) ? max : min;
}

}  // namespace

void AddLoadColumns(TextTable& table, const UnitText& units, const std::string& suffix) {
  table.AddColumn("N" + suffix, units.Unit(Dimension::force));
  table.AddColumn("Myy" + suffix, units.Unit(Dimension::moment));
  table.AddColumn("Mzz" + suffix, units.Unit(Dimension::moment));
}

void AddPlaneColumns(TextTable& table, const UnitText& units) {
  table.AddColumn("eps0", units.Unit(Dimension::strain));
  table.AddColumn("kyy", units.Unit(Dimension::curvature));
  table.AddColumn("kzz", units.Unit(Dimension::curvature));
}

void AddThree(Cells& cells, const std::array<std::string, 3>& three) {
  cells.insert(cells.end(), three.begin(), three.end());
}

void AddCaseColumns(TextTable& table) {
  table.AddColumn("Case", "");
  table.AddColumn("name", "", TextTable::Align::left);
}

Cells CaseCells(const Data::Velmo9::AnalysisTask& task, int iCase) {
  return {std::to_string(iCase + 1), task.Cases()[static_cast<std::size_t>(iCase)].name};
}

void AddStressColumns(TextTable& table, const UnitText& units) {
  table.AddColumn("NA angle", "°");
  table.AddColumn("NA offset", units.Unit(Dimension::sectionDimensions));
  table.AddColumn("concrete", units.Unit(Dimension::stress));
  table.AddColumn("bar", units.Unit(Dimension::stress));
}

void AddStressCells(Cells& cells, const Data::Velmo9::Deformation& plane, double concrete,
                    const Data::Velmo9::StressStrainSummary& summary, const UnitText& units) {
  const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(plane);
  cells.push_back(AngleText(axis.angle));
  cells.push_back(units.Value(axis.offset, Dimension::sectionDimensions));
  cells.push_back(units.Value(concrete, Dimension::stress));
  cells.push_back(units.Value(LargestBarStress(summary), Dimension::stress));
}

void PrintCounts(std::size_t count, const std::string& outcome, std::size_t shown,
                 std::ostream& out) {
  out << '\n' << count << (count == 1 ? " case: " : " cases: ") << outcome;
  if (shown < count) out << "; " << shown << " shown, --all shows all";
  out << '\n';
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
