#include "model/vldata/records/Stiffness.h"

#include <cmath>
#include <limits>

#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {
namespace {

// Below this a strain or a curvature [1/m] is rounding of zero, and a quotient by it no stiffness.
constexpr double kSmallestDivisor = 1e-15;

double Secant(double load, double deformation) {
  // Also a divisor that is not a number fails the comparison.
  if (!(std::abs(deformation) >= kSmallestDivisor)) return std::numeric_limits<double>::infinity();
  return load / deformation + 0.0;  // no negative zero
}

}  // namespace

Util::JsonValue Stiffness::toJson(Util::JsonAllocator& allocator) const {
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "EA", axial, allocator);
  AddNumber(json, "EIyy", bendingYY, allocator);
  AddNumber(json, "EIzz", bendingZZ, allocator);
  return json;
}

Stiffness operator/(const VelmoLoad& load, const Deformation& deformation) {
  const Vec3<double>& f = load.Vector();
  const Vec3<double>& d = deformation.Vector();
  return {Secant(f.x, d.x), Secant(f.y, d.y), Secant(f.z, d.z)};
}

}  // namespace Orlix::Data::Velmo9
