#pragma once

#include <map>
#include <vector>

#include "model/oxutil/json_fwd.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/Stiffness.h"
#include "model/vldata/records/StressStrainSummary.h"
#include "model/vldata/records/VelmoLoad.h"
#include "model/vldata/records/point_results.h"

namespace Orlix::Data::Velmo9 {

/// Which serviceability solution a case has.
enum class SlsResultKind : int { notCalculated = 0, uncracked = 1, cracked = 2, noSolution = 3 };

/// What is known of one load case at the serviceability limit state.
struct CaseSLSDetails {
  VelmoLoad load;                  ///< the applied load of a load-driven case
  Deformation appliedDeformation;  ///< the applied deformation of a deformation-driven case
  Deformation crackedDeformation;
  Deformation uncrackedDeformation;
  VelmoLoad uncrackedLoad;  ///< carried by the uncracked deformation
  VelmoLoad crackedLoad;    ///< carried by the cracked deformation
  Deformation interpolatedDeformation;
  double zeta{kNotCalculated};  ///< interpolation between uncracked (0) and cracked (1)
  Stiffness stiffness;
  std::map<int, std::vector<PointSLSResult>> pointResults;  ///< by component index
  std::map<int, std::vector<BarSLSResult>> barResults;      ///< by component index
  double crackWidth{kNotCalculated};                        ///< [m]
  bool hasCrackWidth{};                                     ///< whether a crack width was computed
  bool cracked{};
  SlsResultKind resultKind{SlsResultKind::notCalculated};
  SlsStressStrainSummary stressStrainSummary;

  /// Adds "crackedStatus": "not calculated", "uncracked", "cracked" or "no solution".
  void AddCrackedStatusToJson(Util::JsonValue& json, Util::JsonAllocator& allocator) const;
};

}  // namespace Orlix::Data::Velmo9
