#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of normalweight concrete (lambda = 1) by ACI 318-14 and -19, as functions of the
/// specified compressive strength f'c [Pa], 17 MPa and more.
namespace Orlix::Data::Design::Aci318 {

/// Ratio of the stress to f'c within the block, 22.2.2.4.1.
constexpr double kBlockStress = 0.85;
/// Largest usable strain of concrete in compression, 22.2.2.1.
constexpr double kUltimateStrain = 0.003;

double BlockDepth(double fc);        ///< beta_1, Table 22.2.2.4.3
double Modulus(double fc);           ///< E_c [Pa], 19.2.2.1(b)
double ModulusOfRupture(double fc);  ///< f_r [Pa], 19.2.3.1

/// Rectangular stress block, 22.2.2.4, for the strength kBlockStress f'c: as a curve it begins at
/// (1 - beta_1) eps_cu. There is no limit of its own under uniform compression.
CurveShape RectangularBlockShape(double fc);

}  // namespace Orlix::Data::Design::Aci318
