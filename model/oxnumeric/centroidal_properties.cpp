#include "model/oxnumeric/centroidal_properties.h"

#include <cmath>

namespace Orlix::Numeric {
namespace {

// A position in the origin and the product of a symmetric region come out as rounding.
constexpr double kRounding = 1e-12;
// Below this the direction of the principal axes is decided by rounding more than by the region.
constexpr double kAlike = 1e-10;

double Cleaned(double value, double size) {
  return std::abs(value) < kRounding * size ? 0.0 : value;
}

}  // namespace

CentroidalProperties CentroidalPropertiesOf(const AreaMoments& moments) {
  CentroidalProperties p;
  p.area = moments.area;
  if (!(moments.area > 0.0)) return p;
  const Vec2<double> centroid{moments.sy / moments.area, moments.sz / moments.area};
  const AreaMoments own = Shifted(moments, {-centroid.x, -centroid.y});
  p.iyy = own.szz;
  p.izz = own.syy;
  const double sum = p.iyy + p.izz;
  p.iyz = Cleaned(own.syz, sum);
  // The radius of gyration is the region's size, whatever the area is weighted by.
  const double size = std::sqrt(std::abs(sum) / moments.area);
  p.centroid = {Cleaned(centroid.x, size), Cleaned(centroid.y, size)};
  const double difference = (p.iyy - p.izz) / 2.0;
  const double radius = std::hypot(difference, p.iyz);
  p.major = sum / 2.0 + radius;
  p.minor = sum / 2.0 - radius;
  p.angle = 0.0;
  if (2.0 * radius < kAlike * sum) return p;
  // I(angle) = sum/2 + difference cos 2 angle - iyz sin 2 angle.
  p.angle = std::atan2(p.iyz == 0.0 ? 0.0 : -p.iyz, difference) / 2.0;
  return p;
}

}  // namespace Orlix::Numeric
