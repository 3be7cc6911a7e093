#include "model/oxdata/codes/en1992/concrete.h"

#include <algorithm>
#include <cmath>

// The code's expressions are in N/mm² and per mille; they are kept in that form.
namespace Orlix::Data::Design::En1992 {
namespace {

constexpr double kMPa = 1e6;
constexpr double kGPa = 1e9;
constexpr double kPerMille = 1e-3;

/// Strength from which on the strains and the shape change with the strength: above C50/60.
bool IsHighStrength(double fck) { return fck > 50.0 * kMPa; }

double FourthPower(double x) { return x * x * x * x; }

/// (90 - f_ck) / 100 of the high-strength expressions.
double Reserve(double fck) { return (90.0 - fck / kMPa) / 100.0; }

}  // namespace

double MeanStrength(double fck) { return fck + 8.0 * kMPa; }

double MeanTensileStrength(double fck) {
  if (!IsHighStrength(fck)) return 0.30 * std::cbrt(fck / kMPa * fck / kMPa) * kMPa;
  return 2.12 * std::log1p(MeanStrength(fck) / kMPa / 10.0) * kMPa;
}

double LowTensileStrength(double fck) { return 0.7 * MeanTensileStrength(fck); }

double HighTensileStrength(double fck) { return 1.3 * MeanTensileStrength(fck); }

double MeanModulus(double fck) {
  return 22.0 * std::pow(MeanStrength(fck) / kMPa / 10.0, 0.3) * kGPa;
}

double NonLinearPeakStrain(double fck) {
  return std::min(0.7 * std::pow(MeanStrength(fck) / kMPa, 0.31), 2.8) * kPerMille;
}

double NonLinearUltimateStrain(double fck) {
  if (!IsHighStrength(fck)) return 3.5 * kPerMille;
  return (2.8 + 27.0 * FourthPower((98.0 - MeanStrength(fck) / kMPa) / 100.0)) * kPerMille;
}

double ParabolaPeakStrain(double fck) {
  if (!IsHighStrength(fck)) return 2.0 * kPerMille;
  return (2.0 + 0.085 * std::pow(fck / kMPa - 50.0, 0.53)) * kPerMille;
}

double ParabolaUltimateStrain(double fck) {
  if (!IsHighStrength(fck)) return 3.5 * kPerMille;
  return (2.6 + 35.0 * FourthPower(Reserve(fck))) * kPerMille;
}

double ParabolaExponent(double fck) {
  return IsHighStrength(fck) ? 1.4 + 23.4 * FourthPower(Reserve(fck)) : 2.0;
}

double BilinearPeakStrain(double fck) {
  if (!IsHighStrength(fck)) return 1.75 * kPerMille;
  return (1.75 + 0.55 * (fck / kMPa - 50.0) / 40.0) * kPerMille;
}

double BilinearUltimateStrain(double fck) { return ParabolaUltimateStrain(fck); }

double BlockDepth(double fck) {
  return IsHighStrength(fck) ? 0.8 - (fck / kMPa - 50.0) / 400.0 : 0.8;
}

double BlockStrength(double fck) {
  return IsHighStrength(fck) ? 1.0 - (fck / kMPa - 50.0) / 200.0 : 1.0;
}

CurveShape ParabolaRectangleShape(double fck) {
  CurveShape shape;
  shape.kind = CurveKind::parabolaRectangle;
  shape.epsPeak = ParabolaPeakStrain(fck);
  shape.exponent = ParabolaExponent(fck);
  // At C90/105 the two expressions give 2.6005 and 2.6: the parabola must not end before its peak.
  shape.epsLimit = std::max(ParabolaUltimateStrain(fck), shape.epsPeak);
  shape.uniformLimit = shape.epsPeak;
  return shape;
}

CurveShape BilinearShape(double fck) {
  CurveShape shape;
  shape.kind = CurveKind::bilinear;
  shape.epsPeak = BilinearPeakStrain(fck);
  shape.epsLimit = BilinearUltimateStrain(fck);
  shape.uniformLimit = shape.epsPeak;
  return shape;
}

CurveShape RectangularBlockShape(double fck) {
  CurveShape shape;
  shape.kind = CurveKind::rectangularBlock;
  shape.epsLimit = BilinearUltimateStrain(fck);
  shape.uniformLimit = BilinearPeakStrain(fck);
  shape.blockStart = (1.0 - BlockDepth(fck)) * shape.epsLimit;
  shape.blockFactor = BlockStrength(fck);
  return shape;
}

CurveShape NonLinearShape(double fck) {
  CurveShape shape;
  shape.kind = CurveKind::nonLinear;
  shape.epsPeak = NonLinearPeakStrain(fck);
  shape.epsLimit = NonLinearUltimateStrain(fck);
  return shape;
}

}  // namespace Orlix::Data::Design::En1992
