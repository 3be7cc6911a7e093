#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data {

/// A grade of a document: its type and its index into the table of that type.
using GradeIndex = std::pair<MatType, int>;

/// Grades that components, bars, bar descriptions and links of sections are made of; -1 stands for
/// none.
std::set<GradeIndex> UsedGrades(const std::vector<Velmo9::VelmoSection>& sections);

/// Grades of a section whose safety factors are none of the document's code: gamma is that of no
/// standard grade of the type, or alpha lies outside of theirs. So are grades that stayed when the
/// code of the document changed.
/// @return a line for each, such as "concrete \"C30\": alpha 1, gamma 1; ..."; UTF-8
std::vector<std::string> ForeignFactors(const CVelmoData& document,
                                        const Velmo9::VelmoSection& section);

}  // namespace Orlix::Data
