#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/failure.h"

namespace Orlix::VlSol {

/// A point of the failure surface in a plane of loads.
struct SlicePoint {
  double turn{};               ///< direction of the ray from the middle of the slice, in [0, 2 pi)
  Vec2<double> at;             ///< coordinates along the two axes, about the slice's origin [N, Nm]
  Numeric::Plane plane;        ///< failure plane about the section's centre
  bool limitIsCap{};           ///< as of FailurePoint
  double strainUtilisation{};  ///< gauge of the plane: 1, or less at a load peak
  int tag{};                   ///< the owner's
};

/// The failure surface cut by a plane of loads, origin + a first + b second, ray by ray from a load
/// near its middle. The points in the order of their rays make a closed curve that does not cross
/// itself.
class LoadSlice {
 public:
  using PointFunction = std::function<double(const SlicePoint&)>;

  /// @param origin        (N, Myy, Mzz) about the section's origin
  /// @param first,second  directions of the axes, of size 1
  /// @param inside        coordinates of a load within the strain limits
  /// @param plane         in equilibrium with it, about the section's centre
  /// @return nothing where the slice has no width in one of its directions
  static std::optional<LoadSlice> About(const Numeric::CompiledSection& section,
                                        const Vec3<double>& origin, const Vec3<double>& first,
                                        const Vec3<double>& second, Vec2<double> inside,
                                        const Numeric::Plane& plane);

  /// The point on a ray. @param near  plane of a point beside it; null: none is known
  std::optional<SlicePoint> At(double turn, const Numeric::Plane* near) const;
  /// About `count` points in the order of their turns: five eighths at equal turns, the others
  /// where the curve bends most. A ray without a failure point is left out.
  std::vector<SlicePoint> Trace(int count) const;
  /// The point of a failure that was found on another path of this plane.
  SlicePoint PointAt(Vec2<double> at, const Numeric::FailurePoint& failure) const;

  /// (N, Myy, Mzz) of coordinates, about the section's origin.
  Vec3<double> Load(Vec2<double> at) const { return origin_ + at.x * first_ + at.y * second_; }
  /// Where the rays begin.
  Vec2<double> Middle() const { return middle_; }
  const Numeric::Plane& MiddlePlane() const { return middlePlane_; }

  /// The points where a function of a curve's points changes its sign, each found to the last
  /// digits of its turn and given with the index of the point before it.
  std::vector<std::pair<std::size_t, SlicePoint>> Crossings(const std::vector<SlicePoint>& curve,
                                                            const PointFunction& f) const;

 private:
  LoadSlice(const Numeric::CompiledSection& section, const Vec3<double>& origin,
            const Vec3<double>& first, const Vec3<double>& second)
      : section_(&section), origin_(origin), first_(first), second_(second) {}

  Numeric::FailurePoint Failure(Vec2<double> direction, const Numeric::Plane* near) const;
  bool Centre(Vec2<double> axis, double& halfWidth);
  void Refine(std::size_t count, std::vector<SlicePoint>& curve) const;
  std::optional<SlicePoint> Crossing(const SlicePoint& a, double fa, const SlicePoint& b, double fb,
                                     const PointFunction& f) const;

  const Numeric::CompiledSection* section_;
  Vec3<double> origin_;
  Vec3<double> first_;
  Vec3<double> second_;
  Vec2<double> middle_;
  Numeric::Plane middlePlane_;
  double middleGauge_{};
  Vec2<double> halfWidth_{1.0, 1.0};  // turns are those of coordinates over these
};

}  // namespace Orlix::VlSol
