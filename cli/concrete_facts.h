#pragma once

#include "model/oxdata/section/CSecComp.h"
#include "model/oxdata/section/CSection.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::Cli {

/// Area and centroid of outlines, holes taken out, bars not.
struct GrossArea {
  double area{};          ///< [m²]
  Vec2<double> centroid;  ///< (y, z) [m]; meaningless without area
};

/// Of one component.
GrossArea GrossAreaOf(const Data::CSecComp& component);
/// Of all components of concrete; where they overlap area counts once.
/// @throws std::runtime_error when their overlay fails.
GrossArea GrossConcreteOf(const Data::CSection& section);

}  // namespace Orlix::Cli
