// The ultimate limit state tables with a row a case: a part of CsvBuilder.

#include <utility>

#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {

using Data::Velmo9::CaseULSDetails;

void CsvBuilder::AddUlsAppliedLoads(const UlsList& list) {
  AddUlsTable(
      {"ULS - Applied Loads", "Force X,Moment YY,Moment ZZ,Load Utilisation %",
       &CsvBuilder::AddLoadLineWithUtilisation, &CaseULSDetails::loadUtilisation, "utilisation"},
      list);
}

void CsvBuilder::AddUlsResponseDeformations(const UlsList& list) {
  std::string columns =
      "Strain X,Curvature YY,Curvature ZZ,Neutral axis angle,Neutral axis offset,"
      "Deformation utilisation";
  if (strengthReduction_) columns += ",Reduction Factor";
  AddUlsTable({"ULS - Deformations under applied loads", std::move(columns),
               &CsvBuilder::AddDeformationLineWithUtilisation,
               &CaseULSDetails::deformationUtilisation, "deformation utilisation"},
              list);
}

void CsvBuilder::AddUlsAppliedDeformations(const UlsList& list) {
  AddUlsTable({"ULS - Applied Deformations",
               "Strain X,Curvature YY,Curvature ZZ,Neutral axis angle, Neutral axis offset,"
               "Deformation utilisation",
               &CsvBuilder::AddDeformationLineWithUtilisation,
               &CaseULSDetails::deformationUtilisation, "deformation utilisation"},
              list);
}

void CsvBuilder::AddUlsResponseLoads(const UlsList& list) {
  std::string columns = "Force X,Moment YY,Moment ZZ,Load utilisation %,M/Mu";
  if (strengthReduction_) columns += ",Reduction factor";
  AddUlsTable(
      {"ULS - Loads under applied deformations", std::move(columns),
       &CsvBuilder::AddLoadLineWithMomentRatio, &CaseULSDetails::momentRatio, "moment ratio"},
      list);
}

void CsvBuilder::AddUlsFailureLoads(const UlsList& list) {
  AddUlsTable({"ULS - Loads at failure", "Force X,Moment YY,Moment ZZ,M/Mu",
               &CsvBuilder::AddLoadWithMomentRatio, &CaseULSDetails::momentRatio, "moment ratio"},
              list);
}

void CsvBuilder::AddUlsFailureDeformations(const UlsList& list) {
  AddUlsTable({"ULS - Deformations at failure",
               "Strain X,Curvature YY,Curvature ZZ,Neutral axis angle,Neutral axis offset",
               &CsvBuilder::AddFailureDeformationLine, nullptr, ""},
              list);
}

void CsvBuilder::AddUlsTable(const UlsTable& table, const UlsList& list) {
  AddTableHeading(table.title, table.columns);
  for (const ULSCaseInformation& info : list) (this->*table.addRow)(info);
  if (table.envelopeOf == nullptr || list.size() <= 2) return;
  const ULSCaseInformation* greatest = &list.front();
  const ULSCaseInformation* smallest = &list.front();
  for (const ULSCaseInformation& info : list) {
    const double value = info.details.*table.envelopeOf;
    if (value > greatest->details.*table.envelopeOf) greatest = &info;
    if (value < smallest->details.*table.envelopeOf) smallest = &info;
  }
  lines_.push_back(std::string("Maximum ") + table.envelopeName);
  (this->*table.addRow)(*greatest);
  lines_.push_back(std::string("Minimum ") + table.envelopeName);
  (this->*table.addRow)(*smallest);
}

void CsvBuilder::AddLoadLineWithUtilisation(const ULSCaseInformation& info) {
  const CaseULSDetails& details = info.details;
  AddLine(StartRow(info.common).AddLoad(details.load).AddPercentage(details.loadUtilisation));
}

void CsvBuilder::AddDeformationLineWithUtilisation(const ULSCaseInformation& info) {
  const CaseULSDetails& details = info.details;
  CsvRow& row = StartRow(info.common)
                    .AddDeformationWithNeutralAxis(details.deformation)
                    .AddPercentage(details.deformationUtilisation);
  if (strengthReduction_ && taskKind_ == static_cast<std::int32_t>(LoadAction::load)) {
    row.AddNumber(details.reductionFactor);
  }
  AddLine(row);
}

void CsvBuilder::AddLoadLineWithMomentRatio(const ULSCaseInformation& info) {
  const CaseULSDetails& details = info.details;
  CsvRow& row = StartRow(info.common)
                    .AddLoad(details.load)
                    .AddPercentage(details.loadUtilisation)
                    .AddNumber(details.momentRatio);
  if (strengthReduction_ && taskKind_ == static_cast<std::int32_t>(LoadAction::deformation)) {
    row.AddNumber(details.reductionFactor);
  }
  AddLine(row);
}

void CsvBuilder::AddLoadWithMomentRatio(const ULSCaseInformation& info) {
  const CaseULSDetails& details = info.details;
  AddLine(StartRow(info.common).AddLoad(details.loadAtFailure).AddNumber(details.momentRatio));
}

void CsvBuilder::AddFailureDeformationLine(const ULSCaseInformation& info) {
  AddLine(StartRow(info.common).AddDeformationWithNeutralAxis(info.details.deformationAtFailure));
}

}  // namespace Orlix::Velmo
