#pragma once

#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::VlSol {

/// Strains at which something happens in a section that a diagram gives a name to. Of planes about
/// the section's centre; locked-in strain and prestrain count.
class DiagramStrains {
 public:
  explicit DiagramStrains(const Numeric::CompiledSection& section);

  /// Largest strain of the outlines; -infinity without any.
  double Outline(const Numeric::Plane& plane) const;
  /// Largest strain of a bar, or of an outline of steel, less its strain at yield; -infinity where
  /// nothing yields.
  double BeyondYield(const Numeric::Plane& plane) const;
  /// Largest strain of an outline of concrete less that where the straight part of its curve in
  /// tension ends; -infinity where none carries tension, or all of it without an end.
  double BeyondTension(const Numeric::Plane& plane) const;
  /// Whether the limit that a plane reaches first is one in compression.
  bool IsCompressionLimit(const Numeric::Plane& plane) const;

 private:
  double BeyondInRegions(const std::vector<double>& strains, const Numeric::Plane& plane) const;

  const Numeric::CompiledSection* section_;
  std::vector<double> yield_;        // of each point area; +infinity: none
  std::vector<double> regionYield_;  // of each region; +infinity: none
  std::vector<double> tension_;      // likewise
};

/// Strain at which a curve yields in tension: from there on it rises less than a tenth as steeply
/// as at zero strain. +infinity for a curve without tension or without such a place within its
/// limits.
double YieldStrain(const Numeric::StressCurve& curve);

}  // namespace Orlix::VlSol
