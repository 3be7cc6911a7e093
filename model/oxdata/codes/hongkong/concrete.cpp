#include "model/oxdata/codes/hongkong/concrete.h"

#include <algorithm>
#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::HongKong {
namespace {

constexpr double kMPa = 1e6;

}  // namespace

double Modulus(double fcu) { return (3460.0 * std::sqrt(fcu / kMPa) + 3210.0) * kMPa; }

double UltimateStrain(double fcu) {
  return 0.0035 - 0.00006 * std::sqrt(std::max(fcu / kMPa - 60.0, 0.0));
}

double InitialModulus(double fcu, double gammaM) { return Modulus(fcu / gammaM); }

double PeakStrain(double fcu, double gammaM) {
  return 2.0 * kMemberStress * (fcu / gammaM) / InitialModulus(fcu, gammaM);
}

CurveShape ParabolaRectangleShape(double fcu, double gammaM) {
  CurveShape shape;
  shape.kind = CurveKind::parabolaRectangle;
  shape.epsPeak = PeakStrain(fcu, gammaM);
  shape.epsLimit = UltimateStrain(fcu);
  return shape;
}

}  // namespace Orlix::Data::Design::HongKong
