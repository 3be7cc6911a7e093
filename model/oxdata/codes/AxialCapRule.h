#pragma once

namespace Orlix::Data::Design {

/// Cap on the axial resistance of a section by factored materials, as a share of that of its squash
/// load, which allows for small eccentricities: a number with spirals, with ties one that grows
/// with the least dimension of the section.
struct AxialCapRule {
  double spiral{};
  double tiedBase{};      ///< with ties, of no dimension
  double tiedPerMetre{};  ///< by which it grows [1/m]
  double tiedMost{};

  friend bool operator==(const AxialCapRule&, const AxialCapRule&) = default;
};

/// The largest axial resistance over that of the squash load.
/// @param leastDimension  of the section [m]
double AxialCapShare(const AxialCapRule& rule, bool isSpiral, double leastDimension);

}  // namespace Orlix::Data::Design
