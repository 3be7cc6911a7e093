#include "model/vlsol/strength_reduction/neutral_axis_factor.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "model/oxnumeric/section/kernel.h"

namespace Orlix::VlSol {
namespace {

using Numeric::CompiledSection;
using Numeric::Plane;
using Reach = CrushingPlanes::Reach;

// Capacity in tension without bending: everything at the strain of what breaks first.
double TensionCapacity(const CompiledSection& section) {
  double strain = 1.0;
  const auto limit = [&](int curve, double offset) {
    strain = std::min(strain, section.curves[static_cast<std::size_t>(curve)].upper - offset);
  };
  for (const CompiledSection::Region& region : section.regions) limit(region.curve, 0.0);
  for (const CompiledSection::PointArea& point : section.points) {
    limit(point.curve, point.strainOffset);
  }
  return Numeric::Integrate(section, {strain, 0.0, 0.0}).x;
}

}  // namespace

NeutralAxisFactor::NeutralAxisFactor(const Parameters& parameters,
                                     std::shared_ptr<const CrushingPlanes> planes, bool isDuctile)
    : parameters_(parameters),
      planes_(std::move(planes)),
      isDuctile_(isDuctile),
      tension_(TensionCapacity(planes_->Section())) {}

double NeutralAxisFactor::CompressionAt(Vec2<double> direction, const Reach& reach,
                                        double depth) const {
  const double zero = reach.compressed + depth * (reach.outermost - reach.compressed);
  return -Numeric::Integrate(planes_->Section(), planes_->At(direction, zero)).x;
}

double NeutralAxisFactor::Bending(Vec2<double> direction, const Reach& reach) const {
  if (!isDuctile_) return parameters_.phiLowDuctility;
  // The compression rises with the depth; k_uo counts only where the factor changes with it.
  double low = DepthOfFactor(parameters_, parameters_.phiMost);
  double fLow = CompressionAt(direction, reach, low);
  if (fLow >= 0.0) return parameters_.phiMost;
  double high = DepthOfFactor(parameters_, parameters_.phiLeast);
  double fHigh = CompressionAt(direction, reach, high);
  if (fHigh <= 0.0) return parameters_.phiLeast;
  constexpr double kWidth = 1e-12;
  for (int i = 0; i < 60 && high - low > kWidth; ++i) {  // Illinois
    const double part = std::clamp(fLow / (fLow - fHigh), 1e-3, 1.0 - 1e-3);
    const double middle = low + part * (high - low);
    const double f = CompressionAt(direction, reach, middle);
    if (std::abs(f) <= kWidth * planes_->Section().squash) {
      low = high = middle;
    } else if (f < 0.0) {
      low = middle;
      fLow = f;
      fHigh *= 0.5;
    } else {
      high = middle;
      fHigh = f;
      fLow *= 0.5;
    }
  }
  return BendingFactor(parameters_, 0.5 * (low + high));
}

double NeutralAxisFactor::Phi(const CompiledSection& section, const Plane& failure) const {
  if (section.points.empty() || !planes_->HasConcrete()) return parameters_.phiCompression;
  const Vec2<double> direction = planes_->DirectionOf(planes_->StrainsUnder(failure).total);
  const Reach reach = planes_->ReachAlong(direction);
  // Bars at the compression face alone: no depth of the neutral axis is small beside theirs.
  if (reach.outermost <= reach.compressed) return parameters_.phiCompression;
  constexpr double kNegligible = 1e-9;  // of the squash force: round-off of pure bending
  const double tension = Numeric::Integrate(section, failure).x;
  if (tension < -kNegligible * section.squash) {
    const double balanced = CompressionAt(direction, reach, parameters_.balancedDepth);
    if (-tension >= balanced) return parameters_.phiCompression;
    return CompressionFactor(parameters_, Bending(direction, reach), -tension, balanced);
  }
  if (tension <= kNegligible * section.squash) return Bending(direction, reach);
  if (tension >= tension_) return Most();
  return Data::Design::As3600::TensionFactor(Bending(direction, reach), Most(), tension, tension_);
}

}  // namespace Orlix::VlSol
