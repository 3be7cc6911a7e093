#pragma once

#include <memory>

#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix::Data::Velmo9 {

/// Integrates a section for a load or a deformation: one task, one state.
class ResultMesh {
 public:
  /// @throws std::invalid_argument when the task cannot be compiled (`SectionCompiler::Problems`).
  ResultMesh(const CVelmoData& document, const VelmoSection& section, int iTask,
             SectionState state);

  /// The deformation in equilibrium with a load, and its integration. Where there is no equilibrium
  /// within the strain limits the deformation continues beyond them.
  DetailedIntegrationResult GetResponseTo(const VelmoLoad& load) const;
  /// The integration of a deformation.
  DetailedIntegrationResult GetResponseTo(const Deformation& deformation) const;

 private:
  std::shared_ptr<const CompiledTask> compiled_;
};

}  // namespace Orlix::Data::Velmo9
