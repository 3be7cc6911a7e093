#include "model/vlsol/test/example_geometry.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "model/oxnumeric/area_moments.h"
#include "model/oxutil/json.h"

namespace Orlix::VlSol::Test {

using Util::JsonValue;

namespace {

// Sides of a circle. Closed forms are compared to 1e-6; with so many sides and the area of the
// circle the polygon's integrals differ from the circle's by a few 1e-7.
constexpr int kCircleSides = 4096;

std::vector<Vec2<double>> ReadRing(const JsonValue& json, double unit) {
  std::vector<Vec2<double>> ring;
  for (const JsonValue& p : json.GetArray()) {
    ring.push_back({unit * p[0].GetDouble(), unit * p[1].GetDouble()});
  }
  return ring;
}

std::vector<Vec2<double>> CircleOfEqualArea(Vec2<double> centre, double radius) {
  const double turn = 2.0 * std::numbers::pi / kCircleSides;
  const double corner = radius * std::sqrt(turn / std::sin(turn));
  std::vector<Vec2<double>> ring;
  for (int i = 0; i < kCircleSides; ++i) {
    ring.push_back(centre + Vec2<double>{corner * std::cos(i * turn), corner * std::sin(i * turn)});
  }
  return ring;
}

}  // namespace

std::vector<Data::SectionPolygon> ReadPolygons(const JsonValue& geometry, double unit) {
  std::vector<Data::SectionPolygon> polygons;
  for (const JsonValue& part : geometry["concrete"].GetArray()) {
    Data::SectionPolygon polygon;
    if (const JsonValue* circle = Util::FindMember(part, "circle")) {
      const auto at = [&](unsigned i) { return unit * (*circle)[i].GetDouble(); };
      polygon.outline = CircleOfEqualArea({at(0), at(1)}, at(2));
    } else {
      polygon.outline = ReadRing(part["polygon"], unit);
    }
    if (const JsonValue* holes = Util::FindMember(part, "holes")) {
      for (const JsonValue& hole : holes->GetArray()) {
        polygon.holes.push_back(ReadRing(hole, unit));
      }
    }
    polygons.push_back(std::move(polygon));
  }
  return polygons;
}

Vec2<double> ReferencePoint(const JsonValue& geometry,
                            const std::vector<Data::SectionPolygon>& polygons, double unit) {
  if (const JsonValue* ref = Util::FindMember(geometry, "ref")) {
    return {unit * (*ref)[0].GetDouble(), unit * (*ref)[1].GetDouble()};
  }
  Numeric::AreaMoments sum;
  const auto add = [&sum](const std::vector<Vec2<double>>& ring, double sign) {
    const Numeric::AreaMoments m = Numeric::MomentsOf(ring);
    const double weight = m.area < 0.0 ? -sign : sign;
    sum.area += weight * m.area;
    sum.sy += weight * m.sy;
    sum.sz += weight * m.sz;
  };
  for (const Data::SectionPolygon& polygon : polygons) {
    add(polygon.outline, 1.0);
    for (const auto& hole : polygon.holes) add(hole, -1.0);
  }
  return {sum.sy / sum.area, sum.sz / sum.area};
}

}  // namespace Orlix::VlSol::Test
