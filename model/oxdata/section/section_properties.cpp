#include "model/oxdata/section/section_properties.h"

#include <cstddef>
#include <vector>

#include "model/oxdata/section/component_overlay.h"

namespace Orlix::Data {

SectionProperties SectionPropertiesOf(const CSection& section) {
  const std::vector<CSecComp>& components = section.Components();
  std::vector<ComponentOutlines> outlines;
  for (const CSecComp& component : components) outlines.push_back(GivenOutlines(component));
  outlines = Overlaid(outlines);
  const auto isInConcrete = [&](Vec2<double> point) {
    for (std::size_t i = 0; i < components.size(); ++i) {
      if (components[i].ConcreteExist() && IsIn(outlines[i], point)) return true;
    }
    return false;
  };

  SectionProperties properties;
  Numeric::AreaMoments sum;
  for (const ComponentOutlines& outline : outlines) sum += OutlineMoments(outline);
  properties.gross = Numeric::CentroidalPropertiesOf(sum);
  for (const CSecComp& component : components) {
    if (!component.ConcreteExist()) continue;
    for (const CBar& bar : component.Concrete().Bars()) {
      properties.rebarArea += bar.Area();
      if (isInConcrete(bar.Position())) sum += Numeric::PointMoments(-bar.Area(), bar.Position());
    }
  }
  properties.net = Numeric::CentroidalPropertiesOf(sum);
  properties.rebarPercentage = section.RebarPercentage();
  return properties;
}

}  // namespace Orlix::Data
