#include "cli/case_details.h"

#include <ostream>
#include <string>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_records.h"
#include "cli/case_table.h"
#include "cli/detail_tables.h"
#include "model/oxutil/StringFrom.h"
#include "model/vldata/document/governing_utilisation.h"
#include "results/result_text.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;

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
      out_ << "No strains and stresses: the section does not carry the case; `velmo plot --case "
           << iCase + 1 << " --state failure` draws those at its failure load\n\n";
      return;
    }
    PrintPoints(record);
    PrintBars(record);
  }

 private:
  void PrintHeading(const AnalysisTask& task, int iCase, const CaseULSDetails& record) const {
    const Data::Velmo9::UlSResult result = task.ULSResult(iCase, false);
    out_ << CaseTitle(task, iCase) << ": " << (record.status ? "carried" : "NOT carried")
         << "\nUtilisation " << UtilisationText(GoverningUtilisation(result, task.Action()))
         << ", M/Mu " << UtilisationText(record.momentRatio);
    if (task.Action() == LoadAction::load && record.status) {
      out_ << ", of the strain limits " << UtilisationText(record.deformationUtilisation);
    }
    if (record.status && document_.concreteCode().IsStrengthReduction()) {
      out_ << ", strength reduction factor " << StringFrom(record.reductionFactor);
    }
    if (result.IsFailureAtCap()) {
      out_ << "\nFailure is at a numerical cap on strain: no limit of a material governs";
    }
    out_ << '\n';
    PrintNeutralAxis(record.deformation, units_, out_);
    out_ << '\n';
  }

  void PrintLoads(const CaseULSDetails& record) const {
    TextTable table = LoadTable(units_);
    AddThree(table, "of the case", units_.Load(record.load));
    AddThree(table, "at failure", units_.LoadAtFailure(record.loadAtFailure));
    PrintTable(table, out_);
  }

  void PrintPlanes(const CaseULSDetails& record, LoadAction action) const {
    const bool known = record.status || action != LoadAction::load;
    TextTable table = PlaneTable(units_);
    AddThree(table, "of the case",
             known ? units_.Plane(record.deformation)
                   : units_.PlaneAtFailure(Data::Velmo9::Deformation()));
    AddThree(table, "at failure", units_.PlaneAtFailure(record.deformationAtFailure));
    PrintTable(table, out_);
  }

  void PrintPoints(const CaseULSDetails& record) const {
    TextTable table = SampleTable(units_, "type", TextTable::Align::left);
    AddStressColumns(table);
    AddSamples(table, record.pointResults, units_,
               [this](auto& cells, const auto& point) { AddStressCells(cells, point); });
    PrintTable(table, out_);
  }

  void PrintBars(const CaseULSDetails& record) const {
    TextTable table = SampleTable(units_, "bar", TextTable::Align::right);
    AddStressColumns(table);
    table.AddColumn("force", units_.Unit(Dimension::force));
    AddSamples(table, record.barResults, units_, [this](auto& cells, const auto& bar) {
      AddStressCells(cells, bar);
      cells.push_back(units_.Value(bar.force, Dimension::force));
    });
    PrintTable(table, out_);
  }

  void AddStressColumns(TextTable& table) const {
    table.AddColumn("strain", units_.Unit(Dimension::strain));
    table.AddColumn("stress", units_.Unit(Dimension::stress));
  }

  template <class Sample>
  void AddStressCells(std::vector<std::string>& cells, const Sample& sample) const {
    cells.push_back(units_.Value(sample.strain, Dimension::strain));
    cells.push_back(units_.Value(sample.stress, Dimension::stress));
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
  ForEachUlsRecord(app, iSec, iTask, cases, [&](int iCase, const CaseULSDetails& record) {
    printer.Print(task, iCase, record);
  });
  PrintReadingRules(app, iSec, out);
}

}  // namespace Orlix::Cli
