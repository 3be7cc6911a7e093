// The serviceability tables with a row a case: a part of CsvBuilder.

#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {

using Data::Velmo9::CaseSLSDetails;

namespace {

const std::vector<std::string>& LoadColumns() {
  static const std::vector<std::string> kColumns = {"Force X", "Moment YY", "Moment ZZ"};
  return kColumns;
}

const std::vector<std::string>& DeformationColumns() {
  static const std::vector<std::string> kColumns = {"Strain X", "Curvature YY", "Curvature ZZ",
                                                    "Neutral axis angle", "Neutral axis offset"};
  return kColumns;
}

// The columns of both states, side by side.
std::vector<std::string> OfBothStates(const std::vector<std::string>& columns) {
  std::vector<std::string> both;
  for (const char* state : {" (uncracked)", " (cracked)"}) {
    for (const std::string& column : columns) both.push_back(column + state);
  }
  return both;
}

}  // namespace

template <class AddFields>
void CsvBuilder::AddSlsTable(const std::string& title, std::string_view columns,
                             const SlsList& list, AddFields addFields) {
  AddTableHeading(title, columns);
  for (const SLSCaseInformation& info : list) {
    CsvRow& row = StartRow(info.common);
    addFields(row, info.details);
    AddLine(row);
  }
}

void CsvBuilder::AddSlsAppliedLoads(const SlsList& list) {
  AddSlsTable("SLS - Applied Loads", Join(LoadColumns(), ","), list,
              [](CsvRow& row, const CaseSLSDetails& details) { row.AddLoad(details.load); });
}

void CsvBuilder::AddSlsAppliedDeformations(const SlsList& list) {
  AddSlsTable("SLS - Applied Deformations", Join(DeformationColumns(), ","), list,
              [](CsvRow& row, const CaseSLSDetails& details) {
                row.AddDeformationWithNeutralAxis(details.appliedDeformation);
              });
}

void CsvBuilder::AddSlsResponseLoads(const SlsList& list) {
  const auto& columns = LoadColumns();
  AddSlsTable("SLS - Loads under applied deformations",
              Join(interpolatedModel_ ? OfBothStates(columns) : columns, ","), list,
              [this](CsvRow& row, const CaseSLSDetails& details) {
                if (interpolatedModel_) {
                  row.AddLoad(details.uncrackedLoad).AddLoad(details.crackedLoad);
                } else {
                  row.AddLoad(bs8110TensionModel_ ? details.crackedLoad : details.uncrackedLoad);
                }
              });
}

void CsvBuilder::AddSlsResponseDeformations(const SlsList& list) {
  const auto& columns = DeformationColumns();
  AddSlsTable("SLS - Deformations under applied loads",
              Join(interpolatedModel_ ? OfBothStates(columns) : columns, ","), list,
              [this](CsvRow& row, const CaseSLSDetails& details) {
                if (interpolatedModel_) {
                  row.AddDeformationWithNeutralAxis(details.uncrackedDeformation)
                      .AddDeformationWithNeutralAxis(details.crackedDeformation);
                } else {
                  row.AddDeformationWithNeutralAxis(bs8110TensionModel_
                                                        ? details.crackedDeformation
                                                        : details.uncrackedDeformation);
                }
              });
}

void CsvBuilder::AddSlsInterpolatedStrains(const SlsList& list) {
  AddSlsTable("SLS - Interpolated strain", Join(DeformationColumns(), ",") + ",zeta", list,
              [](CsvRow& row, const CaseSLSDetails& details) {
                row.AddInterpolatedStrain(details.interpolatedDeformation, details.zeta);
              });
}

void CsvBuilder::AddSlsStiffnesses(const SlsList& list) {
  AddSlsTable(
      "SLS - Stiffness", "Axial stiffness,Bending stiffness YY,Bending stiffness ZZ", list,
      [](CsvRow& row, const CaseSLSDetails& details) { row.AddStiffness(details.stiffness); });
}

}  // namespace Orlix::Velmo
