#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of concrete by BS 8110:1997 as functions of the characteristic cube strength
/// f_cu [Pa].
namespace Orlix::Data::Design::Bs8110 {

/// Ratio of the stress in a member to f_cu, BS 8110-1, Figure 2.1.
constexpr double kMemberStress = 0.67;
/// Largest strain of concrete in compression, BS 8110-1, Figure 2.1.
constexpr double kUltimateStrain = 0.0035;

double PeakStrain(double fcu, double gammaM);  ///< 2.4e-4 sqrt(f_cu/gamma_m), Figure 2.1
double Modulus(double fcu);                    ///< mean E_c,28 [Pa], BS 8110-2, 7.2

/// Parabola-rectangle of Figure 2.1 for the strength 0.67 f_cu/gamma_m. The parabola has its vertex
/// where the figure's horizontal branch begins: its slope at the origin is then 5.58 instead of
/// 5.5 sqrt(f_cu/gamma_m) kN/mm². There is no limit of its own under uniform compression.
CurveShape ParabolaRectangleShape(double fcu, double gammaM);

}  // namespace Orlix::Data::Design::Bs8110
