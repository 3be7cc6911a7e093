#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/vldata/document/UlSResult.h"
#include "model/vlsol/strength_reduction/strength_reduction.h"

namespace Orlix::VlSol {

/// Margin of the status: a case is carried while its utilisation is at most 1 + this.
inline constexpr double kStatusMargin = 1e-6;

/// Solves a load-driven case at the ultimate limit state: the plane under the load, failure under
/// the load scaled as a whole, and the moment ratio at constant axial force. Under strength
/// reduction the load is compared with the reduced capacity, and the plane is the one in
/// equilibrium with the load over phi, so that load and plane reach their limits together.
/// @param load       (N, Myy, Mzz) about the section's origin, tension positive
/// @param reduction  null: partial factors alone
/// Error: equilibrium to 1e-11, failure factors to 1e-10, relative.
Data::Velmo9::UlsCaseSolution SolveUlsLoad(const Numeric::CompiledSection& section,
                                           const Vec3<double>& load,
                                           const StrengthReduction* reduction = nullptr);

/// Solves a deformation-driven case: the load that the plane carries, failure under the plane
/// scaled as a whole, and the utilisations of the response load.
/// @param plane      (eps0, kyy, kzz) at the section's origin, tension positive
/// @param reduction  null: partial factors alone
Data::Velmo9::UlsCaseSolution SolveUlsDeformation(const Numeric::CompiledSection& section,
                                                  const Vec3<double>& plane,
                                                  const StrengthReduction* reduction = nullptr);

}  // namespace Orlix::VlSol
