#pragma once

#include <map>
#include <vector>

#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/StressStrainSummary.h"
#include "model/vldata/records/VelmoLoad.h"
#include "model/vldata/records/point_results.h"

namespace Orlix::Data::Velmo9 {

/// What is known of one load case at the ultimate limit state.
struct CaseULSDetails {
  VelmoLoad load;
  VelmoLoad loadAtFailure;
  Deformation deformation;  ///< under the load, or the applied one
  Deformation deformationAtFailure;
  double loadUtilisation{};         ///< 1: the load reaches the capacity; +infinity: no capacity
  double deformationUtilisation{};  ///< 1: the deformation reaches the strain limits
  bool status{};                    ///< the section carries the case
  double momentRatio{};             ///< M/Mu at constant axial force; may be +infinity
  double reductionFactor{};         ///< phi; meaningful under a code that has one, status true
  StressStrainSummary stressStrainSummary;
  std::map<int, std::vector<PointULSResult>> pointResults;  ///< by component index
  std::map<int, std::vector<BarULSResult>> barResults;      ///< by component index
};

}  // namespace Orlix::Data::Velmo9
