#pragma once

/// Crack widths of BS 8110-2:1985, 3.8.3, on plain numbers: SI, stresses and strains of tension
/// positive. The codes that took the rule over may change its numbers.
namespace Orlix::Data::Design::Bs8110 {

struct CrackWidthParameters {
  static constexpr const char* kLength = "width over strain";  ///< of equation 12
  static constexpr const char* kStrain = "mean strain";        ///< eps_m
  double distanceFactor{3.0};                                  ///< of a_cr, equation 12
  double coverFactor{2.0};                                     ///< of a_cr - c_min, equation 12
  double stiffeningStress{1.0e6};  ///< of the concrete in equation 13 [Pa]
  double stiffeningDivisor{3.0};   ///< equation 13
  double steelStrainShare{0.8};    ///< the rule holds up to this part of f_y/E_s, 3.8.3
  /// Modulus of the concrete that strains are found with for this check over its short-term one,
  /// 3.8.3; 0: the one that creep leaves.
  double concreteModulusShare{0.5};

  friend bool operator==(const CrackWidthParameters&, const CrackWidthParameters&) = default;
};

/// What stiffens the section between cracks.
struct CrackStiffening {
  double width{};          ///< b_t [m], of the section at the level of the tension steel
  double tensionDepth{};   ///< h - x [m]
  double steelArea{};      ///< A_s [m²], in tension
  double steelModulus{};   ///< E_s [Pa]
  double strainAtSteel{};  ///< at the level of the tension steel
};

/// eps_m at a point by equation 13, whose depths are written as strains: (a' - x)/(d - x) is the
/// strain at the point over that at the steel. Negative: the section counts as uncracked there.
/// @param strain  eps_1 at the point
double MeanStrain(const CrackWidthParameters& parameters, const CrackStiffening& stiffening,
                  double strain);

/// Crack width over mean strain [m], equation 12.
/// @param distance      a_cr [m], from the point to the surface of the nearest bar
/// @param cover         c_min [m], of that bar to the face
/// @param tensionDepth  h - x [m]; +infinity: uniform strain, 3 a_cr
double GatheringLength(const CrackWidthParameters& parameters, double distance, double cover,
                       double tensionDepth);

/// The same without any bar, the limit for a distance without end: 1.5(h - x) [m].
double GatheringLengthWithoutBars(const CrackWidthParameters& parameters, double tensionDepth);

}  // namespace Orlix::Data::Design::Bs8110
