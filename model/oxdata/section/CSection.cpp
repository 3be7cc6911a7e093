#include "model/oxdata/section/CSection.h"

#include <cmath>

#include "model/oxnumeric/polygon.h"

namespace Orlix::Data {

double CSection::RebarPercentage() const {
  double concrete = 0.0;  // [m²]
  double bars = 0.0;      // [m²]
  for (const CSecComp& component : components_) {
    if (!component.ConcreteExist()) continue;
    for (const SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
      concrete += std::abs(Numeric::SignedArea(polygon.outline));
      for (const auto& hole : polygon.holes) concrete -= std::abs(Numeric::SignedArea(hole));
    }
    for (const CBar& bar : component.Concrete().Bars()) bars += bar.Area();
  }
  return concrete > 0.0 ? 100.0 * bars / concrete : 0.0;
}

}  // namespace Orlix::Data
