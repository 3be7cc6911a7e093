#pragma once

#include "model/oxdata/section/CSection.h"
#include "model/oxnumeric/centroidal_properties.h"

namespace Orlix::Data {

/// Properties of a section from its geometry alone: all components, whatever tasks include.
struct SectionProperties {
  /// Of all components; where they overlap area counts once.
  Numeric::CentroidalProperties gross;
  /// Without the concrete that bars displace: those whose centres lie in concrete, as points.
  Numeric::CentroidalProperties net;
  double rebarArea{};        ///< of all bars [m²]
  double rebarPercentage{};  ///< as `CSection::RebarPercentage`
};

/// Components whose outlines are not valid, or lie beyond `kFurthestCoordinate`, do not count.
/// @throws std::runtime_error when the overlay of the components fails.
SectionProperties SectionPropertiesOf(const CSection& section);

}  // namespace Orlix::Data
