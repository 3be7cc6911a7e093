#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Numeric {

/// A symmetric 3x3 matrix.
struct Sym3 {
  double xx{}, xy{}, xz{}, yy{}, yz{}, zz{};

  friend Sym3 operator+(const Sym3& a, const Sym3& b) {
    return {a.xx + b.xx, a.xy + b.xy, a.xz + b.xz, a.yy + b.yy, a.yz + b.yz, a.zz + b.zz};
  }
  friend Sym3 operator*(double s, const Sym3& a) {
    return {s * a.xx, s * a.xy, s * a.xz, s * a.yy, s * a.yz, s * a.zz};
  }
  friend Vec3<double> operator*(const Sym3& a, const Vec3<double>& v) {
    return {a.xx * v.x + a.xy * v.y + a.xz * v.z, a.xy * v.x + a.yy * v.y + a.yz * v.z,
            a.xz * v.x + a.yz * v.y + a.zz * v.z};
  }
  /// Adds w v vᵀ.
  void AddOuter(double w, const Vec3<double>& v) {
    xx += w * v.x * v.x;
    xy += w * v.x * v.y;
    xz += w * v.x * v.z;
    yy += w * v.y * v.y;
    yz += w * v.y * v.z;
    zz += w * v.z * v.z;
  }
  double MaxDiagonal() const { return std::fmax(xx, std::fmax(yy, zz)); }
};

/// Solves a x = b by Cholesky. @return false when a is not positive definite; x is then undefined.
inline bool SolveCholesky(const Sym3& a, const Vec3<double>& b, Vec3<double>& x) {
  if (!(a.xx > 0.0)) return false;
  const double l11 = std::sqrt(a.xx);
  const double l21 = a.xy / l11;
  const double l31 = a.xz / l11;
  const double p2 = a.yy - l21 * l21;
  if (!(p2 > 0.0)) return false;
  const double l22 = std::sqrt(p2);
  const double l32 = (a.yz - l21 * l31) / l22;
  const double p3 = a.zz - l31 * l31 - l32 * l32;
  if (!(p3 > 0.0)) return false;
  const double l33 = std::sqrt(p3);
  const double y1 = b.x / l11;
  const double y2 = (b.y - l21 * y1) / l22;
  const double y3 = (b.z - l31 * y1 - l32 * y2) / l33;
  x.z = y3 / l33;
  x.y = (y2 - l32 * x.z) / l22;
  x.x = (y1 - l21 * x.y - l31 * x.z) / l11;
  return true;
}

/// A 4x4 system with two right-hand sides, row by row: four coefficients, then the two sides.
using Augmented4 = std::array<std::array<double, 6>, 4>;

/// Solves in place by Gaussian elimination with partial pivoting; columns 4 and 5 become the
/// solutions. @return false when a pivot falls below `smallest`, an absolute bound.
inline bool SolveGauss(Augmented4& m, double smallest) {
  for (std::size_t k = 0; k < 4; ++k) {
    std::size_t pivot = k;
    for (std::size_t i = k + 1; i < 4; ++i) {
      if (std::abs(m[i][k]) > std::abs(m[pivot][k])) pivot = i;
    }
    if (!(std::abs(m[pivot][k]) > smallest)) return false;
    if (pivot != k) std::swap(m[pivot], m[k]);
    for (std::size_t i = k + 1; i < 4; ++i) {
      const double f = m[i][k] / m[k][k];
      for (std::size_t j = k + 1; j < 6; ++j) m[i][j] -= f * m[k][j];
    }
  }
  for (std::size_t k = 4; k-- > 0;) {
    for (std::size_t c = 4; c < 6; ++c) {
      double sum = m[k][c];
      for (std::size_t j = k + 1; j < 4; ++j) sum -= m[k][j] * m[j][c];
      m[k][c] = sum / m[k][k];
    }
  }
  return true;
}

}  // namespace Orlix::Numeric
