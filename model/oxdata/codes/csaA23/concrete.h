#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of normal-density concrete (2300 kg/m³, lambda = 1) by CSA A23.3-14 as functions of
/// the specified compressive strength f'c [Pa], 20 to 80 MPa.
namespace Orlix::Data::Design::CsaA23 {

/// Largest strain of concrete in compression, 10.1.3.
constexpr double kUltimateStrain = 0.0035;

double BlockStress(double fc);       ///< alpha_1, 10.1.7
double BlockDepth(double fc);        ///< beta_1, 10.1.7
double Modulus(double fc);           ///< E_c [Pa], 8.6.2.3 to 40 MPa, 8.6.2.2 above
double ModulusOfRupture(double fc);  ///< f_r [Pa], 8.6.4

/// Rectangular stress block, 10.1.7, for the strength alpha_1 phi_c f'c: as a curve it begins at
/// (1 - beta_1) eps_cu. There is no limit of its own under uniform compression.
CurveShape RectangularBlockShape(double fc);

}  // namespace Orlix::Data::Design::CsaA23
