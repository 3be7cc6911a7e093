#pragma once

#include <memory>
#include <optional>

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/document/SLSResult.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix::VlSol {

/// Whether some concrete that a task includes has a serviceability model.
bool HasServiceModel(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                     int iTask, Data::Design::CurveKind model);

/// A task's section at the serviceability limit state: both states, and what decides between them.
struct SlsModel {
  std::shared_ptr<const Data::Velmo9::CompiledTask> uncracked;
  std::shared_ptr<const Data::Velmo9::CompiledTask> cracked;
  /// The cracked state with the concrete's modulus that the code's rule for crack widths asks for;
  /// null: `cracked` serves.
  std::shared_ptr<const Data::Velmo9::CompiledTask> crackCheck;
  bool hasCrackedState{};  ///< some concrete has model 20 or 22; otherwise one state serves as both
  bool interpolates{};  ///< some concrete has model 22: the reported plane lies between the states
  double beta{1.0};     ///< of EN 1992-1-1 (7.19), by the load term
  /// Prestrain or locked-in strain: cracking is then not proportional to the load.
  bool isPreloaded{};
  /// Model 20: tension that the code allows at the steel's level [Pa].
  double steelLevelStress{};

  /// @return nothing when the task cannot be compiled in one of the states
  static std::optional<SlsModel> Of(const Data::CVelmoData& document,
                                    const Data::Velmo9::VelmoSection& section, int iTask);
};

/// Solves a load-driven serviceability case: the uncracked state, the cracked one where it is
/// needed, and the factor between them.
/// @param load  (N, Myy, Mzz) about the section's origin, tension positive
/// Source: EN 1992-1-1, 7.4.3; BS 8110-2, 3.6.
Data::Velmo9::SlsCaseSolution SolveSlsLoad(const SlsModel& model, const Vec3<double>& load);

/// Solves a deformation-driven case: both states integrated at the given plane.
/// @param plane  (eps0, kyy, kzz) at the section's origin, tension positive
Data::Velmo9::SlsCaseSolution SolveSlsDeformation(const SlsModel& model, const Vec3<double>& plane);

/// Distribution factor of EN 1992-1-1 (7.19) from the ratio of the load (or steel stress) to the
/// one at first cracking; 0 up to 1, +infinity counts as fully cracked.
double DistributionFactor(double crackingUtilisation, double beta);

}  // namespace Orlix::VlSol
