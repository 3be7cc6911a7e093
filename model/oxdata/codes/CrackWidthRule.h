#pragma once

#include <string_view>
#include <variant>

#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/oxdata/codes/en1992/crack_width.h"

namespace Orlix::Data::Design {

/// How a code computes crack widths: from the bars with the concrete around them (EN 1992-1-1,
/// 7.3.4) or from the strain of the surface and its distance from the bars (BS 8110-2, 3.8.3), each
/// with the numbers that the code at hand has.
using CrackWidthRule = std::variant<En1992::CrackWidthParameters, Bs8110::CrackWidthParameters>;

/// What a rule calls the two factors of a width.
struct CrackFactorNames {
  std::string_view length;
  std::string_view strain;
};
inline CrackFactorNames NamesOfCrackFactors(const CrackWidthRule& rule) {
  return std::visit([](const auto& r) { return CrackFactorNames{r.kLength, r.kStrain}; }, rule);
}

/// Modulus of the concrete that strains are found with for crack widths over its short-term one; 0:
/// the one that creep leaves.
inline double ConcreteModulusShare(const CrackWidthRule& rule) {
  const auto* surface = std::get_if<Bs8110::CrackWidthParameters>(&rule);
  return surface != nullptr ? surface->concreteModulusShare : 0.0;
}

}  // namespace Orlix::Data::Design
