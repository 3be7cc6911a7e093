#pragma once

#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::VlSol {

/// A plane in the section's axes as it is reported: curvatures that are round-off of the search are
/// set to zero, so that symmetric cases have a clean neutral axis.
/// @param local  about the section's centre
Vec3<double> ReportedPlane(const Numeric::CompiledSection& section, const Numeric::Plane& local);

}  // namespace Orlix::VlSol
