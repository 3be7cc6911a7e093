#include "model/vlsol/strength_reduction/crushing_planes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace Orlix::VlSol {

using Numeric::CompiledSection;
using Numeric::Plane;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

CrushingPlanes::CrushingPlanes(const CompiledSection& compiled) : section_(compiled) {
  for (std::size_t i = 0; i < section_.regions.size(); ++i) {
    CompiledSection::Region& region = section_.regions[i];
    const Numeric::StressCurve& curve = section_.curves[static_cast<std::size_t>(region.curve)];
    if (!curve.lowerIsCap) concretes_.push_back({i, -curve.lower, region.locked});
    region.locked = {};
  }
  for (CompiledSection::PointArea& point : section_.points) {
    point.strainOffset -= point.lockedOffset;
    point.lockedOffset = point.displacedOffset = 0.0;
  }
}

CrushingPlanes::Reach CrushingPlanes::ReachAlong(Vec2<double> direction) const {
  Reach reach{kInfinity, -kInfinity, -kInfinity};
  for (const Concrete& concrete : concretes_) {
    for (const Vec2<double>& p : section_.regions[concrete.region].hull) {
      const double u = Dot(direction, p);
      reach.compressed = std::min(reach.compressed, u);
      reach.farFace = std::max(reach.farFace, u);
    }
  }
  for (const CompiledSection::PointArea& point : section_.points) {
    reach.outermost = std::max(reach.outermost, Dot(direction, point.position));
  }
  return reach;
}

Plane CrushingPlanes::At(Vec2<double> direction, double zero) const {
  double curvature = kInfinity;
  for (const Concrete& concrete : concretes_) {
    for (const Vec2<double>& p : section_.regions[concrete.region].hull) {
      const double depth = zero - Dot(direction, p);
      if (depth > 0.0) curvature = std::min(curvature, concrete.failure / depth);
    }
  }
  return {-curvature * zero, curvature * direction.y, -curvature * direction.x};
}

CrushingPlanes::Strains CrushingPlanes::StrainsUnder(const Plane& plane) const {
  Strains strains{plane, kInfinity, -kInfinity};
  for (const Concrete& concrete : concretes_) {
    const Plane total = plane + concrete.locked;
    for (const Vec2<double>& p : section_.regions[concrete.region].hull) {
      const double strain = Dot(Numeric::Phi(p), total);
      if (strain < strains.least) {
        strains.least = strain;
        strains.total = total;
      }
      strains.largest = std::max(strains.largest, strain);
    }
  }
  return strains;
}

Vec2<double> CrushingPlanes::DirectionOf(const Plane& plane) const {
  constexpr double kRoundOff = 1e-13;  // of strain, as where planes are reported
  const double curvature = std::hypot(plane.y, plane.z);
  if (curvature * section_.radius <= kRoundOff * std::abs(plane.x)) return {0.0, 1.0};
  return {-plane.z / curvature, plane.y / curvature};
}

}  // namespace Orlix::VlSol
