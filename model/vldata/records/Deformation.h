#pragma once

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::Data::Velmo9 {

/// A strain plane: eps(y, z) = eps0 + kyy z - kzz y, tension positive.
class Deformation {
 public:
  Deformation() = default;
  /// @param vector  eps0, kyy [1/m], kzz [1/m]
  explicit Deformation(const Vec3<double>& vector) : vector_(vector) {}

  /// Strain of the plane at a point (y, z) [m].
  double StrainAt(Vec2<double> point) const {
    return vector_.x + vector_.y * point.y - vector_.z * point.x;
  }
  /// (eps0, kyy, kzz).
  const Vec3<double>& Vector() const { return vector_; }
  /// {"eps", "kyy", "kzz"}, or with asArray the three numbers as an array.
  Util::JsonValue toJson(Util::JsonAllocator& allocator, bool asArray) const;

  friend bool operator==(const Deformation&, const Deformation&) = default;

 private:
  Vec3<double> vector_;
};

}  // namespace Orlix::Data::Velmo9
