#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "model/oxnumeric/polygon.h"
#include "model/oxnumeric/polygon_overlay.h"
#include "model/oxnumeric/polygon_validity.h"

namespace Orlix::Numeric {
namespace {

using Ring = std::span<const Vec2<double>>;

/// One use of the library: a context of its own, so that calls from several threads are
/// independent.
class Geos {
 public:
  struct Deleter {
    GEOSContextHandle_t context;
    void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
  };
  using Geometry = std::unique_ptr<GEOSGeometry, Deleter>;

  Geos() : context_(GEOS_init_r()) {
    if (context_ == nullptr) throw std::runtime_error("the geometry library does not start");
    GEOSContext_setErrorMessageHandler_r(
        context_,
        [](const char* message, void* text) { *static_cast<std::string*>(text) = message; },
        &error_);
  }
  ~Geos() { GEOS_finish_r(context_); }
  Geos(const Geos&) = delete;
  Geos& operator=(const Geos&) = delete;

  GEOSContextHandle_t Context() const { return context_; }
  Geometry Own(GEOSGeometry* geometry) const {
    if (geometry == nullptr) Fail();
    return Geometry(geometry, Deleter{context_});
  }
  /// A result of the library that is negative (or `failure`) when it has failed.
  int Checked(int result, int failure = -1) const {
    if (result == failure) Fail();
    return result;
  }

  Geometry MakeRing(Ring ring) const {
    std::vector<double> values;
    values.reserve(2 * ring.size() + 2);
    for (const auto& v : ring) values.insert(values.end(), {v.x, v.y});
    values.insert(values.end(), {ring.front().x, ring.front().y});
    GEOSCoordSequence* points = GEOSCoordSeq_copyFromBuffer_r(
        context_, values.data(), static_cast<unsigned>(ring.size() + 1), 0, 0);
    if (points == nullptr) Fail();
    return Own(GEOSGeom_createLinearRing_r(context_, points));
  }
  Geometry MakePolygon(const PolygonView& polygon) const {
    std::vector<Geometry> holes;
    holes.reserve(polygon.holes.size());
    for (const auto& hole : polygon.holes) holes.push_back(MakeRing(hole));
    Geometry outline = MakeRing(polygon.outline);
    std::vector<GEOSGeometry*> taken;
    taken.reserve(holes.size());
    for (auto& hole : holes) taken.push_back(hole.release());
    return Own(GEOSGeom_createPolygon_r(context_, outline.release(), taken.data(),
                                        static_cast<unsigned>(taken.size())));
  }
  Vec2<double> PlaceOf(const GEOSGeometry* point) const {
    Vec2<double> place;
    Checked(GEOSGeomGetX_r(context_, point, &place.x));
    Checked(GEOSGeomGetY_r(context_, point, &place.y));
    return place;
  }
  Geometry Snapped(const GEOSGeometry* geometry, const GEOSGeometry* to, double tolerance) const {
    return Own(GEOSSnap_r(context_, geometry, to, tolerance));
  }
  bool IsValid(const Geometry& geometry) const {
    return Checked(GEOSisValid_r(context_, geometry.get()), 2) == 1;
  }
  double AreaOf(const GEOSGeometry* geometry) const {
    double area = 0.0;
    Checked(GEOSArea_r(context_, geometry, &area), 0);
    return area;
  }
  /// The vertices of a ring, the first not repeated at the end.
  std::vector<Vec2<double>> VerticesOf(const GEOSGeometry* ring, bool anticlockwise) const {
    const GEOSCoordSequence* points = GEOSGeom_getCoordSeq_r(context_, ring);
    if (points == nullptr) Fail();
    unsigned count = 0;
    Checked(GEOSCoordSeq_getSize_r(context_, points, &count), 0);
    std::vector<Vec2<double>> vertices(count);
    for (unsigned i = 0; i < count; ++i) {
      Checked(GEOSCoordSeq_getXY_r(context_, points, i, &vertices[i].x, &vertices[i].y), 0);
    }
    if (!vertices.empty()) vertices.pop_back();
    if ((SignedArea(vertices) > 0.0) != anticlockwise) std::ranges::reverse(vertices);
    return vertices;
  }
  OwnedPolygon PolygonOf(const GEOSGeometry* polygon) const {
    OwnedPolygon owned;
    const GEOSGeometry* outline = GEOSGetExteriorRing_r(context_, polygon);
    if (outline == nullptr) Fail();
    owned.outline = VerticesOf(outline, true);
    const int holes = Checked(GEOSGetNumInteriorRings_r(context_, polygon));
    for (int i = 0; i < holes; ++i) {
      const GEOSGeometry* hole = GEOSGetInteriorRingN_r(context_, polygon, i);
      if (hole == nullptr) Fail();
      owned.holes.push_back(VerticesOf(hole, false));
    }
    return owned;
  }
  /// The polygons of a geometry that have more than an area [m²].
  void AppendPolygons(const GEOSGeometry* geometry, double area,
                      std::vector<OwnedPolygon>& polygons) const {
    const int parts = Checked(GEOSGetNumGeometries_r(context_, geometry));
    for (int i = 0; i < parts; ++i) {
      const GEOSGeometry* part = GEOSGetGeometryN_r(context_, geometry, i);
      if (part == nullptr) Fail();
      const bool isPolygon = Checked(GEOSGeomTypeId_r(context_, part)) == GEOS_POLYGON;
      if (isPolygon && AreaOf(part) > area) polygons.push_back(PolygonOf(part));
    }
  }
  /// A place where a polygon is invalid; nothing when it is valid.
  std::optional<Vec2<double>> InvalidPlace(const GEOSGeometry* polygon) const {
    GEOSGeometry* where = nullptr;
    if (Checked(GEOSisValidDetail_r(context_, polygon, 0, nullptr, &where), 2) == 1) return {};
    if (where == nullptr) return Vec2<double>{};
    return PlaceOf(Own(where).get());
  }

