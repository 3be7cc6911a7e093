#pragma once

#include <vector>

#include "model/oxnumeric/polygon_overlay.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data::Velmo9 {

/// The components that a task includes, laid over each other in their order: a later one displaces
/// an earlier one where they overlap, so that no area is counted twice. What the task does not
/// include displaces nothing. It depends on no curve: one serves all states of a task.
class TaskGeometry {
 public:
  /// What a component brings to the task.
  struct Component {
    int index{};  ///< in the section
    /// What later components leave of its outlines: vertex by vertex the given ones where none of
    /// them covers any of it; none when they cover it all.
    std::vector<Numeric::OwnedPolygon> polygons;
    /// By bar, the place in `Components()` of the concrete that the bar displaces: of any
    /// component, on its outline included. -1: none. A bar outside every concrete displaces
    /// nothing, nor does one that lies in steel or FRP laid over the concrete, and none does
    /// where the document switches the deduction off.
    std::vector<int> barHosts;
  };

  /// Overlays the components of a task. Total: a component whose outlines are not valid
  /// (`SectionCompiler::Problems` says so) has no polygons and displaces nothing.
  /// @throws std::out_of_range for no such task; std::runtime_error when the overlay fails.
  static TaskGeometry Of(const CVelmoData& document, const VelmoSection& section, int iTask);

  /// The included components, in the section's order.
  const std::vector<Component>& Components() const { return components_; }

 private:
  std::vector<Component> components_;
};

}  // namespace Orlix::Data::Velmo9
