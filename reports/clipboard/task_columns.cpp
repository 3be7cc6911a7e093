#include "reports/clipboard/task_columns.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <utility>

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "results/NeutralAxisCalculator.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::SlsResultKind;
using Data::Velmo9::StressStrain;
using Data::Velmo9::StressStrainSummary;
using Data::Velmo9::VelmoLoad;

namespace {

using Case = ClipboardCaseData;
/// What a column takes from a case; nothing: it is not calculated or not wanted.
template <class T>
using Get = std::function<std::optional<T>(const Case&)>;

constexpr const char* kNotCalculated = "-";

std::string Text(double value, double factor) {
  const double shown = value * factor;
  return std::isfinite(shown) ? StringFrom(shown) : kNotCalculated;
}

/// Appends columns in a document's units.
class ColumnList {
 public:
  explicit ColumnList(const Data::CUnit& units) : units_(units) {}

  void AddText(std::string title, std::function<std::string(const Case&)> cell) {
    columns.push_back({std::move(title), "", std::move(cell)});
  }
  void AddNumber(std::string title, const Get<double>& get) { Add(std::move(title), "", 1.0, get); }
  void AddQuantity(std::string title, Dimension dimension, const Get<double>& get) {
    Add(std::move(title), to_string(units_.UnitString(dimension)), units_.Conversion(dimension),
        get);
  }

  void AddLoad(const std::string& prefix, const Get<VelmoLoad>& get) {
    AddQuantity(prefix + "N", Dimension::force, PartOf(get, &Vec3<double>::x));
    AddQuantity(prefix + "Myy", Dimension::moment, PartOf(get, &Vec3<double>::y));
    AddQuantity(prefix + "Mzz", Dimension::moment, PartOf(get, &Vec3<double>::z));
  }

  void AddPlane(const std::string& prefix, const Get<Deformation>& get) {
    AddQuantity(prefix + "eps0", Dimension::strain, PartOf(get, &Vec3<double>::x));
    AddQuantity(prefix + "kyy", Dimension::curvature, PartOf(get, &Vec3<double>::y));
    AddQuantity(prefix + "kzz", Dimension::curvature, PartOf(get, &Vec3<double>::z));
  }

  void AddNeutralAxis(const std::string& prefix, const Get<Deformation>& get) {
    const auto axisOf = [get](double NeutralAxisData::*member) -> Get<double> {
      return [get, member](const Case& c) -> std::optional<double> {
        const auto plane = get(c);
        if (!plane) return std::nullopt;
        return NeutralAxisCalculator::ComputeNeutralAxisData(*plane).*member;
      };
    };
    Add(prefix + "NA angle", "°", 180.0 / std::numbers::pi, axisOf(&NeutralAxisData::angle));
    AddQuantity(prefix + "NA offset", Dimension::sectionDimensions,
                axisOf(&NeutralAxisData::offset));
  }

  void AddPlaneWithAxis(const std::string& prefix, const Get<Deformation>& get) {
    AddPlane(prefix, get);
    AddNeutralAxis(prefix, get);
  }

  void AddSummary(const std::string& prefix, const Get<StressStrainSummary>& get) {
    AddExtremes(prefix + "concrete ", [get](const Case& c) -> std::optional<StressStrain> {
      const auto summary = get(c);
      return summary && summary->HasConcrete() ? std::optional(summary->Concrete()) : std::nullopt;
    });
    AddExtremes(prefix + "bar ", [get](const Case& c) -> std::optional<StressStrain> {
      const auto summary = get(c);
      return summary && summary->HasRebar() ? std::optional(summary->Rebar()) : std::nullopt;
    });
  }

  std::vector<TaskColumn> columns;

 private:
  void Add(std::string title, std::string unit, double factor, const Get<double>& get) {
    columns.push_back({std::move(title), std::move(unit), [get, factor](const Case& c) {
                         const auto value = get(c);
                         return value ? Text(*value, factor) : kNotCalculated;
                       }});
  }

  template <class T>
  static Get<double> PartOf(const Get<T>& get, double Vec3<double>::*part) {
    return [get, part](const Case& c) -> std::optional<double> {
      const auto whole = get(c);
      return whole ? std::optional(whole->Vector().*part) : std::nullopt;
    };
  }

