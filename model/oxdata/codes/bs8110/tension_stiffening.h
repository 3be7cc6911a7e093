#pragma once

namespace Orlix::Data::Design::Bs8110 {

/// Tension of the concrete at the level of the tension steel in a cracked section [Pa]: 1.0 N/mm²
/// under short-term loads, 0.55 N/mm² under long-term loads, in proportion between.
/// @param longShare  part of the load that acts long, 0 to 1
/// Source: BS 8110-2, 3.6; the proportion between the two is ours.
inline double TensionAtSteelLevel(double longShare) {
  constexpr double kShortTerm = 1.0e6;
  constexpr double kLongTerm = 0.55e6;
  return kShortTerm + (kLongTerm - kShortTerm) * longShare;
}

}  // namespace Orlix::Data::Design::Bs8110
