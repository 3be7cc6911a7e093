#include "model/oxdata/section/CSection.h"

#include <cstddef>
#include <vector>

#include "model/oxdata/section/component_overlay.h"

namespace Orlix::Data {

double CSection::RebarPercentage() const {
  std::vector<ComponentOutlines> given;
  for (const CSecComp& component : components_) given.push_back(GivenOutlines(component));
  const std::vector<ComponentOutlines> left = Overlaid(given);
  double concrete = 0.0;  // [m²]
  double bars = 0.0;      // [m²]
  for (std::size_t i = 0; i < components_.size(); ++i) {
    if (!components_[i].ConcreteExist()) continue;
    concrete += OutlineMoments(left[i]).area;
    for (const CBar& bar : components_[i].Concrete().Bars()) bars += bar.Area();
  }
  return concrete > 0.0 ? 100.0 * bars / concrete : 0.0;
}

}  // namespace Orlix::Data
