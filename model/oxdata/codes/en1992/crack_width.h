#pragma once

#include <limits>

/// Crack widths of EN 1992-1-1:2004, 7.3.4, on plain numbers: SI, stresses and strains of tension
/// positive.
namespace Orlix::Data::Design::En1992 {

/// What the rule is made of; a national annex replaces k_3 and k_4, 7.3.4(3).
struct CrackWidthParameters {
  static constexpr const char* kLength = "crack spacing";      ///< s_r,max
  static constexpr const char* kStrain = "strain difference";  ///< eps_sm - eps_cm
  double ktShort{0.6};         ///< k_t under short-term loads, (7.9)
  double ktLong{0.4};          ///< k_t under long-term loads, (7.9)
  double leastShare{0.6};      ///< mean strain difference at least this part of sigma_s/E_s, (7.9)
  double k1HighBond{0.8};      ///< 7.3.4(3)
  double k1Plain{1.6};         ///< 7.3.4(3): effectively plain, prestressing tendons for instance
  double k3{3.4};              ///< of the cover, (7.11)
  double k4{0.425};            ///< of the bars, (7.11)
  double closeSpacing{5.0};    ///< bars are close up to this times c + phi/2, 7.3.4(3)
  double wideCrackShare{1.3};  ///< crack spacing over h - x where they are not, (7.14)
  double xiPretensioned{0.6};  ///< bond of pretensioned strands to that of bars, table 6.2
  /// Cover [m] beyond which k_3 falls with its power -2/3, as some annexes have it; +infinity:
  /// k_3 is a number.
  double k3CoverLimit{std::numeric_limits<double>::infinity()};
  // w_max [m] by exposure class, Table 7.1N for reinforced members under the quasi-permanent
  // combination; +infinity: no limit.
  double limitX0ToXc1{0.4e-3};
  double limitXc2ToXc4{0.3e-3};
  double limitXdAndXs{0.3e-3};

  friend bool operator==(const CrackWidthParameters&, const CrackWidthParameters&) = default;
};

/// Bars with the concrete that they hold together.
struct CrackTie {
  double steelRatio{};    ///< rho_p,eff, (7.10)
  double steelStress{};   ///< sigma_s [Pa] in the cracked section
  double steelModulus{};  ///< E_s [Pa]
  double f_ct{};          ///< f_ct,eff [Pa]
  double modularRatio{};  ///< alpha_e = E_s/E_cm
  double cover{};         ///< c [m]
  double diameter{};      ///< phi, or phi_eq by (7.12) [m]
  double k1{};            ///< bond
  double k2{0.5};         ///< distribution of strain, 0.5 bending to 1 pure tension, (7.13)
};

/// h_c,ef = min(2.5(h - d), (h - x)/3, h/2) [m]. Source: 7.3.2(3).
/// @param steelDepth    h - d [m]; +infinity: no steel
/// @param tensionDepth  h - x [m]; +infinity: the strain is uniform
double EffectiveTensionDepth(double steelDepth, double tensionDepth, double depth);

/// k_t between its short-term and its long-term value, in proportion.
/// @param longShare  part of the load that acts long, 0 to 1
double TensionStiffeningFactor(const CrackWidthParameters& parameters, double longShare);

/// eps_sm - eps_cm, (7.9).
/// @param kt  0: the stress already is that between cracks
double MeanStrainDifference(const CrackWidthParameters& parameters, const CrackTie& tie, double kt);

/// s_r,max [m] of bars at close spacing, (7.11).
double CloseCrackSpacing(const CrackWidthParameters& parameters, const CrackTie& tie);

/// s_r,max [m] of bars whose spacing is given as a part of 5(c + phi/2), or rather of the parameter
/// that stands for the 5: (7.11) up to that, the larger of (7.11) and (7.14) beyond it. In the last
/// twentieth before it the one passes into the other, on the safe side, so that no width jumps.
/// @param tensionDepth  h - x [m], at most h
double CrackSpacing(const CrackWidthParameters& parameters, const CrackTie& tie,
                    double spacingShare, double tensionDepth);

}  // namespace Orlix::Data::Design::En1992
