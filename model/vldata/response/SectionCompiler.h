#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/response/TaskGeometry.h"

namespace Orlix::Data::Velmo9 {

/// Which curves a section is compiled with: those of the ultimate limit state, or of the
/// serviceability limit state with concrete that carries tension as its model says before cracking
/// or after. The states differ for the models 20 and 22 alone.
enum class SectionState { ultimate, uncracked, cracked };

inline LoadState LoadStateOf(SectionState state) {
  return state == SectionState::ultimate ? LoadState::ULS : LoadState::SLS;
}

/// A section with the materials of a task and a state, ready for the numeric kernel.
struct CompiledTask {
  Numeric::CompiledSection section;
  std::shared_ptr<const DetailedIntegrationResult::ComponentMap> components;
  /// Indices into `section.curves` of the concretes of model 20; empty at the ultimate limit state.
  /// Before cracking their tension has the full effective modulus for its slope and so it has, to
  /// start with, in the cracked state, where each case finds its own.
  std::vector<int> bs8110Curves;
};

/// The place where records meet the kernel: turns the components that a task includes into
/// regions, point areas and tension-positive curves. Concrete and steel, structural or in bars, and
/// FRP each keep the curve of their grade; concrete at the serviceability limit state takes the
/// task's creep and the tension that its model gives the state.
class SectionCompiler {
 public:
  /// @return the compiled section; nothing when the task cannot be compiled, see `Problems`
  /// @throws as `TaskGeometry::Of`
  static std::shared_ptr<const CompiledTask> Compile(const CVelmoData& document,
                                                     const VelmoSection& section, int iTask,
                                                     SectionState state);
  /// @param geometry  of this task; one serves all states
  static std::shared_ptr<const CompiledTask> Compile(const CVelmoData& document,
                                                     const VelmoSection& section, int iTask,
                                                     SectionState state,
                                                     const TaskGeometry& geometry);
  /// @param creep  in place of the task's
  static std::shared_ptr<const CompiledTask> Compile(const CVelmoData& document,
                                                     const VelmoSection& section, int iTask,
                                                     SectionState state,
                                                     const TaskGeometry& geometry,
                                                     const CreepSettings& creep);
  /// What keeps a task from being compiled, one message line each; empty: nothing.
  static std::vector<std::string> Problems(const CVelmoData& document, const VelmoSection& section,
                                           int iTask, LoadState state);
};

/// Strain that a bar's preload locks in, as the calculators subtract it: a tensile preload gives a
/// negative number. One function serves compile step, calculators and facade.
double BarPreStrain(const CVelmoData& document, const CBar& bar, LoadState state);

}  // namespace Orlix::Data::Velmo9
