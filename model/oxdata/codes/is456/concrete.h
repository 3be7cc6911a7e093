#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of concrete by IS 456:2000 as functions of the characteristic cube strength
/// f_ck [Pa].
namespace Orlix::Data::Design::Is456 {

/// Ratio of the stress in a member to f_ck, 38.1 c).
constexpr double kMemberStress = 0.67;
/// Strain at the parabola's vertex, Figure 21, and largest one in axial compression, 39.1 a).
constexpr double kPeakStrain = 0.002;
/// Largest strain at the most compressed fibre in bending, 38.1 b).
constexpr double kUltimateStrain = 0.0035;

double Modulus(double fck);           ///< E_c [Pa], short-term, 6.2.3.1
double FlexuralStrength(double fck);  ///< f_cr [Pa], 6.2.2

/// Parabola-rectangle of Figure 21. The limits of 39.1, 0.002 in axial compression and
/// 0.0035 - 0.75 of the least compression across the section, are those of a plane that may not
/// pass 0.002 at 3/7 of the depth from the most compressed fibre.
CurveShape ParabolaRectangleShape();

}  // namespace Orlix::Data::Design::Is456
