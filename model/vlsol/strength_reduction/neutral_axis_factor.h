#pragma once

#include <memory>

#include "model/oxdata/codes/as3600/strength_reduction.h"
#include "model/vlsol/strength_reduction/crushing_planes.h"

namespace Orlix::VlSol {

/// phi by the depth of the neutral axis in pure bending and the axial force at failure. Depths are
/// measured across the neutral axis of the failure, in the direction in which its strain grows;
/// pure bending is that at the same inclination.
/// Source: AS 3600:2018, Table 2.2.2.
class NeutralAxisFactor {
 public:
  using Parameters = Data::Design::As3600::StrengthReductionParameters;

  /// @param isDuctile  whether all bars are
  NeutralAxisFactor(const Parameters& parameters, std::shared_ptr<const CrushingPlanes> planes,
                    bool isDuctile);

  /// phi of a nominal failure plane about the section's centre; that of governing compression
  /// without bars or without concrete. Allocates nothing.
  double Phi(const Numeric::CompiledSection& section, const Numeric::Plane& failure) const;
  /// Largest factor there is.
  double Most() const { return isDuctile_ ? parameters_.phiMost : parameters_.phiLowDuctility; }

 private:
  /// Compression [N] with the neutral axis at a depth, in parts of that of the outermost bar.
  double CompressionAt(Vec2<double> direction, const CrushingPlanes::Reach& reach,
                       double depth) const;
  double Bending(Vec2<double> direction, const CrushingPlanes::Reach& reach) const;

  Parameters parameters_;
  std::shared_ptr<const CrushingPlanes> planes_;
  bool isDuctile_;
  double tension_{};  // capacity without bending, N_uot [N]
};

}  // namespace Orlix::VlSol
