#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/vldata/document/UlSResult.h"

namespace Orlix::VlSol {

/// Margin of the status: a case is carried while its utilisation is at most 1 + this.
inline constexpr double kStatusMargin = 1e-6;

/// Solves a load-driven case at the ultimate limit state: the plane under the load, failure under
/// the load scaled as a whole, and the moment ratio at constant axial force.
/// @param load  (N, Myy, Mzz) about the section's origin, tension positive
/// Error: equilibrium to 1e-11, failure factors to 1e-10, relative.
Data::Velmo9::UlsCaseSolution SolveUlsLoad(const Numeric::CompiledSection& section,
                                           const Vec3<double>& load);

/// Solves a deformation-driven case: the load that the plane carries, failure under the plane
/// scaled as a whole, and the utilisations of the response load.
/// @param plane  (eps0, kyy, kzz) at the section's origin, tension positive
Data::Velmo9::UlsCaseSolution SolveUlsDeformation(const Numeric::CompiledSection& section,
                                                  const Vec3<double>& plane);

}  // namespace Orlix::VlSol
