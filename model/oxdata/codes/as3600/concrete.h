#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of concrete of normal weight by AS 3600:2018, as functions of the characteristic
/// compressive strength f'c [Pa], 20 to 100 MPa.
namespace Orlix::Data::Design::As3600 {

/// Strain of the extreme compressive fibre at ultimate strength, 8.1.3.
constexpr double kUltimateStrain = 0.003;

double BlockStress(double fc);       ///< alpha_2: stress of the block over f'c, 8.1.3
double BlockDepth(double fc);        ///< gamma: depth of the block over the neutral axis's, 8.1.3
double SquashStress(double fc);      ///< alpha_1: stress at the squash load over f'c, 10.6.2.2
double FlexuralStrength(double fc);  ///< f'_ct.f [Pa], 3.1.1.3

/// Rectangular stress block, 8.1.3, for the strength alpha_2 f'c: as a curve it begins at
/// (1 - gamma) times the ultimate strain. There is no limit of its own under uniform compression.
CurveShape RectangularBlockShape(double fc);

}  // namespace Orlix::Data::Design::As3600
