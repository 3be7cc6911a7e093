#include "model/oxdata/codes/csaA23/concrete.h"

#include <algorithm>
#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::CsaA23 {
namespace {

constexpr double kMPa = 1e6;

}  // namespace

double BlockStress(double fc) { return std::max(0.67, 0.85 - 0.0015 * fc / kMPa); }

double BlockDepth(double fc) { return std::max(0.67, 0.97 - 0.0025 * fc / kMPa); }

double Modulus(double fc) {
  const double root = std::sqrt(fc / kMPa);
  return (fc <= 40.0 * kMPa ? 4500.0 * root : 3300.0 * root + 6900.0) * kMPa;
}

double ModulusOfRupture(double fc) { return 0.6 * std::sqrt(fc / kMPa) * kMPa; }

CurveShape RectangularBlockShape(double fc) {
  CurveShape shape;
  shape.kind = CurveKind::rectangularBlock;
  shape.epsLimit = kUltimateStrain;
  shape.blockStart = (1.0 - BlockDepth(fc)) * kUltimateStrain;
  return shape;
}

}  // namespace Orlix::Data::Design::CsaA23
