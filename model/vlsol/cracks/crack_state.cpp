#include "model/vlsol/cracks/crack_state.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Orlix::VlSol {

using Data::Velmo9::Deformation;

CrackState::CrackState(const CrackComponent& component, const Deformation& plane)
    : component_(component),
      total_(plane.Vector() + component.lockedIn.Vector()),
      ofBars_(plane.Vector() + component.lockedIntoBars.Vector()) {
  const Vec3<double> v = total_.Vector();
  const Vec2<double> slope{-v.z, v.y};
  const double kappa = Length(slope);
  double least = std::numeric_limits<double>::infinity();
  largest_ = -least;
  for (const Data::SectionPolygon& polygon : component.polygons) {
    for (const Vec2<double>& p : polygon.outline) {
      const double strain = StrainAt(p);
      if (strain > largest_) {
        largest_ = strain;
        place_ = p;
      }
      least = std::min(least, strain);
    }
  }
  if (!IsInTension()) return;
  // Below this a curvature is round-off of the strain.
  constexpr double kRoundOff = 1e-13;
  if (kappa > kRoundOff * largest_) gradient_ = 1.0 / kappa * slope;
  uniformity_ = std::clamp(least / largest_, 0.0, 1.0);
  tensionDepth_ = kappa > 0.0 ? largest_ / kappa : std::numeric_limits<double>::infinity();
  const Extent extent = ExtentOf(component, gradient_);
  depth_ = extent.high - extent.low;
}

double CrackState::StrainOf(const CrackBar& bar) const { return ofBars_.StrainAt(bar.position); }

double CrackState::PullOf(const CrackBar& bar) const {
  return bar.area * std::max(StrainOf(bar), 0.0);
}

Extent ExtentOf(const CrackComponent& component, Vec2<double> direction) {
  Extent extent{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (const Data::SectionPolygon& polygon : component.polygons) {
    for (const Vec2<double>& p : polygon.outline) {
      extent.low = std::min(extent.low, Dot(direction, p));
      extent.high = std::max(extent.high, Dot(direction, p));
    }
  }
  return extent;
}

}  // namespace Orlix::VlSol