  void AddExtremes(const std::string& prefix, const Get<StressStrain>& get) {
    const auto part = [get](double StressStrain::*member) -> Get<double> {
      return [get, member](const Case& c) -> std::optional<double> {
        const auto extremes = get(c);
        return extremes ? std::optional((*extremes).*member) : std::nullopt;
      };
    };
    AddQuantity(prefix + "max stress", Dimension::stress, part(&StressStrain::maxStress));
    AddQuantity(prefix + "min stress", Dimension::stress, part(&StressStrain::minStress));
    AddQuantity(prefix + "max strain", Dimension::strain, part(&StressStrain::maxStrain));
    AddQuantity(prefix + "min strain", Dimension::strain, part(&StressStrain::minStrain));
  }

  const Data::CUnit& units_;
};

/// A member of a case's ULS record, where the options want it and the condition holds.
template <class T>
Get<T> Uls(T CaseULSDetails::*member, bool Data::Velmo9::UlsOutputOptions::*wanted,
           bool (*holds)(const CaseULSDetails&)) {
  return [=](const Case& c) -> std::optional<T> {
    if (!(c.ulsOptions.*wanted) || !holds(c.uls)) return std::nullopt;
    return c.uls.*member;
  };
}

bool Always(const CaseULSDetails&) { return true; }
bool IsCarried(const CaseULSDetails& uls) { return uls.status; }
// A zero load or plane stands for one that was not found.
bool HasFailureLoad(const CaseULSDetails& uls) {
  return uls.loadAtFailure.Vector() != Vec3<double>{};
}
bool HasFailurePlane(const CaseULSDetails& uls) {
  return uls.deformationAtFailure.Vector() != Vec3<double>{};
}

void AddUlsColumns(ColumnList& list, bool isLoad, bool strengthReduction) {
  using Options = Data::Velmo9::UlsOutputOptions;
  using Record = CaseULSDetails;
  const auto response = isLoad ? &Options::deformationUnderLoad : &Options::loadUnderDeformation;
  if (!isLoad) list.AddLoad("ULS ", Uls(&Record::load, response, IsCarried));
  list.AddLoad("ULS failure ",
               Uls(&Record::loadAtFailure, &Options::loadAtFailure, HasFailureLoad));
  const auto plane = Uls(&Record::deformation, response, isLoad ? IsCarried : Always);
  if (isLoad) list.AddPlane("ULS ", plane);
  list.AddNeutralAxis("ULS ", plane);
  list.AddPlaneWithAxis("ULS failure ", Uls(&Record::deformationAtFailure,
                                            &Options::deformationAtFailure, HasFailurePlane));
  // Of a load that is not carried there are no strains, of such a deformation there is no load.
  list.AddNumber("ULS load utilisation", Uls(&Record::loadUtilisation, &Options::utilisations,
                                             isLoad ? Always : IsCarried));
  list.AddNumber(
      "ULS deformation utilisation",
      Uls(&Record::deformationUtilisation, &Options::utilisations, isLoad ? IsCarried : Always));
  list.AddText("ULS status", [](const Case& c) {
    if (!c.ulsOptions.IsOutputWanted()) return kNotCalculated;
    return c.uls.status ? "carried" : "not carried";
  });
  list.AddNumber("ULS M/Mu", Uls(&Record::momentRatio, &Options::utilisations, Always));
  if (strengthReduction) {
    list.AddNumber("ULS phi", Uls(&Record::reductionFactor, response, IsCarried));
  }
  list.AddSummary("ULS ", [](const Case& c) -> std::optional<StressStrainSummary> {
    return c.ulsOptions.IsOutputWanted() ? std::optional(c.uls.stressStrainSummary) : std::nullopt;
  });
}

bool HasSolution(const CaseSLSDetails& sls) {
  return sls.resultKind == SlsResultKind::uncracked || sls.resultKind == SlsResultKind::cracked;
}

/// A member of a case's SLS record, where the options want it and the case has a solution.
template <class T>
Get<T> Sls(T CaseSLSDetails::*member, bool Data::Velmo9::SlsOutputOptions::*wanted) {
  return [=](const Case& c) -> std::optional<T> {
    if (!(c.slsOptions.*wanted) || !HasSolution(c.sls)) return std::nullopt;
    return c.sls.*member;
  };
}

const char* StateOf(const Case& c) {
  if (!c.slsOptions.IsOutputWanted()) return kNotCalculated;
  switch (c.sls.resultKind) {
    case SlsResultKind::uncracked:
      return "uncracked";
    case SlsResultKind::cracked:
      return "cracked";
    case SlsResultKind::noSolution:
      return "no solution";
    case SlsResultKind::notCalculated:
      break;
  }
  return kNotCalculated;
}

void AddStiffness(ColumnList& list) {
  using Data::Velmo9::Stiffness;
  const auto get = Sls(&CaseSLSDetails::stiffness, &Data::Velmo9::SlsOutputOptions::stiffness);
  const auto part = [&](double Stiffness::*member) -> Get<double> {
    return [get, member](const Case& c) -> std::optional<double> {
      const auto stiffness = get(c);
      return stiffness ? std::optional((*stiffness).*member) : std::nullopt;
    };
  };
  list.AddQuantity("SLS EA", Dimension::force, part(&Stiffness::axial));
  list.AddQuantity("SLS EIyy", Dimension::bendingStiffness, part(&Stiffness::bendingYY));
  list.AddQuantity("SLS EIzz", Dimension::bendingStiffness, part(&Stiffness::bendingZZ));
}

void AddSlsColumns(ColumnList& list, bool isLoad, bool crackWidth) {
  using Options = Data::Velmo9::SlsOutputOptions;
  using Record = CaseSLSDetails;
  if (isLoad) {
    list.AddPlaneWithAxis("SLS cracked ", Sls(&Record::crackedDeformation, &Options::deformations));
    list.AddPlaneWithAxis("SLS uncracked ",
                          Sls(&Record::uncrackedDeformation, &Options::deformations));
    list.AddPlaneWithAxis("SLS ", Sls(&Record::interpolatedDeformation, &Options::deformations));
  } else {
    list.AddNeutralAxis("SLS ", Sls(&Record::appliedDeformation, &Options::deformations));
    list.AddLoad("SLS uncracked ", Sls(&Record::uncrackedLoad, &Options::loads));
    list.AddLoad("SLS cracked ", Sls(&Record::crackedLoad, &Options::loads));
  }
  list.AddNumber("SLS zeta", Sls(&Record::zeta, &Options::deformations));
  AddStiffness(list);
  if (crackWidth) {
    const auto get = Sls(&Record::crackWidth, &Options::crackWidth);
    list.AddQuantity("SLS crack width", Dimension::sectionDimensions, get);
  }
  list.AddText("SLS state", StateOf);
  list.AddSummary("SLS uncracked ", [](const Case& c) -> std::optional<StressStrainSummary> {
    return c.sls.stressStrainSummary.uncracked;
  });
  list.AddSummary("SLS cracked ", [](const Case& c) { return c.sls.stressStrainSummary.cracked; });
}

}  // namespace

std::vector<TaskColumn> ColumnsOf(const Data::CVelmoData& document,
                                  const Data::Velmo9::VelmoSection& section, int iTask) {
  const AnalysisTask& task = section.Task(iTask);
  const bool isLoad = task.Action() == LoadAction::load;
  ColumnList list(document.Units());
  list.AddText("Case", nullptr);
  if (isLoad) {
    list.AddLoad("", [](const Case& c) { return std::optional(c.load); });
  } else {
    list.AddPlane("", [](const Case& c) { return std::optional(c.deformation); });
  }
  const Data::Design::ConcreteCode& code = document.concreteCode();
  if (task.ComputesULS()) AddUlsColumns(list, isLoad, code.IsStrengthReduction());
  if (task.ComputesSLS()) {
    const bool crackWidth = code.IsCrackWidthCode() && section.hasConcreteComponent(iTask);
    AddSlsColumns(list, isLoad, crackWidth);
  }
  return std::move(list.columns);
}

}  // namespace Orlix
