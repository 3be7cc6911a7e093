#include "model/vldata/response/TaskGeometry.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "model/oxnumeric/polygon.h"
#include "model/vldata/response/compile_problems.h"

namespace Orlix::Data::Velmo9 {
namespace {

using Numeric::OwnedPolygon;
using Numeric::PolygonView;

PolygonView View(const OwnedPolygon& p) { return {p.outline, p.holes}; }

std::vector<OwnedPolygon> GivenOutlines(int index, const CSecComp& component) {
  std::vector<OwnedPolygon> polygons;
  if (!OutlineProblem(index, component.Geometry()).empty()) return polygons;
  for (SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
    polygons.push_back({std::move(polygon.outline), std::move(polygon.holes)});
  }
  return polygons;
}

struct Box {
  Vec2<double> low;
  Vec2<double> high;

  bool Meets(const Box& b) const {
    return low.x < b.high.x && b.low.x < high.x && low.y < b.high.y && b.low.y < high.y;
  }
};

// @pre the outline has a vertex
Box BoxOf(const OwnedPolygon& polygon) {
  Box box{polygon.outline.front(), polygon.outline.front()};
  for (const Vec2<double>& p : polygon.outline) {
    box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y)};
    box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y)};
  }
  return box;
}

bool Covers(const OwnedPolygon& cover, const std::vector<OwnedPolygon>& polygons) {
  const Box box = BoxOf(cover);
  return std::any_of(polygons.begin(), polygons.end(), [&](const OwnedPolygon& polygon) {
    return box.Meets(BoxOf(polygon)) && Numeric::InteriorsOverlap(View(polygon), View(cover));
  });
}

// What the later components leave. Only those that really take something away go into the overlay:
// outlines that touch stay as they are given.
std::vector<OwnedPolygon> Left(const std::vector<OwnedPolygon>& polygons,
                               std::span<const std::vector<OwnedPolygon>> later) {
  std::vector<PolygonView> covers;
  for (const std::vector<OwnedPolygon>& component : later) {
    for (const OwnedPolygon& cover : component) {
      if (Covers(cover, polygons)) covers.push_back(View(cover));
    }
  }
  if (covers.empty()) return polygons;
  std::vector<PolygonView> views;
  std::transform(polygons.begin(), polygons.end(), std::back_inserter(views), View);
  return Numeric::Difference(views, covers);
}

bool IsIn(const OwnedPolygon& polygon, Vec2<double> point) {
  if (Numeric::Contains(polygon.outline, point) == Numeric::Location::outside) return false;
  return std::none_of(polygon.holes.begin(), polygon.holes.end(), [&](const auto& hole) {
    return Numeric::Contains(hole, point) == Numeric::Location::inside;
  });
}

// The place in the list of the concrete that contains a point; -1: none.
int HostOf(Vec2<double> point, const std::vector<TaskGeometry::Component>& components,
           const VelmoSection& section) {
  for (std::size_t i = 0; i < components.size(); ++i) {
    const TaskGeometry::Component& c = components[i];
    if (!section.Components()[static_cast<std::size_t>(c.index)].ConcreteExist()) continue;
    const bool contains = std::any_of(c.polygons.begin(), c.polygons.end(),
                                      [&](const OwnedPolygon& p) { return IsIn(p, point); });
    if (contains) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

TaskGeometry TaskGeometry::Of(const CVelmoData& document, const VelmoSection& section, int iTask) {
  const AnalysisTask& task = section.Task(iTask);
  TaskGeometry geometry;
  std::vector<std::vector<OwnedPolygon>> given;
  for (int i = 0; i < static_cast<int>(section.Components().size()); ++i) {
    if (!task.IncludesComponent(i)) continue;
    given.push_back(GivenOutlines(i, section.Components()[static_cast<std::size_t>(i)]));
    geometry.components_.push_back({i, {}, {}});
  }
  for (std::size_t i = 0; i < given.size(); ++i) {
    geometry.components_[i].polygons = Left(given[i], std::span(given).subspan(i + 1));
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
