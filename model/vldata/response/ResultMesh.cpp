#include "model/vldata/response/ResultMesh.h"

#include <stdexcept>

#include "model/oxnumeric/section/equilibrium.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::Data::Velmo9 {

ResultMesh::ResultMesh(const CVelmoData& document, const VelmoSection& section, int iTask,
                       SectionState state)
    : compiled_(SectionCompiler::Compile(document, section, iTask, state)) {
  if (!compiled_) throw std::invalid_argument("the task cannot be compiled");
}

DetailedIntegrationResult ResultMesh::GetResponseTo(const VelmoLoad& load) const {
  const Numeric::CompiledSection& section = compiled_->section;
  const Numeric::EquilibriumResult found =
      Numeric::SolveEquilibrium(section, section.LoadToLocal(load.Vector()));
  return {Deformation(section.ToOrigin(found.plane)),
          VelmoLoad(section.LoadToOrigin(found.response.force)), compiled_->components};
}

DetailedIntegrationResult ResultMesh::GetResponseTo(const Deformation& deformation) const {
  const Numeric::CompiledSection& section = compiled_->section;
  const Numeric::Resultant force =
      Numeric::Integrate(section, section.ToLocal(deformation.Vector()));
  return {deformation, VelmoLoad(section.LoadToOrigin(force)), compiled_->components};
}

}  // namespace Orlix::Data::Velmo9
