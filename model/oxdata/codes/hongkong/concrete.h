#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

/// Properties of concrete by Hong Kong's Code of Practice for Structural Use of Concrete 2013 as
/// functions of the characteristic cube strength f_cu [Pa].
namespace Orlix::Data::Design::HongKong {

/// Ratio of the stress in a member to f_cu, Figure 6.1.
constexpr double kMemberStress = 0.67;

double Modulus(double fcu);         ///< E_c [Pa], 3.1.5
double UltimateStrain(double fcu);  ///< eps_cu, Figure 6.1

/// Slope of the design curve at the origin [Pa]: the modulus of a strength f_cu/gamma_m,
/// Figure 6.1.
double InitialModulus(double fcu, double gammaM);
/// eps_0 = 1.34 (f_cu/gamma_m) / E_d, Figure 6.1: the vertex of the parabola with that slope.
double PeakStrain(double fcu, double gammaM);

/// Parabola-rectangle of Figure 6.1 for the strength 0.67 f_cu/gamma_m; no limit of its own under
/// uniform compression.
CurveShape ParabolaRectangleShape(double fcu, double gammaM);

}  // namespace Orlix::Data::Design::HongKong
