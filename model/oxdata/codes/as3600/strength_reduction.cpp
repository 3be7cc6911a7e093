#include "model/oxdata/codes/as3600/strength_reduction.h"

#include <algorithm>

namespace Orlix::Data::Design::As3600 {

double BendingFactor(const StrengthReductionParameters& parameters, double kuo) {
  return std::clamp(parameters.intercept - parameters.slope * kuo, parameters.phiLeast,
                    parameters.phiMost);
}

double DepthOfFactor(const StrengthReductionParameters& parameters, double phi) {
  return (parameters.intercept - phi) / parameters.slope;
}

double CompressionFactor(const StrengthReductionParameters& parameters, double bending, double nu,
                         double nub) {
  const double phi0 = parameters.phiCompression;
  return nu < nub ? phi0 + (bending - phi0) * (1.0 - nu / nub) : phi0;
}

double TensionFactor(double bending, double pure, double nu, double nuot) {
  return bending + (pure - bending) * std::min(nu / nuot, 1.0);
}

}  // namespace Orlix::Data::Design::As3600
