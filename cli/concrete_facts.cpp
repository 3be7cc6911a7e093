#include "cli/concrete_facts.h"

#include <cmath>
#include <vector>

#include "model/oxdata/section/component_overlay.h"

namespace Orlix::Cli {

namespace {

GrossArea From(const Numeric::AreaMoments& sum) {
  if (!(sum.area > 0.0)) return {};
  // A centroid in the origin comes out as rounding of the section's size.
  const double noise = 1e-12 * std::sqrt(sum.area);
  const auto cleaned = [noise](double value) { return std::abs(value) < noise ? 0.0 : value; };
  return {sum.area, {cleaned(sum.sy / sum.area), cleaned(sum.sz / sum.area)}};
}

}  // namespace

GrossArea GrossAreaOf(const Data::CSecComp& component) {
  return From(Data::OutlineMoments(Data::GivenOutlines(component)));
}

GrossArea GrossConcreteOf(const Data::CSection& section) {
  std::vector<Data::ComponentOutlines> concretes;
  for (const Data::CSecComp& component : section.Components()) {
    if (component.ConcreteExist()) concretes.push_back(Data::GivenOutlines(component));
  }
  Numeric::AreaMoments sum;
  for (const Data::ComponentOutlines& left : Data::Overlaid(concretes)) {
    sum += Data::OutlineMoments(left);
  }
  return From(sum);
}

}  // namespace Orlix::Cli
