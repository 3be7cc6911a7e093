#include "cli/case_details.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/printable.h"
#include "cli/solve_table.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;
using Align = TextTable::Align;

namespace {

/// Prints one record.
class CasePrinter {
 public:
  CasePrinter(const VelmoApp& app, std::ostream& out)
      : document_(*app.pData()), units_(document_.Units()), out_(out) {}

  void Print(const AnalysisTask& task, int iCase, const CaseULSDetails& record) const {
    PrintHeading(task, iCase, record);
    PrintLoads(record);
    PrintPlanes(record, task.Action());
    if (record.pointResults.empty() && record.barResults.empty()) {
      out_ << "No strains and stresses: the section does not carry the case\n\n";
      return;
    }
    PrintPoints(record);
    PrintBars(record);
  }

 private:
  void PrintHeading(const AnalysisTask& task, int iCase, const CaseULSDetails& record) const {
    const Data::Velmo9::UlSResult result = task.ULSResult(iCase, false);
    const std::string& name = task.Cases()[static_cast<std::size_t>(iCase)].name;
    out_ << "Case " << iCase + 1 << (name.empty() ? "" : " \"" + Printable(name) + "\"") << ": "
         << (record.status ? "carried" : "NOT carried") << "\nUtilisation "
         << UtilisationText(GoverningUtilisation(result, task.Action())) << ", M/Mu "
         << UtilisationText(record.momentRatio);
    if (task.Action() == LoadAction::load && record.status) {
      out_ << ", of the strain limits " << UtilisationText(record.deformationUtilisation);
    }
    if (record.status && document_.concreteCode().IsStrengthReduction()) {
      out_ << ", strength reduction factor " << StringFrom(record.reductionFactor);
    }
    if (result.IsFailureAtCap()) {
      out_ << "\nFailure is at a numerical cap on strain: no limit of a material governs";
    }
    const NeutralAxisData axis = NeutralAxisCalculator::ComputeNeutralAxisData(record.deformation);
    out_ << "\nNeutral axis: ";
    if (std::isfinite(axis.angle)) {
      out_ << "angle " << AngleText(axis.angle) << "° from the y axis, offset "
           << units_.Value(axis.offset, Dimension::sectionDimensions) << ' '
           << units_.Unit(Dimension::sectionDimensions) << "\n\n";
    } else {
      out_ << "none\n\n";
    }
  }

  void PrintLoads(const CaseULSDetails& record) const {
    TextTable table;
    table.AddColumn("Load", "", Align::left);
    table.AddColumn("N", units_.Unit(Dimension::force));
    table.AddColumn("Myy", units_.Unit(Dimension::moment));
    table.AddColumn("Mzz", units_.Unit(Dimension::moment));
    AddThree(table, "of the case", units_.Load(record.load));
    AddThree(table, "at failure", units_.LoadAtFailure(record.loadAtFailure));
    PrintTable(table);
  }

  void PrintPlanes(const CaseULSDetails& record, LoadAction action) const {
    const bool known = record.status || action != LoadAction::load;
    TextTable table;
    table.AddColumn("Deformation", "", Align::left);
    table.AddColumn("eps0", units_.Unit(Dimension::strain));
    table.AddColumn("kyy", units_.Unit(Dimension::curvature));
    table.AddColumn("kzz", units_.Unit(Dimension::curvature));
    AddThree(table, "of the case",
             known ? units_.Plane(record.deformation)
                   : units_.PlaneAtFailure(Data::Velmo9::Deformation()));
    AddThree(table, "at failure", units_.PlaneAtFailure(record.deformationAtFailure));
    PrintTable(table);
  }

  void PrintPoints(const CaseULSDetails& record) const {
    TextTable table;
    table.AddColumn("Component", "");
    table.AddColumn("type", "", Align::left);
    AddSampleColumns(table);
    for (const auto& [component, points] : record.pointResults) {
      for (const auto& point : points) {
        std::vector<std::string> cells = {std::to_string(component + 1),
                                          to_string(point.materialType)};
        AddSampleCells(cells, point);
        table.AddRow(std::move(cells));
      }
    }
    PrintTable(table);
  }

  void PrintBars(const CaseULSDetails& record) const {
    if (record.barResults.empty()) return;
    TextTable table;
    table.AddColumn("Component", "");
    table.AddColumn("bar", "");
    AddSampleColumns(table);
    table.AddColumn("force", units_.Unit(Dimension::force));
    for (const auto& [component, bars] : record.barResults) {
      for (const auto& bar : bars) {
        std::vector<std::string> cells = {std::to_string(component + 1),
                                          std::to_string(bar.number + 1)};
        AddSampleCells(cells, bar);
        cells.push_back(units_.Value(bar.force, Dimension::force));
        table.AddRow(std::move(cells));
      }
    }
    PrintTable(table);
  }

  void AddSampleColumns(TextTable& table) const {
    table.AddColumn("grade", "", Align::left);
    table.AddColumn("y", units_.Unit(Dimension::sectionDimensions));
    table.AddColumn("z", units_.Unit(Dimension::sectionDimensions));
    table.AddColumn("strain", units_.Unit(Dimension::strain));
    table.AddColumn("stress", units_.Unit(Dimension::stress));
  }

  template <class Sample>
  void AddSampleCells(std::vector<std::string>& cells, const Sample& sample) const {
    cells.push_back(to_string(sample.grade));
    cells.push_back(units_.Value(sample.position.x, Dimension::sectionDimensions));
    cells.push_back(units_.Value(sample.position.y, Dimension::sectionDimensions));
    cells.push_back(units_.Value(sample.strain, Dimension::strain));
    cells.push_back(units_.Value(sample.stress, Dimension::stress));
  }

  static void AddThree(TextTable& table, const char* what,
                       const std::array<std::string, 3>& cells) {
    table.AddRow({what, cells[0], cells[1], cells[2]});
  }

  void PrintTable(const TextTable& table) const {
    table.Print(out_);
    out_ << '\n';
  }

  const Data::CVelmoData& document_;
  UnitText units_;
  std::ostream& out_;
};

}  // namespace

void PrintCaseDetails(const VelmoApp& app, int iSec, int iTask, const std::vector<int>& cases,
                      std::ostream& out) {
  const AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  const CasePrinter printer(app, out);
  ForEachRecord(app, iSec, iTask, cases, [&](int iCase, const CaseULSDetails& record) {
    printer.Print(task, iCase, record);
  });
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
