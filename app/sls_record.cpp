#include "app/sls_record.h"

#include <cmath>
#include <cstddef>

#include "app/model_indices.h"
#include "model/vlsol/CInterpolateStrain.h"

namespace Orlix {

using Data::CInterpolateStrain;
using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::SlsOutputOptions;
using Data::Velmo9::SlsResponse;
using Data::Velmo9::SlsResultKind;
using Data::Velmo9::VelmoLoad;
using Data::Velmo9::VelmoSection;

namespace {

constexpr double kEmpty = 1e-10;  // of an input, in N and Nm or in 1 and 1/m

// What both load actions have: planes, loads and what lies between the states.
void PopulateStates(CaseSLSDetails& record, const SlsResponse& response,
                    const CInterpolateStrain& between) {
  record.uncrackedDeformation = response.uncracked.Deformation();
  record.crackedDeformation = response.cracked.Deformation();
  record.uncrackedLoad = response.uncracked.Load();
  record.crackedLoad = response.cracked.Load();
  record.interpolatedDeformation = between.InterpolatedStrain();
  record.zeta = between.Zeta();
  record.cracked = between.IsCracked();
}

void PopulateSlsForceDetails(CaseSLSDetails& record, const SlsResponse& response,
                             const CInterpolateStrain& between) {
  PopulateStates(record, response, between);
  record.stiffness = record.load / record.interpolatedDeformation;
}

void PopulateSlsStrainDetails(CaseSLSDetails& record, const SlsResponse& response,
                              const CInterpolateStrain& between) {
  PopulateStates(record, response, between);
  record.stiffness = CarriedLoad(record) / record.appliedDeformation;
}

// Gives what the options leave out its default again.
void DropUnwanted(CaseSLSDetails& record, const SlsOutputOptions& options) {
  const CaseSLSDetails nothing;
  if (!options.loads) {
    record.uncrackedLoad = nothing.uncrackedLoad;
    record.crackedLoad = nothing.crackedLoad;
  }
  if (!options.deformations) {
    record.uncrackedDeformation = nothing.uncrackedDeformation;
    record.crackedDeformation = nothing.crackedDeformation;
    record.interpolatedDeformation = nothing.interpolatedDeformation;
    record.zeta = nothing.zeta;
  }
  if (!options.stiffness) record.stiffness = nothing.stiffness;
}

}  // namespace

CaseSLSDetails SlsRecord(const CVelmoData& document, const VelmoSection& section, int iSec,
                         int iTask, int iCase, const SlsOutputOptions& options, bool withPoints,
                         const StressStrainCalculator& calculator) {
  CaseSLSDetails record;
  const AnalysisTask& task = section.Task(iTask);
  if (!options.IsOutputWanted() || !task.ComputesSLS() || !HasCase(task, iCase)) return record;
  const Vec3<double>& input = task.Cases()[static_cast<std::size_t>(iCase)].input;
  if (Length(input) < kEmpty) return record;

  const bool isLoad = task.Action() == LoadAction::load;
  if (isLoad) {
    record.load = VelmoLoad(input);
  } else {
    record.appliedDeformation = Deformation(input);
  }
  record.hasCrackWidth =
      document.concreteCode().IsCrackWidthCode() && section.hasConcreteComponent(iTask);
  const Data::Velmo9::SLSResult result = task.SLSResult(
      iCase, record.hasCrackWidth, document.ShouldCalculateCracked(section, iTask), true);
  if (result.IsFail()) {
    record.resultKind = SlsResultKind::noSolution;
    return record;
  }
  const SlsResponse& response = result.Response();
  const VelmoLoad load = isLoad ? record.load : response.uncracked.Load();
  const CInterpolateStrain between(load, response, document, section, iTask, true);
  const auto populate = isLoad ? PopulateSlsForceDetails : PopulateSlsStrainDetails;
  populate(record, response, between);
  DropUnwanted(record, options);
  record.resultKind = record.cracked ? SlsResultKind::cracked : SlsResultKind::uncracked;
  if (record.hasCrackWidth) record.crackWidth = result.CrackWidth();
  if (withPoints && options.pointResults) {
    calculator.AddSlsPointResults(iSec, iTask, response, record);
  }
  calculator.ComputeSlsSummary(iSec, iTask, response, record);
  return record;
}

CaseSLSDetails SlsRecord(const CVelmoData& document, const VelmoSection& section, int iSec,
                         int iTask, int iCase, const SlsOutputOptions& options, bool withPoints) {
  return SlsRecord(document, section, iSec, iTask, iCase, options, withPoints,
                   StressStrainCalculator(document));
}

VelmoLoad CarriedLoad(const CaseSLSDetails& record) {
  if (!std::isfinite(record.zeta)) return record.crackedLoad;
  return VelmoLoad(record.zeta * record.crackedLoad.Vector() +
                   (1.0 - record.zeta) * record.uncrackedLoad.Vector());
}

}  // namespace Orlix
