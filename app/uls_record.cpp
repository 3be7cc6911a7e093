#include "app/uls_record.h"

#include <cstddef>

#include "app/model_indices.h"

namespace Orlix {

using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::UlsOutputOptions;
using Data::Velmo9::UlSResult;
using Data::Velmo9::VelmoLoad;
using Data::Velmo9::VelmoSection;

namespace {

// An applied deformation always comes with the load it gives; under a load the deformation is
// optional.
void PopulateLoadAndDeformation(CaseULSDetails& record, const AnalysisTask& task, int iCase,
                                const UlSResult& result, const UlsOutputOptions& options,
                                bool carried, bool strengthReduction) {
  const Vec3<double>& input = task.Cases()[static_cast<std::size_t>(iCase)].input;
  bool wantsFactor{};
  if (task.Action() == LoadAction::load) {
    record.load = VelmoLoad(input);
    wantsFactor = options.deformationUnderLoad;
    if (wantsFactor && carried) record.deformation = result.Deformation();
  } else {
    record.deformation = Deformation(input);
    record.load = result.Load();
    wantsFactor = options.loadUnderDeformation;
  }
  if (wantsFactor && carried && strengthReduction)
    record.reductionFactor = result.ReductionFactor();
}

void PopulateUtilisations(CaseULSDetails& record, const AnalysisTask& task, const UlSResult& result,
                          bool carried) {
  record.loadUtilisation = result.LoadUtilisation();
  record.momentRatio = result.MomentRatio();
  // A load that is not carried has no equilibrium whose strains could be compared with limits.
  if (carried || task.Action() == LoadAction::deformation) {
    record.deformationUtilisation = result.DeformationUtilisation();
  }
}

}  // namespace

CaseULSDetails UlsRecord(const CVelmoData& document, const VelmoSection& section, int iTask,
                         int iCase, const UlsOutputOptions& options, bool withPoints,
                         const StressStrainCalculator& calculator) {
  CaseULSDetails record;
  const AnalysisTask& task = section.Task(iTask);
  if (!options.IsOutputWanted() || !task.ComputesULS() || !HasCase(task, iCase)) return record;
  const UlSResult result = task.ULSResult(iCase, true);
  const bool carried = !result.IsFail();
  PopulateLoadAndDeformation(record, task, iCase, result, options, carried,
                             document.concreteCode().IsStrengthReduction());
  record.status = carried;
  if (options.utilisations) PopulateUtilisations(record, task, result, carried);
  if (options.loadAtFailure) record.loadAtFailure = result.LoadAtFailure();
  if (options.deformationAtFailure) record.deformationAtFailure = result.DeformationAtFailure();
  if (carried) {
    if (withPoints && options.pointResults) {
      calculator.AddUlsPointResults(section, record, result.Response(), task);
    }
    calculator.ComputeUlsSummary(section, record, result.Response(), task);
  }
  return record;
}

CaseULSDetails UlsRecord(const CVelmoData& document, const VelmoSection& section, int iTask,
                         int iCase, const UlsOutputOptions& options, bool withPoints) {
  return UlsRecord(document, section, iTask, iCase, options, withPoints,
                   StressStrainCalculator(document));
}

}  // namespace Orlix
