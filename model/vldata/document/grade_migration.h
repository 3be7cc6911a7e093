#pragma once

#include <vector>

#include "model/oxdata/materials/Materials.h"
#include "model/vldata/document/VelmoSection.h"

namespace Orlix::Data {

/// Whether components carry grades of their own.
bool CarryOwnGrades(const std::vector<Velmo9::VelmoSection>& sections);

/// Moves such grades into the tables and points the components to them. A grade that is in its
/// table already, name and values, is used; one whose name is taken by other values gets the name
/// with " (2)", " (3)" and so on behind it.
void MoveOwnGrades(std::vector<Velmo9::VelmoSection>& sections, Materials& materials);

}  // namespace Orlix::Data
