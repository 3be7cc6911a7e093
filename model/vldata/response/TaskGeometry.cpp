#include "model/vldata/response/TaskGeometry.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "model/oxdata/section/component_overlay.h"

namespace Orlix::Data::Velmo9 {
namespace {

// The place in the list of the concrete that contains a point; -1: none.
int HostOf(Vec2<double> point, const std::vector<TaskGeometry::Component>& components,
           const VelmoSection& section) {
  for (std::size_t i = 0; i < components.size(); ++i) {
    const TaskGeometry::Component& c = components[i];
    if (!section.Components()[static_cast<std::size_t>(c.index)].ConcreteExist()) continue;
    if (IsIn(c.polygons, point)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

TaskGeometry TaskGeometry::Of(const CVelmoData& document, const VelmoSection& section, int iTask) {
  const AnalysisTask& task = section.Task(iTask);
  TaskGeometry geometry;
  std::vector<ComponentOutlines> given;
  for (int i = 0; i < static_cast<int>(section.Components().size()); ++i) {
    if (!task.IncludesComponent(i)) continue;
    given.push_back(GivenOutlines(section.Components()[static_cast<std::size_t>(i)]));
    geometry.components_.push_back({i, {}, {}});
  }
  std::vector<ComponentOutlines> left = Overlaid(given);
  for (std::size_t i = 0; i < left.size(); ++i) {
    geometry.components_[i].polygons = std::move(left[i]);
  }
  for (Component& own : geometry.components_) {
    const CSecComp& component = section.Components()[static_cast<std::size_t>(own.index)];
    if (!component.ConcreteExist()) continue;
    for (const CBar& bar : component.Concrete().Bars()) {
      const bool displaces = document.Options().deductDisplacedConcrete;
      own.barHosts.push_back(displaces ? HostOf(bar.Position(), geometry.components_, section)
                                       : -1);
    }
  }
  return geometry;
}

}  // namespace Orlix::Data::Velmo9
