#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/case_table.h"
#include "cli/detail_tables.h"
#include "cli/sls_table.h"
#include "model/oxutil/StringFrom.h"
#include "results/result_text.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;

namespace {

/// Prints one record.
class SlsCasePrinter {
 public:
  SlsCasePrinter(const VelmoApp& app, const AnalysisTask& task, std::ostream& out)
      : app_(app), units_(app.pData()->Units()), task_(task), out_(out) {}

  void Print(int iCase, const CaseSLSDetails& record) const {
    out_ << CaseTitle(task_, iCase) << ": " << StateText(record) << '\n';
    if (!HasSolution(record)) {
      out_ << "No strains and stresses\n\n";
      return;
    }
    out_ << "Cracking utilisation "
         << CrackingText(task_.SLSResult(iCase, false, true, false).CrackingUtilisation());
    if (std::isfinite(record.zeta)) out_ << ", zeta " << StringFrom(record.zeta);
    if (record.hasCrackWidth) {
      out_ << ", crack width " << units_.Value(record.crackWidth, Dimension::sectionDimensions)
           << ' ' << units_.Unit(Dimension::sectionDimensions);
    }
    out_ << '\n';
    PrintNeutralAxis(record.interpolatedDeformation, units_, out_);
    PrintStiffness(record.stiffness);
    // Without a cracked state of its own there is one state, under the name of the uncracked one.
    const bool both = record.stressStrainSummary.cracked.has_value();
    PrintLoads(record, both);
    PrintPlanes(record, both);
    PrintPoints(record, both);
    PrintBars(record, both);
  }

  void PrintCracks(const VelmoApp::CrackResults& results) const {
    const auto& rule = app_.pData()->concreteCode().Data().crackWidth;
    if (!rule || results.empty()) return;
    const auto names = Data::Design::NamesOfCrackFactors(*rule);
    TextTable table;
    for (const char* number : {"component", "face", "bar"}) table.AddColumn(number, "");
    const std::string unit = units_.Unit(Dimension::sectionDimensions);
    for (const char* length : {"y", "z", "crack width"}) table.AddColumn(length, unit);
    table.AddColumn(std::string(names.length), unit);
    table.AddColumn(std::string(names.strain), units_.Unit(Dimension::strain));
    table.AddColumn("remark", "", TextTable::Align::left);
    for (const auto& [component, cracks] : results) {
      for (const auto& crack : cracks) {
        const auto length = [&](double value) {
          return units_.Value(value, Dimension::sectionDimensions);
        };
        table.AddRow({std::to_string(component + 1), std::to_string(crack.face + 1),
                      crack.bar < 0 ? "-" : std::to_string(crack.bar + 1), length(crack.position.x),
                      length(crack.position.y), length(crack.width), length(crack.spacing),
                      units_.Value(crack.strain, Dimension::strain),
                      CrackRemarkText(crack.remark)});
      }
    }
    PrintTable(table, out_);
  }

 private:
  void PrintStiffness(const Data::Velmo9::Stiffness& stiffness) const {
    out_ << "Secant stiffness: EA " << units_.Value(stiffness.axial, Dimension::force) << ' '
         << units_.Unit(Dimension::force) << ", EIyy "
         << units_.Value(stiffness.bendingYY, Dimension::bendingStiffness) << ", EIzz "
         << units_.Value(stiffness.bendingZZ, Dimension::bendingStiffness) << ' '
         << units_.Unit(Dimension::bendingStiffness) << "\n\n";
  }

  void PrintLoads(const CaseSLSDetails& record, bool both) const {
    TextTable table = LoadTable(units_);
    if (task_.Action() == LoadAction::load) {
      AddThree(table, "of the case", units_.Load(record.load));
    }
    AddThree(table, "uncracked", units_.Load(record.uncrackedLoad));
    if (both) AddThree(table, "cracked", units_.Load(record.crackedLoad));
    PrintTable(table, out_);
  }

  void PrintPlanes(const CaseSLSDetails& record, bool both) const {
    TextTable table = PlaneTable(units_);
    if (task_.Action() != LoadAction::load) {
      AddThree(table, "of the case", units_.Plane(record.appliedDeformation));
    }
    AddThree(table, "uncracked", units_.Plane(record.uncrackedDeformation));
    if (both) AddThree(table, "cracked", units_.Plane(record.crackedDeformation));
    if (std::isfinite(record.zeta)) {
      AddThree(table, "interpolated", units_.Plane(record.interpolatedDeformation));
    }
    PrintTable(table, out_);
  }

  void PrintPoints(const CaseSLSDetails& record, bool both) const {
    TextTable table = SampleTable(units_, "type", TextTable::Align::left);
    AddStateColumns(table, both, false);
    AddSamples(table, record.pointResults, units_,
               [&](auto& cells, const auto& point) { AddStateCells(cells, point, both); });
    PrintTable(table, out_);
  }

  void PrintBars(const CaseSLSDetails& record, bool both) const {
    TextTable table = SampleTable(units_, "bar", TextTable::Align::right);
    AddStateColumns(table, both, true);
    AddSamples(table, record.barResults, units_, [&](auto& cells, const auto& bar) {
      AddStateCells(cells, bar, both);
      cells.push_back(units_.Value(bar.forceUncracked, Dimension::force));
      if (both) cells.push_back(units_.Value(bar.forceCracked, Dimension::force));
    });
    PrintTable(table, out_);
  }

  void AddStateColumns(TextTable& table, bool both, bool forces) const {
    const auto add = [&](const char* heading, Dimension dimension) {
      table.AddColumn(heading + std::string(both ? " I" : ""), units_.Unit(dimension));
      if (both) table.AddColumn(heading + std::string(" II"), units_.Unit(dimension));
    };
    add("strain", Dimension::strain);
    add("stress", Dimension::stress);
    if (forces) add("force", Dimension::force);
  }

  template <class Sample>
  void AddStateCells(std::vector<std::string>& cells, const Sample& sample, bool both) const {
    cells.push_back(units_.Value(sample.strainUncracked, Dimension::strain));
    if (both) cells.push_back(units_.Value(sample.strainCracked, Dimension::strain));
    cells.push_back(units_.Value(sample.stressUncracked, Dimension::stress));
    if (both) cells.push_back(units_.Value(sample.stressCracked, Dimension::stress));
  }

  const VelmoApp& app_;
  UnitText units_;
  const AnalysisTask& task_;
  std::ostream& out_;
};

}  // namespace

void PrintSlsDetails(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                     std::ostream& out) {
  const SlsCasePrinter printer(app, app.pData()->Section(iSec).Task(iTask), out);
  ForEachSlsRecord(app, iSec, iTask, cases, [&](int iCase, const CaseSLSDetails& record) {
    printer.Print(iCase, record);
    printer.PrintCracks(app.GetCrackResults(iSec, iTask, iCase));
  });
  out << "I: uncracked, II: cracked; the neutral axis is that of the plane the section is reported "
         "with\n";
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
