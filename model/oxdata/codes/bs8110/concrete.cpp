#include "model/oxdata/codes/bs8110/concrete.h"

#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::Bs8110 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;

}  // namespace

double PeakStrain(double fcu, double gammaM) { return 2.4e-4 * std::sqrt(fcu / kMPa / gammaM); }

double Modulus(double fcu) { return (20.0 + 0.2 * fcu / kMPa) * kGPa; }

CurveShape ParabolaRectangleShape(double fcu, double gammaM) {
  CurveShape shape;
  shape.kind = CurveKind::parabolaRectangle;
  shape.epsPeak = PeakStrain(fcu, gammaM);
  shape.epsLimit = kUltimateStrain;
  return shape;
}

}  // namespace Orlix::Data::Design::Bs8110
