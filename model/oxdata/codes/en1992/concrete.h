#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of concrete by EN 1992-1-1:2004, as functions of the characteristic cylinder strength
/// f_ck [Pa], 12 to 90 MPa. Strains are positive numbers. Where no clause is named the source is
/// Table 3.1; the symbols of the code are in the comments.
namespace Orlix::Data::Design::En1992 {

double MeanStrength(double fck);             ///< f_cm [Pa]
double MeanTensileStrength(double fck);      ///< f_ctm [Pa]
double LowTensileStrength(double fck);       ///< f_ctk,0.05 [Pa]
double HighTensileStrength(double fck);      ///< f_ctk,0.95 [Pa]
double MeanModulus(double fck);              ///< E_cm [Pa], quartzite aggregates
double NonLinearPeakStrain(double fck);      ///< eps_c1
double NonLinearUltimateStrain(double fck);  ///< eps_cu1
double ParabolaPeakStrain(double fck);       ///< eps_c2
double ParabolaUltimateStrain(double fck);   ///< eps_cu2
double ParabolaExponent(double fck);         ///< n
double BilinearPeakStrain(double fck);       ///< eps_c3
double BilinearUltimateStrain(double fck);   ///< eps_cu3
double BlockDepth(double fck);               ///< lambda, (3.19) and (3.20)
double BlockStrength(double fck);            ///< eta, (3.21) and (3.22)

/// Parabola-rectangle, 3.1.7(1), with the strain limit under uniform compression of 6.1(3).
CurveShape ParabolaRectangleShape(double fck);
/// Bilinear, 3.1.7(2), with the limits eps_c3 and eps_cu3.
CurveShape BilinearShape(double fck);
/// Rectangular stress block, 3.1.7(3): as a curve it begins at (1 - lambda) eps_cu3. The reduction
/// by 10 % for zones that narrow towards the most compressed fibre is not made.
CurveShape RectangularBlockShape(double fck);
/// Non-linear, 3.1.5; meant for the strength f_cm and the modulus E_cm.
CurveShape NonLinearShape(double fck);

}  // namespace Orlix::Data::Design::En1992
