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
  /// Largest strain of a bar less its strain at yield; -infinity where no bar yields.
  double BeyondYield(const Numeric::Plane& plane) const;
  /// Largest strain of an outline less that where the straight part of its curve in tension ends;
  /// -infinity where no curve carries tension.
  double BeyondTension(const Numeric::Plane& plane) const;
  /// Whether the limit that a plane reaches first is one in compression.
  bool IsCompressionLimit(const Numeric::Plane& plane) const;

 private:
  const Numeric::CompiledSection* section_;
  std::vector<double> yield_;    // of each point area; +infinity: none
  std::vector<double> tension_;  // of each region; +infinity: none
};

/// Strain at which a curve yields in tension: from there on it rises less than a tenth as steeply
/// as at zero strain. +infinity for a curve without tension or without such a place within its
/// limits.
double YieldStrain(const Numeric::StressCurve& curve);

}  // namespace Orlix::VlSol
