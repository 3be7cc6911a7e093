#pragma once

#include <vector>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/materials/Materials.h"
#include "model/vldata/document/GradeChange.h"
#include "model/vldata/document/VelmoSection.h"

namespace Orlix::Data {

/// Moves tables to a new code. A grade that is the old code's standard one in all its values
/// becomes the new code's of the same name; where that has none the grade goes when nothing is made
/// of it, and stays when something is. Edited grades and the user's own stay. Another code, not
/// just another annex, also brings its standard grades along. Components and bars keep their
/// grades.
/// @return what became of each grade, in the order of the tables; nothing of one whose values are
///         the same under both codes
std::vector<GradeChange> MoveToCode(const Design::CConcCodeData& from,
                                    const Design::CConcCodeData& to, Materials& materials,
                                    std::vector<Velmo9::VelmoSection>& sections);

}  // namespace Orlix::Data
