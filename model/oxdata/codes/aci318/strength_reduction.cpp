#include "model/oxdata/codes/aci318/strength_reduction.h"

#include <algorithm>

namespace Orlix::Data::Design::Aci318 {

double TensionControlledStrain(const StrengthReductionParameters& parameters, double yield) {
  return parameters.tensionStrain > 0.0 ? std::max(parameters.tensionStrain, yield)
                                        : yield + parameters.strainMargin;
}

}  // namespace Orlix::Data::Design::Aci318
