#include "model/oxdata/codes/as3600/concrete.h"

#include <algorithm>
#include <cmath>

// The code's expressions are in N/mm²; they are kept in that form.
namespace Orlix::Data::Design::As3600 {
namespace {

constexpr double kMPa = 1e6;

}  // namespace

double BlockStress(double fc) { return std::max(0.67, 0.85 - 0.0015 * fc / kMPa); }

double BlockDepth(double fc) { return std::max(0.67, 0.97 - 0.0025 * fc / kMPa); }

double SquashStress(double fc) { return std::clamp(1.0 - 0.003 * fc / kMPa, 0.72, 0.85); }

double FlexuralStrength(double fc) { return 0.6 * std::sqrt(fc / kMPa) * kMPa; }

CurveShape RectangularBlockShape(double fc) {
  CurveShape shape;
  shape.kind = CurveKind::rectangularBlock;
  shape.epsLimit = kUltimateStrain;
  shape.blockStart = (1.0 - BlockDepth(fc)) * kUltimateStrain;
  return shape;
}

}  // namespace Orlix::Data::Design::As3600
