#include "model/vldata/document/AnalysisResult.h"

#include <cmath>

namespace Orlix::Data::Velmo9 {

SlsDeformation AnalysisResult::GetSlsDeformation(const SlsResponse& response) {
  const Deformation& uncracked = response.uncracked.Deformation();
  const Deformation& cracked = response.cracked.Deformation();
  if (!std::isfinite(response.zeta)) return {uncracked, cracked, cracked};
  const double zeta = response.zeta;
  return {uncracked, cracked,
          Deformation(zeta * cracked.Vector() + (1.0 - zeta) * uncracked.Vector())};
}

}  // namespace Orlix::Data::Velmo9
