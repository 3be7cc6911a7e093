#include "model/vlsol/reported_plane.h"

#include <cmath>

namespace Orlix::VlSol {

Vec3<double> ReportedPlane(const Numeric::CompiledSection& section, const Numeric::Plane& local) {
  constexpr double kRoundOff = 1e-13;  // a hundredth of the equilibrium's tolerance
  const double size = std::abs(local.x) + section.radius * std::hypot(local.y, local.z);
  const double noise = kRoundOff * size / section.radius;
  Numeric::Plane clean = local;
  if (std::abs(clean.y) <= noise) clean.y = 0.0;
  if (std::abs(clean.z) <= noise) clean.z = 0.0;
  return section.ToOrigin(clean);
}

}  // namespace Orlix::VlSol
