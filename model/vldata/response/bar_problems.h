#pragma once

#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data::Velmo9 {

/// What is wrong with the bar descriptions of a section, one message line each: those that cannot
/// be read, with the column, or placed, and those with less than their cover.
std::vector<std::string> DescriptionProblems(const CVelmoData& document, const CSection& section);

/// What is wrong with the places of the bars of the components that a task includes, one message
/// line each: the problems of their descriptions, bars outside all of these components or reaching
/// out of them, bars that overlap, components with more bars than concrete. Less than 0.1 mm
/// counts as nothing, as places are often rounded so; a bar without a diameter is a point.
/// @throws std::out_of_range for no such task.
std::vector<std::string> BarProblems(const CVelmoData& document, const VelmoSection& section,
                                     int iTask);

}  // namespace Orlix::Data::Velmo9
