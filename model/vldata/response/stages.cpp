#include "model/vldata/response/stages.h"

#include <cmath>

#include "model/vldata/response/CompileMessages.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix::Data::Velmo9 {
namespace {

bool Computes(const AnalysisTask& task, LoadState state) {
  return state == LoadState::ULS ? task.ComputesULS() : task.ComputesSLS();
}

// The integration of a case whose planes and component details make up a stage; nothing where the
// case has no equilibrium.
std::optional<DetailedIntegrationResult> Integration(const AnalysisTask& task, int iCase,
                                                     SectionState state, bool hasCrackedState) {
  if (state == SectionState::ultimate) {
    const UlSResult result = task.ULSResult(iCase, true);
    if (!std::isfinite(result.DeformationUtilisation())) return std::nullopt;
    return result.Response();
  }
  const Velmo9::SLSResult result = task.SLSResult(iCase, false, hasCrackedState, true);
  if (result.IsFail()) return std::nullopt;
  return state == SectionState::cracked ? result.Response().cracked : result.Response().uncracked;
}

}  // namespace

std::optional<CaseIndex> PreloadingCase(const VelmoSection& section, int iTask) {
  const std::optional<PreloadReference>& from = section.Task(iTask).PreloadFrom();
  if (!from || from->task < 1 || from->task > iTask || from->iCase < 1) return std::nullopt;
  const CaseIndex found{from->task - 1, from->iCase - 1};
  if (found.iCase >= section.Task(found.iTask).NumCases()) return std::nullopt;
  return found;
}

std::string PreloadProblem(const CVelmoData& document, const VelmoSection& section, int iTask,
                           LoadState state) {
  if (!section.Task(iTask).PreloadFrom()) return {};
  const std::optional<CaseIndex> from = PreloadingCase(section, iTask);
  if (!from || !HasCurrentResults(document, section, from->iTask, from->iCase)) {
    return CompileMessages::NoPreloadingCase(iTask);
  }
  if (!Computes(section.Task(from->iTask), state)) {
    return CompileMessages::NoPreloadingState(iTask, from->iTask, state);
  }
  return {};
}

LockedStage StageBefore(const CVelmoData& document, const VelmoSection& section, int iTask,
                        SectionState state) {
  LockedStage stage;
  const std::optional<CaseIndex> from = PreloadingCase(section, iTask);
  if (!from) return stage;
  const AnalysisTask& reference = section.Task(from->iTask);
  const auto integration = Integration(reference, from->iCase, state,
                                       document.ShouldCalculateCracked(section, from->iTask));
  stage.isInEquilibrium = integration.has_value();
  if (!integration) return stage;
  const Vec3<double>& increment = integration->Deformation().Vector();
  for (const auto& [component, details] : integration->Components()) {
    if (!section.Task(iTask).IncludesComponent(component)) continue;
    stage.planes.emplace(component, Deformation(details.lockedIn.Vector() + increment));
    const auto preload = reference.PreloadOf(component);
    const bool areNew = preload && preload->barsExcluded;
    const Vec3<double> before = areNew ? Vec3<double>{} : details.LockedIntoBars().Vector();
    stage.barPlanes.emplace(component, Deformation(before + increment));
  }
  return stage;
}

}  // namespace Orlix::Data::Velmo9
