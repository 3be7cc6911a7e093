#include "cli/concrete_facts.h"

#include <cmath>
#include <vector>

#include "model/oxnumeric/area_moments.h"

namespace Orlix::Cli {

namespace {

// Adds a ring whichever way it runs; a hole with the weight -1.
void Add(const std::vector<Vec2<double>>& ring, double weight, Numeric::AreaMoments& sum) {
  const Numeric::AreaMoments m = Numeric::MomentsOf(ring);
  const double factor = std::copysign(weight, weight * m.area);
  sum.area += factor * m.area;
  sum.sy += factor * m.sy;
  sum.sz += factor * m.sz;
}

void Add(const Data::CSecComp& component, Numeric::AreaMoments& sum) {
  for (const Data::SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
    Add(polygon.outline, 1.0, sum);
    for (const auto& hole : polygon.holes) Add(hole, -1.0, sum);
  }
}

GrossArea From(const Numeric::AreaMoments& sum) {
  if (!(sum.area > 0.0)) return {};
  // A centroid in the origin comes out as rounding of the section's size.
  const double noise = 1e-12 * std::sqrt(sum.area);
  const auto cleaned = [noise](double value) { return std::abs(value) < noise ? 0.0 : value; };
  return {sum.area, {cleaned(sum.sy / sum.area), cleaned(sum.sz / sum.area)}};
}

}  // namespace

GrossArea GrossAreaOf(const Data::CSecComp& component) {
  Numeric::AreaMoments sum;
  Add(component, sum);
  return From(sum);
}

GrossArea GrossConcreteOf(const Data::CSection& section) {
  Numeric::AreaMoments sum;
  for (const Data::CSecComp& component : section.Components()) {
    if (component.ConcreteExist()) Add(component, sum);
  }
  return From(sum);
}

}  // namespace Orlix::Cli
