#pragma once

/// Strength reduction of AS 3600:2018 on plain numbers: phi by Table 2.2.2. Forces are nominal
/// strengths [N], positive numbers in compression and in tension.
namespace Orlix::Data::Design::As3600 {

struct StrengthReductionParameters {
  double phiCompression{};     ///< phi_0, compression that governs
  double phiLeast{};           ///< of bending with ductile bars, at the least
  double phiMost{};            ///< of bending with ductile bars, at the most, and of tension
  double intercept{};          ///< of the line that k_uo follows between them
  double slope{};              ///< by which that line falls
  double phiLowDuctility{};    ///< of bending and tension with bars of low ductility
  double ductileStrain{};      ///< bars are ductile from this uniform strain on
  double balancedDepth{};      ///< k_u of N_ub
  double squashSteelStrain{};  ///< largest strain of steel in the squash load, 10.6.2.2

  friend bool operator==(const StrengthReductionParameters&,
                         const StrengthReductionParameters&) = default;
};

/// phi in bending with ductile bars, Table 2.2.2 (b).
/// @param kuo  depth of the neutral axis in pure bending over that of the outermost tension bar
double BendingFactor(const StrengthReductionParameters& parameters, double kuo);
/// The k_uo at which the line of `BendingFactor` meets a factor.
double DepthOfFactor(const StrengthReductionParameters& parameters, double phi);

/// phi in bending with compression, Table 2.2.2 (d).
/// @param bending  the factor in bending
/// @param nu       compression at failure
/// @param nub      compression at `balancedDepth`; not positive: compression governs throughout
double CompressionFactor(const StrengthReductionParameters& parameters, double bending, double nu,
                         double nub);
/// phi in bending with tension, Table 2.2.2 (c).
/// @param pure  the factor in tension without bending
/// @param nu    tension at failure
/// @param nuot  tension at failure without bending, positive
double TensionFactor(double bending, double pure, double nu, double nuot);

}  // namespace Orlix::Data::Design::As3600
