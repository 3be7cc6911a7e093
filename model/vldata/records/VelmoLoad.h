#pragma once

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::Data::Velmo9 {

/// A load: resultants about the section's origin, N = ∫σ dA, Myy = ∫σ z dA, Mzz = -∫σ y dA;
/// tension positive.
class VelmoLoad {
 public:
  VelmoLoad() = default;
  /// @param vector  N [N], Myy [Nm], Mzz [Nm]
  explicit VelmoLoad(const Vec3<double>& vector) : vector_(vector) {}

  /// (N, Myy, Mzz).
  const Vec3<double>& Vector() const { return vector_; }
  /// {"N", "Myy", "Mzz"}.
  Util::JsonValue toJson(Util::JsonAllocator& allocator) const;

  friend bool operator==(const VelmoLoad&, const VelmoLoad&) = default;

 private:
  Vec3<double> vector_;
};

}  // namespace Orlix::Data::Velmo9
