#pragma once

#include <memory>

#include "model/oxnumeric/Vec.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Data::Velmo9 {

/// The solver's answer for one ultimate limit state case, in the compact form that is kept: planes
/// (eps0, kyy, kzz) and loads (N, Myy, Mzz) about the section's origin, tension positive. From it
/// every detail can be computed again.
struct UlsCaseSolution {
  Vec3<double> input;          ///< the case input that was solved
  Vec3<double> load;           ///< applied, or the reduced response to the applied deformation
  Vec3<double> deformation;    ///< in equilibrium with the load, or the applied one
  Vec3<double> loadAtFailure;  ///< zero when there is no failure point
  Vec3<double> deformationAtFailure;  ///< zero when there is no failure point
  double loadUtilisation{};           ///< +infinity: the section has no capacity for this load
  double deformationUtilisation{};    ///< +infinity: no equilibrium, or locked in beyond a limit
  double momentRatio{};
  double reductionFactor{1.0};
  bool carried{};     ///< within the capacity, up to the solver's margin of 1e-6
  bool limitIsCap{};  ///< failure at a numerical cap on strain, not a material limit
};

/// Result of one ultimate limit state case.
class UlSResult {
 public:
  /// A case that was never solved: failed, utilisations infinite, everything else zero.
  UlSResult();
  /// A case of a task that does not compute ULS: not failed, everything zero.
  static UlSResult NotAskedFor();
  /// @param components  component details of the task, for the response
  UlSResult(const UlsCaseSolution& solution,
            std::shared_ptr<const DetailedIntegrationResult::ComponentMap> components);

  /// Whether the section does not carry the case.
  bool IsFail() const { return !solution_.carried; }
  /// The integration of the deformation under the load (or of the applied deformation).
  const DetailedIntegrationResult& Response() const { return response_; }
  VelmoLoad Load() const { return VelmoLoad(solution_.load); }
  Velmo9::Deformation Deformation() const { return Velmo9::Deformation(solution_.deformation); }
  VelmoLoad LoadAtFailure() const { return VelmoLoad(solution_.loadAtFailure); }
  Velmo9::Deformation DeformationAtFailure() const {
    return Velmo9::Deformation(solution_.deformationAtFailure);
  }
  double LoadUtilisation() const { return solution_.loadUtilisation; }
  double DeformationUtilisation() const { return solution_.deformationUtilisation; }
  double MomentRatio() const { return solution_.momentRatio; }
  double ReductionFactor() const { return solution_.reductionFactor; }
  /// Whether failure is governed by a numerical cap on strain and not by a limit of the material.
  bool IsFailureAtCap() const { return solution_.limitIsCap; }

 private:
  UlsCaseSolution solution_;
  DetailedIntegrationResult response_;
};

}  // namespace Orlix::Data::Velmo9
