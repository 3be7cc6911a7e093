#include "model/oxdata/codes/is456/concrete.h"

#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::Is456 {
namespace {

constexpr double kMPa = 1e6;

}  // namespace

double Modulus(double fck) { return 5000.0 * std::sqrt(fck / kMPa) * kMPa; }

double FlexuralStrength(double fck) { return 0.7 * std::sqrt(fck / kMPa) * kMPa; }

CurveShape ParabolaRectangleShape() {
  CurveShape shape;
  shape.kind = CurveKind::parabolaRectangle;
  shape.epsPeak = kPeakStrain;
  shape.epsLimit = kUltimateStrain;
  shape.uniformLimit = kPeakStrain;
  return shape;
}

}  // namespace Orlix::Data::Design::Is456
