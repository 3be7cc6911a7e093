#pragma once

#include <vector>

#include "model/oxdata/materials/Materials.h"
#include "model/vldata/document/VelmoSection.h"

namespace Orlix::Data {

/// Puts a grade into the table of its type. One that is there already, name and values, is used;
/// one whose name is taken by other values gets the name with " (2)", " (3)" and so on behind it,
/// one without a name "user-defined".
/// @return its index. @throws std::invalid_argument for a material of no type.
int AddOwnGrade(const Design::CMat& own, Materials& materials);

/// Whether components carry grades of their own.
bool CarryOwnGrades(const std::vector<Velmo9::VelmoSection>& sections);

/// Moves such grades into the tables and points the components to them.
void MoveOwnGrades(std::vector<Velmo9::VelmoSection>& sections, Materials& materials);

}  // namespace Orlix::Data
