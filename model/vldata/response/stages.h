#pragma once

#include <map>
#include <optional>
#include <string>

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix::Data::Velmo9 {

/// A case of a task; both indices from zero.
struct CaseIndex {
  int iTask{};
  int iCase{};
};

/// The case that preloads a task; nothing where component preload is switched off, or the task
/// named is no earlier one, or it has no such case.
/// @throws std::out_of_range for no such task.
std::optional<CaseIndex> PreloadingCase(const VelmoSection& section, int iTask);

/// What keeps the component preload of a task from being compiled for a load state, as a message
/// line; empty: nothing.
std::string PreloadProblem(const CVelmoData& document, const VelmoSection& section, int iTask,
                           LoadState state);

/// What an earlier stage leaves locked into a section.
struct LockedStage {
  /// By component that both tasks include: what was locked into it in the earlier task, and the
  /// plane of the preloading case.
  std::map<int, Deformation> planes;
  /// The same of their bars, for which the stages count from the one that they were put in after.
  std::map<int, Deformation> barPlanes;
  /// Whether the preloading case has an equilibrium; without one nothing can be built on it.
  bool isInEquilibrium{true};
};

/// The stage that a task builds on; nothing locked in where component preload is switched off. The
/// ultimate limit state takes the plane of that state, a serviceability state the one of the
/// same state; where the preloading case has no cracked state its uncracked one serves as both.
/// @pre `PreloadProblem` is empty
LockedStage StageBefore(const CVelmoData& document, const VelmoSection& section, int iTask,
                        SectionState state);

}  // namespace Orlix::Data::Velmo9
