#include "model/oxdata/codes/en1992/crack_width.h"

#include <algorithm>
#include <cmath>

namespace Orlix::Data::Design::En1992 {

double EffectiveTensionDepth(double steelDepth, double tensionDepth, double depth) {
  return std::min({2.5 * steelDepth, tensionDepth / 3.0, depth / 2.0});
}

double TensionStiffeningFactor(const CrackWidthParameters& parameters, double longShare) {
  return parameters.ktShort + (parameters.ktLong - parameters.ktShort) * longShare;
}

double MeanStrainDifference(const CrackWidthParameters& parameters, const CrackTie& tie,
                            double kt) {
  const double full = tie.steelStress / tie.steelModulus;
  if (kt <= 0.0) return full;
  const double stiffening =
      kt * tie.f_ct / tie.steelRatio * (1.0 + tie.modularRatio * tie.steelRatio);
  return std::max(full - stiffening / tie.steelModulus, parameters.leastShare * full);
}

double CloseCrackSpacing(const CrackWidthParameters& parameters, const CrackTie& tie) {
  double k3 = parameters.k3;
  if (tie.cover > parameters.k3CoverLimit) {
    k3 *= std::pow(parameters.k3CoverLimit / tie.cover, 2.0 / 3.0);
  }
  return k3 * tie.cover + tie.k1 * tie.k2 * parameters.k4 * tie.diameter / tie.steelRatio;
}

double CrackSpacing(const CrackWidthParameters& parameters, const CrackTie& tie,
                    double spacingShare, double tensionDepth) {
  constexpr double kRampStart = 0.95;
  const double close = CloseCrackSpacing(parameters, tie);
  const double wide = std::max(close, parameters.wideCrackShare * tensionDepth);
  const double share = std::clamp((spacingShare - kRampStart) / (1.0 - kRampStart), 0.0, 1.0);
  return close + share * (wide - close);
}

}  // namespace Orlix::Data::Design::En1992
