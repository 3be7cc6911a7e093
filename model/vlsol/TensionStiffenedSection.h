#pragma once

#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix::VlSol {

/// A cracked section whose concrete carries tension in a straight line from the neutral axis, of
/// such a slope that it reaches a given stress at the level of the tension steel (`SteelLevel`).
/// Source: BS 8110-2, 3.6.
class TensionStiffenedSection {
 public:
  /// @param cracked          compiled with the full effective modulus in tension
  /// @param steelLevelStress tension at the steel's level [Pa]
  TensionStiffenedSection(const Data::Velmo9::CompiledTask& cracked, double steelLevelStress);

  /// Finds slope and plane together for a load; returns the plane about the section's centre.
  /// @param start  plane of the uncracked section, cracked at its steel's level
  Numeric::Plane SolveEquilibrium(const Numeric::Resultant& load, const Numeric::Plane& start);
  /// Takes the slope that a plane gives.
  void AdaptTo(const Numeric::Plane& plane);

  const Numeric::CompiledSection& Section() const { return section_; }
  /// Slope of the tension [Pa]; no concrete has more than its own effective modulus.
  double TensionModulus() const { return tensionModulus_; }

 private:
  /// Strain at the level of the tension steel; 0 without bars in tension.
  double SteelLevelStrain(const Numeric::Plane& plane) const;
  void SetTensionModulus(double modulus);

  const Data::Velmo9::CompiledTask& cracked_;
  Numeric::CompiledSection section_;
  std::vector<double> moduli_;  // full tension slopes of the curves that change
  double steelLevelStress_;
  double largestModulus_{};
  double tensionModulus_{};
};

}  // namespace Orlix::VlSol
