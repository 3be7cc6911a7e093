#include "model/oxdata/codes/aci318/concrete.h"

#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::Aci318 {
namespace {

constexpr double kMPa = 1e6;

}  // namespace

double BlockDepth(double fc) {
  if (fc <= 28.0 * kMPa) return 0.85;
  // The line ends at 0.657 where the table steps to its least value.
  return fc < 55.0 * kMPa ? 0.85 - 0.05 * (fc / kMPa - 28.0) / 7.0 : 0.65;
}

double Modulus(double fc) { return 4700.0 * std::sqrt(fc / kMPa) * kMPa; }

double ModulusOfRupture(double fc) { return 0.62 * std::sqrt(fc / kMPa) * kMPa; }

CurveShape RectangularBlockShape(double fc) {
  CurveShape shape;
  shape.kind = CurveKind::rectangularBlock;
  shape.epsLimit = kUltimateStrain;
  shape.blockStart = (1.0 - BlockDepth(fc)) * kUltimateStrain;
  return shape;
}

}  // namespace Orlix::Data::Design::Aci318