 private:
  [[noreturn]] void Fail() const { throw std::runtime_error("geometry library: " + error_); }

  GEOSContextHandle_t context_;
  std::string error_;
};

std::size_t DistinctVertices(Ring ring) {
  std::vector<Vec2<double>> distinct;
  for (const auto& v : ring) {
    if (std::find(distinct.begin(), distinct.end(), v) == distinct.end()) distinct.push_back(v);
    if (distinct.size() == 3) break;
  }
  return distinct.size();
}

double AreaOf(const PolygonView& polygon) {
  double sum = std::abs(SignedArea(polygon.outline));
  for (const auto& hole : polygon.holes) sum -= std::abs(SignedArea(hole));
  return sum;
}

/// Length of the diagonal of a ring's bounding box.
double Extent(Ring ring) {
  if (ring.empty()) return 0.0;
  Vec2<double> low = ring.front();
  Vec2<double> high = low;
  for (const auto& v : ring) {
    low = {std::min(low.x, v.x), std::min(low.y, v.y)};
    high = {std::max(high.x, v.x), std::max(high.y, v.y)};
  }
  return Length(high - low);
}

/// Whether the ring's area is lost beside the size of its bounding box.
bool EnclosesNothing(Ring ring) {
  constexpr double kRelativeArea =
      1e-12;  // far above rounding, far below any section's slenderness
  const double size = Extent(ring);
  return !(std::abs(SignedArea(ring)) > kRelativeArea * size * size);
}

bool IsStraight(Ring ring) { return ConvexHull(ring).size() < 3; }

/// A fault of one ring by itself; `name` begins the reason.
PolygonValidity RingFault(const Geos& geos, Ring ring, const std::string& name) {
  for (const auto& v : ring) {
    if (!std::isfinite(v.x) || !std::isfinite(v.y)) {
      return {PolygonFault::notFinite, name + " has a coordinate that is not a finite number", {}};
    }
  }
  if (DistinctVertices(ring) < 3) {
    return {PolygonFault::tooFewVertices, name + " has fewer than three distinct vertices",
            ring.empty() ? Vec2<double>{} : ring.front()};
  }
  // A figure of eight may have no signed area either: it crosses, and that is what is wrong.
  if (!IsStraight(ring)) {
    const auto geometry = geos.MakePolygon({ring, {}});
    if (const auto place = geos.InvalidPlace(geometry.get())) {
      return {PolygonFault::crossing, name + " crosses, touches or runs back on itself", *place};
    }
  }
  if (EnclosesNothing(ring))
    return {PolygonFault::noArea, name + " encloses no area", ring.front()};
  return {};
}

/// Distance over a polygon's size up to which vertices are moved onto another boundary: more than
/// rounding moves the points of a common edge, less than any dimension of a section.
constexpr double kSnapDistance = 1e-9;

/// What a cover leaves of polygons. Edges that rounding alone keeps apart are made one first: hair
/// between them would reach to where nothing is left, and be taken for a corner of the section.
Geos::Geometry Uncovered(const Geos& geos, Geos::Geometry polygons, Geos::Geometry cover,
                         double tolerance) {
  auto snapped = geos.Snapped(polygons.get(), cover.get(), tolerance);
  auto snappedCover = geos.Snapped(cover.get(), snapped.get(), tolerance);
  if (geos.IsValid(snapped) && geos.IsValid(snappedCover)) {
    polygons = std::move(snapped);
    cover = std::move(snappedCover);
  }
  return geos.Own(GEOSDifference_r(geos.Context(), polygons.get(), cover.get()));
}

}  // namespace

PolygonValidity ValidityOf(const PolygonView& polygon) {
  const Geos geos;
  if (auto fault = RingFault(geos, polygon.outline, "the outline"); !fault.IsValid()) return fault;
  for (std::size_t i = 0; i < polygon.holes.size(); ++i) {
    auto fault = RingFault(geos, polygon.holes[i], "hole " + std::to_string(i + 1));
    if (!fault.IsValid()) return fault;
  }
  if (polygon.holes.empty()) return {};

  const auto place = geos.InvalidPlace(geos.MakePolygon(polygon).get());
  if (!place) return {};
  // Each ring is sound, so the fault lies between two of them: the outline is one of the two when
  // the place is on or outside it, up to the rounding of a crossing point.
  double size = 0.0;
  for (const auto& v : polygon.outline) size = std::max(size, Length(v - polygon.outline.front()));
  const GEOSContextHandle_t context = geos.Context();
  const auto boundary = geos.MakeRing(polygon.outline);
  const auto point = geos.Own(GEOSGeom_createPointFromXY_r(context, place->x, place->y));
  double distance = 0.0;
  geos.Checked(GEOSDistance_r(context, point.get(), boundary.get(), &distance), 0);
  if (distance <= 1e-12 * size || Contains(polygon.outline, *place) == Location::outside) {
    return {PolygonFault::holeOutside, "a hole does not lie inside the outline", *place};
  }
  return {PolygonFault::holesOverlap, "holes overlap or cut the polygon apart", *place};
}

PolygonOverlap OverlapOf(const PolygonView& a, const PolygonView& b) {
  const Geos geos;
  const GEOSContextHandle_t context = geos.Context();
  const auto first = geos.MakePolygon(a);
  const auto second = geos.MakePolygon(b);
  const auto common = geos.Own(GEOSIntersection_r(context, first.get(), second.get()));
  PolygonOverlap overlap;
  overlap.area = geos.AreaOf(common.get());
  if (overlap.area > 0.0) {
    const auto point = geos.Own(GEOSPointOnSurface_r(context, common.get()));
    overlap.place = geos.PlaceOf(point.get());
  }
  return overlap;
}

bool InteriorsOverlap(const PolygonView& a, const PolygonView& b) {
  constexpr double kRelativeArea = 1e-9;
  return OverlapOf(a, b).area > kRelativeArea * std::min(AreaOf(a), AreaOf(b));
}

std::vector<OwnedPolygon> Difference(std::span<const PolygonView> polygons,
                                     std::span<const PolygonView> covers) {
  constexpr double kRelativeArea = 1e-9;
  double area = 0.0;
  for (const PolygonView& polygon : polygons) area += AreaOf(polygon);

  const Geos geos;
  std::vector<OwnedPolygon> left;
  for (const PolygonView& polygon : polygons) {
    const double tolerance = kSnapDistance * Extent(polygon.outline);
    Geos::Geometry rest = geos.MakePolygon(polygon);
    for (const PolygonView& cover : covers) {
      rest = Uncovered(geos, std::move(rest), geos.MakePolygon(cover), tolerance);
    }
    geos.AppendPolygons(rest.get(), kRelativeArea * area, left);
  }
  return left;
}

}  // namespace Orlix::Numeric
