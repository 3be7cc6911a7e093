#pragma once

#include <map>
#include <memory>
#include <vector>

#include "model/oxdata/codes/CrackWidthRule.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/document/SLSResult.h"
#include "model/vldata/records/CCrack.h"
#include "model/vlsol/cracks/crack_geometry.h"
#include "model/vlsol/cracks/crack_state.h"

namespace Orlix::VlSol {

/// The cracks of a task's concrete components by the rule of the document's code, made once for all
/// cases. Looks at the outer faces, each curved outline being one; the faces of holes are left out.
/// The strains are those of the cracked state with what is locked into a component or its bars,
/// prestrain of bars excluded: they count from decompression.
class CrackModel {
 public:
  /// @param longShare  part of the load that acts long, 0 to 1
  CrackModel(const Data::Design::CrackWidthRule& rule, std::vector<CrackComponent> components,
             double longShare);
  /// @param cracked  details of the task's cracked state
  /// @return nothing where the code has no rule or the task includes no concrete
  static std::shared_ptr<const CrackModel> Of(
      const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section, int iTask,
      const Data::Velmo9::DetailedIntegrationResult::ComponentMap& cracked);

  /// Width of the widest crack [m]: 0 for a section that is not cracked, +infinity where the case
  /// has no solution or the steel is beyond what the rule holds for. Allocates nothing.
  double LargestWidth(const Data::Velmo9::SlsCaseSolution& solution) const;
  /// All cracks by component index, the widest first; those of the same width in the order of faces
  /// and bars. Nothing for a section that is not cracked or has no solution.
  std::map<int, std::vector<Data::Velmo9::CCrack>> Cracks(
      const Data::Velmo9::SlsCaseSolution& solution) const;

 private:
  void Find(const CrackComponent& component, const Data::Velmo9::SlsCaseSolution& solution,
            CrackSink& sink) const;

  Data::Design::CrackWidthRule rule_;
  std::vector<CrackComponent> components_;
  double longShare_{};
};

/// The cracks of a solved task's cases, which may be asked for at the same time.
class TaskCracks {
 public:
  /// @param section  must outlive this
  TaskCracks(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
             int iTask);

  /// As `CrackModel::Cracks`; nothing, too, where the code has no rule or the case is not solved.
  std::map<int, std::vector<Data::Velmo9::CCrack>> OfCase(int iCase) const;

 private:
  const Data::Velmo9::AnalysisTask& task_;
  std::shared_ptr<const CrackModel> model_;
};

}  // namespace Orlix::VlSol
