#include "model/oxdata/codes/bs8110/crack_width.h"

namespace Orlix::Data::Design::Bs8110 {

double MeanStrain(const CrackWidthParameters& parameters, const CrackStiffening& stiffening,
                  double strain) {
  const double force = parameters.stiffeningStress * stiffening.width * stiffening.tensionDepth;
  const double stiffness =
      parameters.stiffeningDivisor * stiffening.steelModulus * stiffening.steelArea;
  return strain - force * strain / (stiffness * stiffening.strainAtSteel);
}

double GatheringLength(const CrackWidthParameters& parameters, double distance, double cover,
                       double tensionDepth) {
  return parameters.distanceFactor * distance /
         (1.0 + parameters.coverFactor * (distance - cover) / tensionDepth);
}

double GatheringLengthWithoutBars(const CrackWidthParameters& parameters, double tensionDepth) {
  return parameters.distanceFactor / parameters.coverFactor * tensionDepth;
}

}  // namespace Orlix::Data::Design::Bs8110
