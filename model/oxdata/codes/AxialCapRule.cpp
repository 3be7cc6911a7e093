#include "model/oxdata/codes/AxialCapRule.h"

#include <algorithm>

namespace Orlix::Data::Design {

double AxialCapShare(const AxialCapRule& rule, bool isSpiral, double leastDimension) {
  if (isSpiral) return rule.spiral;
  return std::min(rule.tiedBase + rule.tiedPerMetre * leastDimension, rule.tiedMost);
}

}  // namespace Orlix::Data::Design
