#include "bridge/drawing_section.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <numbers>
#include <utility>

#include "bridge/BridgeMessages.h"
#include "model/oxnumeric/area_moments.h"
#include "model/oxutil/text.h"

namespace Orlix::Bridge {
namespace {

using Data::CBar;
using Data::CSecComp;
using Data::CSecGeom;
using Data::SectionPolygon;
using Ring = std::vector<Vec2<double>>;

constexpr double kMetresPerMillimetre = 1e-3;
// Sizes of a table are more than 6 % apart, drawn diameters are rounded to whole or half units.
constexpr double kSizeTolerance = 0.02;

Vec2<double> InMetres(const Vec3<double>& point) {
  return {point.x * kMetresPerMillimetre, point.y * kMetresPerMillimetre};
}

Ring RingOf(const dxf_import::Polygon& polygon) {
  Ring ring;
  for (const Vec3<double>& vertex : polygon.vertices) {
    const Vec2<double> point = InMetres(vertex);
    if (ring.empty() || !(ring.back() == point)) ring.push_back(point);
  }
  while (ring.size() > 1 && ring.back() == ring.front()) ring.pop_back();
  return ring;
}

Ring RingOf(const dxf_import::Circle& circle) {
  Data::ShapeDimensions dimensions;
  dimensions.diameter = 2.0 * circle.radius * kMetresPerMillimetre;
  const CSecGeom disc(Data::ShapeKind::circle, dimensions, InMetres(circle.center));
  const auto polygons = disc.Polygons(0.0);
  return polygons.empty() ? Ring{} : polygons.front().outline;
}

Vec2<double> CentroidOf(const SectionPolygon& polygon) {
  Numeric::AreaMoments total;
  const auto add = [&total](const Ring& ring, double sign) {
    const Numeric::AreaMoments m = Numeric::MomentsOf(ring);
    const double factor = std::copysign(sign, sign * m.area);
    total.area += factor * m.area;
    total.sy += factor * m.sy;
    total.sz += factor * m.sz;
  };
  add(polygon.outline, 1.0);
  for (const Ring& hole : polygon.holes) add(hole, -1.0);
  return {total.sy / total.area, total.sz / total.area};
}

// A bar on an axis of symmetry lies at 0, not at the round-off of the centroid.
Vec2<double> Shifted(Vec2<double> point, Vec2<double> by) {
  constexpr double kRoundOff = 1e-12;  // [m]
  const auto sum = [](double a, double b) { return std::fabs(a + b) < kRoundOff ? 0.0 : a + b; };
  return {sum(point.x, by.x), sum(point.y, by.y)};
}

void Shift(SectionPolygon& polygon, Vec2<double> by) {
  const auto shift = [by](Ring& ring) {
    for (Vec2<double>& point : ring) point = Shifted(point, by);
  };
  shift(polygon.outline);
  for (Ring& hole : polygon.holes) shift(hole);
}

// Bars whose diameter is none of the table, by that diameter [mm]: their numbers from one.
using OddBars = std::map<double, std::vector<int>>;

CBar BarOf(const dxf_import::Circle& circle, int number, const DrawingSettings& settings,
           const Util::CBarHelper& sizes, OddBars& odd) {
  const double drawn = 2.0 * circle.radius * kMetresPerMillimetre;
  const Util::BarSize nearest = sizes.Nearest(drawn, settings.barSizes);
  const Vec2<double> position = InMetres(circle.center);
  if (std::fabs(drawn - nearest.diameter) <= kSizeTolerance * nearest.diameter) {
    return {position, nearest.diameter, nearest.area, settings.rebarGrade};
  }
  odd[2.0 * circle.radius].push_back(number);
  return {position, drawn, std::numbers::pi / 4.0 * drawn * drawn, settings.rebarGrade};
}

// An error of the importer's making aside, what can be wrong with numbers of a drawing.
bool IsPlace(const CBar& bar) {
  return std::isfinite(bar.Position().x) && std::isfinite(bar.Position().y) &&
         std::isfinite(bar.Area()) && bar.Area() > 0.0;
}

}  // namespace

DrawingSection SectionFromDrawing(const dxf_import::SectionGeometry& geometry,
                                  const DrawingSettings& settings, const Util::CBarHelper& sizes) {
  DrawingSection made;
  SectionPolygon polygon;
  polygon.outline = RingOf(geometry.outer);
  for (const dxf_import::Polygon& hole : geometry.holes) polygon.holes.push_back(RingOf(hole));
  for (std::size_t i = 0; i < geometry.circularHoles.size(); ++i) {
    polygon.holes.push_back(RingOf(geometry.circularHoles[i]));
    if (polygon.holes.back().empty()) made.problems.push_back(BridgeMessages::NoCircle(i));
  }
  if (const std::string problem = CSecGeom({polygon}).PolygonProblem(); !problem.empty()) {
    made.problems.push_back(BridgeMessages::NoOutline(problem));
  }
  OddBars odd;
  Data::Reinforcement reinforcement;
  for (const dxf_import::Circle& circle : geometry.rebars) {
    const int number = static_cast<int>(reinforcement.bars.size()) + 1;
    reinforcement.bars.push_back(BarOf(circle, number, settings, sizes, odd));
    if (!IsPlace(reinforcement.bars.back())) made.problems.push_back(BridgeMessages::NoBar(number));
  }
  if (!made.problems.empty()) return made;

  if (settings.origin == DrawingOrigin::centroid) {
    const Vec2<double> centroid = CentroidOf(polygon);
    const Vec2<double> by{-centroid.x, -centroid.y};
    Shift(polygon, by);
    for (CBar& bar : reinforcement.bars) {
      bar = {Shifted(bar.Position(), by), bar.Diameter(), bar.Area(), bar.Grade()};
    }
  }
  for (const auto& [diameter, numbers] : odd) {
    const Util::BarSize near = sizes.Nearest(diameter * kMetresPerMillimetre, settings.barSizes);
    made.warnings.push_back(BridgeMessages::OddBars(numbers, diameter, near));
  }
  CSecComp component(MatType::concrete, settings.concreteGrade, CSecGeom({std::move(polygon)}));
  component.Concrete().SetReinforcement(std::move(reinforcement));
  made.section.SetName(cstr(settings.name));
  made.section.Components().push_back(std::move(component));
  return made;
}

}  // namespace Orlix::Bridge
