#pragma once

#include <limits>
#include <memory>

#include "model/oxnumeric/Vec.h"
#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/records/SlsResponse.h"

namespace Orlix::Data::Velmo9 {

/// The solver's answer for one serviceability case, in the compact form that is kept: planes
/// (eps0, kyy, kzz) and loads (N, Myy, Mzz) about the section's origin, tension positive.
struct SlsCaseSolution {
  Vec3<double> input;      ///< the case input that was solved
  Vec3<double> uncracked;  ///< plane of the uncracked state
  Vec3<double> cracked;    ///< plane of the cracked state; the uncracked one where there is none
  Vec3<double> uncrackedLoad;  ///< carried by the uncracked plane
  Vec3<double> crackedLoad;    ///< carried by the cracked plane
  /// Distribution factor of the interpolated model, 0 uncracked to 1 fully cracked; +infinity where
  /// the task's model does not interpolate.
  double zeta{std::numeric_limits<double>::infinity()};
  double crackingUtilisation{};  ///< above 1 the section is cracked
  /// BS 8110 model: slope of the concrete's tension in the cracked state [Pa], at most the
  /// concrete's own effective modulus; +infinity: that modulus.
  double tensionModulus{std::numeric_limits<double>::infinity()};
  /// Plane that crack widths are found from: the cracked one, or one with the modulus that the
  /// code's rule asks for. NaN: that has no equilibrium.
  Vec3<double> crackPlane;
  /// Of the widest crack [m], 0 for a section that is not cracked; +infinity: none is computed.
  double crackWidth{std::numeric_limits<double>::infinity()};
  bool solved{};  ///< the states that are needed have an equilibrium within the limits
};

/// Result of one serviceability case.
class SLSResult {
 public:
  /// A case that was never solved: failed.
  SLSResult() = default;
  /// A case of a task that does not compute SLS: not failed, everything zero.
  static SLSResult NotAskedFor();
  SLSResult(const SlsCaseSolution& solution,
            std::shared_ptr<const DetailedIntegrationResult::ComponentMap> uncrackedComponents,
            std::shared_ptr<const DetailedIntegrationResult::ComponentMap> crackedComponents);

  /// Whether a state that is needed has no equilibrium.
  bool IsFail() const { return !solution_.solved; }
  /// Both integrations and the factor between them.
  const SlsResponse& Response() const { return response_; }
  double CrackingUtilisation() const { return solution_.crackingUtilisation; }
  /// Of the widest crack [m], 0 for a section that is not cracked; +infinity: none is computed, or
  /// the case failed, or the code's rule does not hold for it.
  double CrackWidth() const { return solution_.crackWidth; }

 private:
  SlsCaseSolution solution_;
  SlsResponse response_;
};

}  // namespace Orlix::Data::Velmo9
