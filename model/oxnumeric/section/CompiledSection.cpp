#include "model/oxnumeric/section/CompiledSection.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "model/oxnumeric/area_moments.h"
#include "model/oxnumeric/polygon.h"

namespace Orlix::Numeric {
namespace {

// Vertices nearer than this part of the section's size are one vertex.
constexpr double kSameVertex = 1e-12;
// Rings with less area than this part of their bounding box have none.
constexpr double kNoArea = 1e-12;

double BoxArea(const std::vector<Vec2<double>>& ring) {
  Vec2<double> low = ring.front();
  Vec2<double> high = ring.front();
  for (const Vec2<double>& p : ring) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  return (high.x - low.x) * (high.y - low.y);
}

// Size of the input, to tell what is negligible before the centre is known.
double Extent(const SectionInput& input) {
  double extent = 0.0;
  Vec2<double> origin{};
  bool first = true;
  const auto reach = [&](Vec2<double> p) {
    if (first) origin = p;
    first = false;
    extent = std::max(extent, Length(p - origin));
  };
  for (const RegionInput& region : input.regions) {
    for (const RegionInput::Ring& ring : region.rings) {
      for (const Vec2<double>& p : ring.vertices) reach(p);
    }
  }
  for (const PointAreaInput& point : input.points) reach(point.position);
  return extent;
}

// Cleans and orients the rings of a region, still about the section's origin.
CompiledSection::Region CleanRegion(const RegionInput& input, double extent) {
  CompiledSection::Region region;
  region.curve = input.curve;
  region.locked = input.locked;
  for (const RegionInput::Ring& given : input.rings) {
    std::vector<Vec2<double>> ring = WithoutDuplicates(given.vertices, kSameVertex * extent);
    if (ring.size() < 3) continue;
    const double area = SignedArea(ring);
    if (std::abs(area) <= kNoArea * BoxArea(ring)) continue;
    if ((area > 0.0) == given.isHole) std::reverse(ring.begin(), ring.end());
    region.rings.push_back(std::move(ring));
  }
  return region;
}

AreaMoments MomentsOfRegion(const CompiledSection::Region& region) {
  AreaMoments sum;
  for (const std::vector<Vec2<double>>& ring : region.rings) sum += MomentsOf(ring);
  return sum;
}

// Centre of gravity of the regions; of the point areas where there is no region.
Vec2<double> CentreOf(const std::vector<CompiledSection::Region>& regions,
                      const std::vector<PointAreaInput>& points) {
  AreaMoments sum;
  for (const CompiledSection::Region& region : regions) sum += MomentsOfRegion(region);
  if (!(sum.area > 0.0)) {
    for (const PointAreaInput& point : points) {
      sum.area += point.area;
      sum.sy += point.area * point.position.x;
      sum.sz += point.area * point.position.y;
    }
  }
  if (!(sum.area > 0.0)) return {};
  return {sum.sy / sum.area, sum.sz / sum.area};
}

void AddLimit(Vec2<double> at, double locked, const StressCurve& curve, CompiledSection& section) {
  const double upper = curve.upper - locked;
  const double lower = curve.lower - locked;
  if (upper <= 0.0 || lower >= 0.0) {
    section.lockedBeyondLimit = true;
    return;
  }
  section.limits.push_back({Phi(at), 1.0 / upper, 1.0 / lower, curve.upperIsCap, curve.lowerIsCap});
}

// Axial force and size that `area` of a curve's material adds at the most.
void AddCapacity(double area, const StressCurve& curve, CompiledSection& section) {
  double most = 0.0;
  double least = 0.0;
  for (std::size_t i = 1; i + 1 < curve.exact.size(); ++i) {
    const CSegment& s = curve.exact[i];
    // Within a piece the stress is taken as bounded by the curve's largest: safe for a bound.
    const double ends[] = {s.Stress(s.from), s.Stress(s.to)};
    most = std::max({most, ends[0], ends[1]});
    least = std::min({least, ends[0], ends[1]});
  }
  if (most > 0.0) most = curve.maxStress;
  if (least < 0.0) least = -curve.maxStress;
  section.mostTension += area * most;
  section.mostCompression += area * least;
  section.squash += area * curve.maxStress;
}

void AddRegion(CompiledSection::Region region, CompiledSection& section) {
  std::vector<Vec2<double>> vertices;
  for (std::vector<Vec2<double>>& ring : region.rings) {
    for (Vec2<double>& p : ring) {
      p = p - section.centre;
      section.radius = std::max(section.radius, Length(p));
    }
    vertices.insert(vertices.end(), ring.begin(), ring.end());
  }
  if (vertices.empty()) return;
  region.hull = ConvexHull(vertices);
  region.locked = section.ToLocal(region.locked);
  const StressCurve& curve = section.curves[static_cast<std::size_t>(region.curve)];
  for (const Vec2<double>& p : region.hull) {
    AddLimit(p, Dot(Phi(p), region.locked), curve, section);
  }
  const AreaMoments m = MomentsOfRegion(region);
  AddCapacity(m.area, curve, section);
  const Sym3 areas{m.area, m.sz, -m.sy, m.szz, -m.syz, m.syy};
  section.elastic = section.elastic + curve.modulus * areas;
  section.hasLockedRegions = section.hasLockedRegions || region.locked != Plane{};
  section.regions.push_back(std::move(region));
}

void AddPoint(const PointAreaInput& input, const std::vector<RegionInput>& regions,
              CompiledSection& section) {
  CompiledSection::PointArea point;
  point.position = input.position - section.centre;
  point.area = input.area;
  point.curve = input.curve;
  const Vec3<double> phi = Phi(point.position);
  const Plane locked = section.ToLocal(input.locked);
  point.lockedOffset = point.displacedOffset = Dot(phi, locked);
  point.strainOffset = point.lockedOffset + input.prestrain;
  if (input.host >= 0) {
    const RegionInput& host = regions[static_cast<std::size_t>(input.host)];
    point.displacedCurve = host.curve;
    point.displacedOffset = Dot(phi, section.ToLocal(host.locked));
  }
  const StressCurve& curve = section.curves[static_cast<std::size_t>(point.curve)];
  section.radius = std::max(section.radius, Length(point.position));
  section.elastic.AddOuter(point.area * curve.modulus, phi);
  AddLimit(point.position, point.strainOffset, curve, section);
  AddCapacity(point.area, curve, section);
  section.points.push_back(point);
}

}  // namespace

Plane CompiledSection::ToLocal(const Plane& d) const {
  return {d.x + d.y * centre.y - d.z * centre.x, d.y, d.z};
}

Plane CompiledSection::ToOrigin(const Plane& d) const {
  return {d.x - d.y * centre.y + d.z * centre.x, d.y, d.z};
}

Resultant CompiledSection::LoadToLocal(const Resultant& f) const {
  return {f.x, f.y - f.x * centre.y, f.z + f.x * centre.x};
}

Resultant CompiledSection::LoadToOrigin(const Resultant& f) const {
  return {f.x, f.y + f.x * centre.y, f.z - f.x * centre.x};
}

CompiledSection Compile(const SectionInput& input) {
  CompiledSection section;
  for (const CurveInput& curve : input.curves) {
    section.curves.push_back(MakeStressCurve(curve));
    section.hasSteps = section.hasSteps || section.curves.back().hasSteps;
    section.softens = section.softens || section.curves.back().softens;
  }
  const double extent = Extent(input);
  std::vector<CompiledSection::Region> regions;
  for (const RegionInput& region : input.regions) regions.push_back(CleanRegion(region, extent));
  section.centre = CentreOf(regions, input.points);
  section.radius = 0.0;
  for (CompiledSection::Region& region : regions) AddRegion(std::move(region), section);
  for (const PointAreaInput& point : input.points) AddPoint(point, input.regions, section);
  if (!(section.radius > 0.0)) section.radius = 1.0;  // a single bar: any length serves
  return section;
}

}  // namespace Orlix::Numeric
