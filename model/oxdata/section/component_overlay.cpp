#include "model/oxdata/section/component_overlay.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <utility>

#include "model/oxnumeric/polygon.h"

namespace Orlix::Data {
namespace {

using Numeric::OwnedPolygon;
using Numeric::PolygonView;

PolygonView View(const OwnedPolygon& p) { return {p.outline, p.holes}; }

bool IsNear(const OwnedPolygon& polygon) {
  return std::all_of(polygon.outline.begin(), polygon.outline.end(), [](Vec2<double> p) {
    return std::abs(p.x) <= kFurthestCoordinate && std::abs(p.y) <= kFurthestCoordinate;
  });
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

bool Covers(const OwnedPolygon& cover, const ComponentOutlines& polygons) {
  const Box box = BoxOf(cover);
  return std::any_of(polygons.begin(), polygons.end(), [&](const OwnedPolygon& polygon) {
    return box.Meets(BoxOf(polygon)) && Numeric::InteriorsOverlap(View(polygon), View(cover));
  });
}

// What the later components leave. Only those that really take something away go into the overlay:
// outlines that touch stay as they are given.
ComponentOutlines Left(const ComponentOutlines& polygons,
                       std::span<const ComponentOutlines> later) {
  std::vector<PolygonView> covers;
  for (const ComponentOutlines& component : later) {
    for (const OwnedPolygon& cover : component) {
      if (Covers(cover, polygons)) covers.push_back(View(cover));
    }
  }
  if (covers.empty()) return polygons;
  std::vector<PolygonView> views;
  std::transform(polygons.begin(), polygons.end(), std::back_inserter(views), View);
  return Numeric::Difference(views, covers);
}

// Adds a ring whichever way it runs; a hole with the weight -1.
void AddRing(std::span<const Vec2<double>> ring, double weight, Numeric::AreaMoments& sum) {
  const Numeric::AreaMoments m = Numeric::MomentsOf(ring);
  const double f = m.area < 0.0 ? -weight : weight;
  sum += {f * m.area, f * m.sy, f * m.sz, f * m.syy, f * m.szz, f * m.syz};
}

}  // namespace

ComponentOutlines GivenOutlines(const CSecComp& component) {
  ComponentOutlines outlines;
  if (!component.Geometry().hasValidPolygons()) return outlines;
  for (SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
    outlines.push_back({std::move(polygon.outline), std::move(polygon.holes)});
  }
  return std::all_of(outlines.begin(), outlines.end(), IsNear) ? outlines : ComponentOutlines();
}

std::vector<ComponentOutlines> Overlaid(const std::vector<ComponentOutlines>& given) {
  std::vector<ComponentOutlines> left;
  for (std::size_t i = 0; i < given.size(); ++i) {
    left.push_back(Left(given[i], std::span(given).subspan(i + 1)));
  }
  return left;
}

Numeric::AreaMoments OutlineMoments(const ComponentOutlines& outlines) {
  Numeric::AreaMoments sum;
  for (const OwnedPolygon& polygon : outlines) {
    AddRing(polygon.outline, 1.0, sum);
    for (const auto& hole : polygon.holes) AddRing(hole, -1.0, sum);
  }
  return sum;
}

bool IsIn(const ComponentOutlines& outlines, Vec2<double> point) {
  return std::any_of(outlines.begin(), outlines.end(), [point](const OwnedPolygon& polygon) {
    if (Numeric::Contains(polygon.outline, point) == Numeric::Location::outside) return false;
    return std::none_of(polygon.holes.begin(), polygon.holes.end(), [&](const auto& hole) {
      return Numeric::Contains(hole, point) == Numeric::Location::inside;
    });
  });
}

}  // namespace Orlix::Data
