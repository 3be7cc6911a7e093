#pragma once

#include <algorithm>
#include <cmath>

#include "model/oxnumeric/linear_solve.h"
#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::Numeric {

/// Scaled unknowns of the iterations, so that strains and forces of one section compare: planes
/// become (e0, ky R, kz R), all strains; loads (N, My/R, Mz/R), all forces.
class Scaling {
 public:
  explicit Scaling(const CompiledSection& section)
      : radius_(section.radius), elastic_(Tangent(section.elastic)) {
    // Makes the elastic tangent definite where bars on a line leave it singular: the small
    // stiffness picks the smallest curvature.
    constexpr double kSmallestStiffness = 1e-9;
    const double smallest = kSmallestStiffness * elastic_.MaxDiagonal();
    elastic_ = elastic_ + Sym3{smallest, 0, 0, smallest, 0, smallest};
  }

  Vec3<double> Load(const Resultant& f) const { return {f.x, f.y / radius_, f.z / radius_}; }
  Vec3<double> FromPlane(const Plane& d) const { return {d.x, d.y * radius_, d.z * radius_}; }
  Plane ToPlane(const Vec3<double>& s) const { return {s.x, s.y / radius_, s.z / radius_}; }
  /// A row a with a·plane, for scaled planes.
  Vec3<double> Row(const Vec3<double>& a) const { return {a.x, a.y / radius_, a.z / radius_}; }
  Sym3 Tangent(const Sym3& k) const {
    const double r2 = radius_ * radius_;
    return {k.xx, k.xy / radius_, k.xz / radius_, k.yy / r2, k.yz / r2, k.zz / r2};
  }
  /// Scaled elastic tangent, definite.
  const Sym3& Elastic() const { return elastic_; }

 private:
  double radius_;
  Sym3 elastic_;
};

/// Largest component: the norm of scaled loads.
inline double MaxNorm(const Vec3<double>& f) {
  return std::max({std::abs(f.x), std::abs(f.y), std::abs(f.z)});
}

/// Size of a scaled plane: |e0| + R |k|, no strain in the section is larger.
inline double StrainSize(const Vec3<double>& s) { return std::abs(s.x) + std::hypot(s.y, s.z); }

}  // namespace Orlix::Numeric
