#include "model/vlsol/strength_reduction/squash_line.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "model/oxnumeric/area_moments.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::VlSol {
namespace {

using Numeric::CompiledSection;
using Numeric::LoadPath;
using Numeric::Plane;
using Numeric::Resultant;

Vec3<double> Cross(const Vec3<double>& a, const Vec3<double>& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// Resultants with moments as forces, so that the three members are of one size.
Resultant Scaled(const Resultant& f, double radius) { return {f.x, f.y / radius, f.z / radius}; }

// The path seen from the squash load S: which of the lines from there meets it. A line's far end D
// lies in the plane of S and the path when its distance from that plane is zero; in that plane
// D - S = alpha (A - S) + beta B, and the line meets the path at the factor beta / alpha. Of the
// two lines in the plane the path leaves the body of the lines at the one where the distance rises
// with the direction, from wherever it comes.
class LineSearch {
 public:
  LineSearch(const CrushingPlanes& planes, const Resultant& squash, const LoadPath& path)
      : planes_(planes), squash_(squash) {
    const double radius = planes.Section().radius;
    from_ = Scaled(path.fixed, radius) - squash;
    along_ = Scaled(path.scaled, radius);
    normal_ = Cross(from_, along_);
    // Without cancellation where the two are all but parallel.
    parallel_ = Dot(along_, from_) / Dot(from_, from_);
    across_ = along_ - parallel_ * from_;
  }

  // The path leads to the squash load itself, or away from it.
  bool IsAxial() const {
    constexpr double kRoundOff = 1e-13;
    return Length(normal_) <= kRoundOff * Length(from_) * Length(along_);
  }
  double AxialFactor() const { return -Dot(from_, along_) / Dot(along_, along_); }

  std::optional<double> Run() const {
    // The moment's part across S, and the direction of the strain that goes with it.
    const auto root = March(At(std::atan2(across_.y, -across_.z)));
    return root ? FactorAt(*root) : std::nullopt;
  }

 private:
  struct Trial {
    double angle{};
    double distance{};  // of D from the plane
    double beta{};
    double alpha{};
  };

  Trial At(double angle) const {
    const Vec2<double> direction{std::cos(angle), std::sin(angle)};
    const Plane plane = planes_.At(direction, planes_.ReachAlong(direction).farFace);
    const Resultant end =
        Scaled(Numeric::Integrate(planes_.Section(), plane), planes_.Section().radius) - squash_;
    const double beta = Dot(end, across_) / Dot(across_, across_);
    return {angle, Dot(normal_, end), beta, Dot(end, from_) / Dot(from_, from_) - beta * parallel_};
  }

  // Steps of growing size to where the distance rises through zero, then Illinois.
  std::optional<Trial> March(Trial at) const {
    constexpr double kFirstStep = 0.02;
    constexpr double kLargestStep = 0.25;
    const double sense = at.distance > 0.0 ? -1.0 : 1.0;
    double step = kFirstStep;
    for (double turned = 0.0; turned < 2.0 * std::numbers::pi; turned += step) {
      if (at.distance == 0.0) return at;
      const Trial next = At(at.angle + sense * step);
      if ((next.distance > 0.0) != (at.distance > 0.0)) return Between(at, next);
      at = next;
      step = std::min(2.0 * step, kLargestStep);
    }
    return std::nullopt;
  }

  Trial Between(Trial a, Trial b) const {
    constexpr double kWidth = 1e-14;  // [rad]
    double fa = a.distance;
    double fb = b.distance;
    for (int i = 0; i < 60 && std::abs(b.angle - a.angle) > kWidth && fb != 0.0; ++i) {
      const double part = std::clamp(fa / (fa - fb), 1e-3, 1.0 - 1e-3);
      const Trial middle = At(a.angle + part * (b.angle - a.angle));
      if ((middle.distance > 0.0) == (a.distance > 0.0) && middle.distance != 0.0) {
        a = middle;
        fa = a.distance;
        fb *= 0.5;
      } else {
        b = middle;
        fb = b.distance;
        fa *= 0.5;
      }
    }
    return b;
  }

  // Beyond the point of decompression the strain limits decide.
  static std::optional<double> FactorAt(const Trial& root) {
    constexpr double kSlack = 1e-10;
    if (!(root.alpha >= 1.0 - kSlack) || !(root.beta > 0.0)) return std::nullopt;
    return root.beta / root.alpha;
  }

  const CrushingPlanes& planes_;
  const Resultant& squash_;
  Vec3<double> from_;    // A - S
  Vec3<double> along_;   // B
  Vec3<double> normal_;  // of their plane
  Vec3<double> across_;  // part of B across A - S
  double parallel_{};    // and along it, in parts of A - S
};

}  // namespace

SquashLine::SquashLine(std::shared_ptr<const CrushingPlanes> planes, const Resultant& squash)
    : planes_(std::move(planes)), squash_(Scaled(squash, planes_->Section().radius)) {}

std::optional<double> SquashLine::FactorOn(const LoadPath& path, const Plane* nominal) const {
  if (nominal != nullptr) {
    // A neutral axis this far within the concrete is beyond doubt.
    constexpr double kWellWithin = 0.1;
    const CrushingPlanes::Strains strains = planes_->StrainsUnder(*nominal);
    if (!(strains.least < 0.0) || strains.largest > -kWellWithin * strains.least) {
      return std::nullopt;
    }
  }
  const LineSearch search(*planes_, squash_, path);
  if (!search.IsAxial()) return search.Run();
  const double factor = search.AxialFactor();
  return factor > 0.0 ? std::optional(factor) : std::nullopt;
}

Resultant SquashLoad(const CompiledSection& section, const std::vector<double>& concrete,
                     double strain) {
  const auto steel = [&](int curve, double offset) {
    const auto& exact = section.curves[static_cast<std::size_t>(curve)].exact;
    const double eps = offset - strain;
    return exact[exact.Locate(eps)].Stress(eps);
  };
  const auto around = [&](int curve) {
    const double own = concrete[static_cast<std::size_t>(curve)];
    return own > 0.0 ? -own : steel(curve, 0.0);
  };
  Resultant sum{};
  for (const CompiledSection::Region& region : section.regions) {
    const double stress = around(region.curve);
    for (const auto& ring : region.rings) {
      const Numeric::AreaMoments m = Numeric::MomentsOf(ring);
      sum += stress * Resultant{m.area, m.sz, -m.sy};
    }
  }
  for (const CompiledSection::PointArea& point : section.points) {
    double stress = steel(point.curve, point.strainOffset);
    if (point.displacedCurve >= 0) stress -= around(point.displacedCurve);
    sum += point.area * stress * Numeric::Phi(point.position);
  }
  return sum;
}

}  // namespace Orlix::VlSol
