#include "model/vlsol/diagrams/diagram_strains.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "model/oxnumeric/section/gauge.h"

namespace Orlix::VlSol {

using Numeric::CompiledSection;
using Numeric::CSegment;
using Numeric::Plane;
using Numeric::StressCurve;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const StressCurve& CurveOf(const CompiledSection& section, int index) {
  return section.curves[static_cast<std::size_t>(index)];
}

// Average slope of a piece within the limits of its curve.
double Slope(const CSegment& piece, double to) {
  return (piece.Stress(to) - piece.Stress(piece.from)) / (to - piece.from);
}

// Where the slope first falls below `part` of the slope at zero strain, in tension.
double EndOfSlope(const StressCurve& curve, double part) {
  double first = 0.0;
  for (std::size_t i = curve.exact.Locate(0.0); i < curve.exact.size(); ++i) {
    const CSegment& piece = curve.exact[i];
    const double to = std::min(piece.to, curve.upper);
    if (!(to > piece.from)) break;
    if (first == 0.0) {
      first = piece.Tangent(0.0);
      if (!(first > 0.0)) return kInfinity;
    } else if (Slope(piece, to) < part * first || curve.exact.Jump(i) < 0.0) {
      return piece.from;
    }
  }
  return kInfinity;
}

double LargestStrain(const CompiledSection::Region& region, const Plane& plane) {
  double largest = -kInfinity;
  for (const Vec2<double>& p : region.hull) {
    largest = std::max(largest, Dot(Numeric::Phi(p), plane + region.locked));
  }
  return largest;
}

// Steel, not concrete.
bool IsAsStrongInTension(const StressCurve& curve) {
  double most = 0.0;
  double least = 0.0;
  for (std::size_t i = 0; i < curve.exact.size(); ++i) {
    const CSegment& piece = curve.exact[i];
    const double from = std::max(piece.from, curve.lower);
    const double to = std::min(piece.to, curve.upper);
    if (!(to > from)) continue;
    most = std::max({most, piece.Stress(from), piece.Stress(to)});
    least = std::min({least, piece.Stress(from), piece.Stress(to)});
  }
  constexpr double kConcrete = 0.5;  // above the part of its strength that concrete has in tension
  return most > -kConcrete * least;
}

}  // namespace

double YieldStrain(const StressCurve& curve) {
  constexpr double kYielded = 0.1;
  return EndOfSlope(curve, kYielded);
}

DiagramStrains::DiagramStrains(const CompiledSection& section) : section_(&section) {
  constexpr double kStraight = 1.0 - 1e-9;
  for (const CompiledSection::PointArea& point : section.points) {
    yield_.push_back(YieldStrain(CurveOf(section, point.curve)));
  }
  for (const CompiledSection::Region& region : section.regions) {
    const StressCurve& curve = CurveOf(section, region.curve);
    const bool isSteel = IsAsStrongInTension(curve);
    regionYield_.push_back(isSteel ? YieldStrain(curve) : kInfinity);
    tension_.push_back(isSteel ? kInfinity : EndOfSlope(curve, kStraight));
  }
}

double DiagramStrains::Outline(const Plane& plane) const {
  double largest = -kInfinity;
  for (const CompiledSection::Region& region : section_->regions) {
    largest = std::max(largest, LargestStrain(region, plane));
  }
  return largest;
}

double DiagramStrains::BeyondYield(const Plane& plane) const {
  double largest = -kInfinity;
  for (std::size_t i = 0; i < section_->points.size(); ++i) {
    const CompiledSection::PointArea& point = section_->points[i];
    const double strain = Dot(Numeric::Phi(point.position), plane) + point.strainOffset;
    largest = std::max(largest, strain - yield_[i]);
  }
  return std::max(largest, BeyondInRegions(regionYield_, plane));
}

double DiagramStrains::BeyondTension(const Plane& plane) const {
  return BeyondInRegions(tension_, plane);
}

double DiagramStrains::BeyondInRegions(const std::vector<double>& strains,
                                       const Plane& plane) const {
  double largest = -kInfinity;
  for (std::size_t i = 0; i < section_->regions.size(); ++i) {
    if (strains[i] == kInfinity) continue;
    largest = std::max(largest, LargestStrain(section_->regions[i], plane) - strains[i]);
  }
  return largest;
}

bool DiagramStrains::IsCompressionLimit(const Plane& plane) const {
  // The active limit's row is its phi, which begins with 1, over the limit.
  return Numeric::GaugeOf(*section_, plane).row.x < 0.0;
}

}  // namespace Orlix::VlSol
