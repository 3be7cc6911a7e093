#pragma once

/// Strength reduction of ACI 318-14 and -19 on plain numbers: phi by the net tensile strain of the
/// extreme bar (Table 21.2.2), and the cap on the axial force (22.4.2).
namespace Orlix::Data::Design::Aci318 {

struct StrengthReductionParameters {
  double phiTied{};           ///< compression-controlled, ties
  double phiSpiral{};         ///< compression-controlled, spirals
  double phiTension{};        ///< tension-controlled
  double strainMargin{};      ///< tension-controlled from the yield strain of the bars plus this on
  double tensionStrain{};     ///< tension-controlled from this strain on, whatever the bars; 0: by
                              ///< the margin
  double prestressedYield{};  ///< yield strain that counts for prestressed bars
  double capTied{};           ///< largest axial force over P_o, ties
  double capSpiral{};         ///< largest axial force over P_o, spirals
  double concreteFactor{};    ///< of f'c in P_o

  friend bool operator==(const StrengthReductionParameters&,
                         const StrengthReductionParameters&) = default;
};

/// Strain from which on a section is tension-controlled.
/// @param yield  strain up to which it is compression-controlled
double TensionControlledStrain(const StrengthReductionParameters& parameters, double yield);

}  // namespace Orlix::Data::Design::Aci318
