#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data::Velmo9::CompileMessages {

// Texts of the compile step. Task, component and bar are indices from zero; texts count from one.

std::string NothingIncluded(int task);
std::string NoMaterialType(int component);
std::string NoMaterialGrade(int component);
std::string NoShape(int component, const std::string& problem);
std::string TooFarAway(int component);
std::string NoCurve(int component, const OrlixString<wchar_t>& grade, LoadState state);
std::string NoBarGrade(int component, int bar);
std::string NoBarArea(int component, int bar);
std::string NoBarPlace(int component, int bar);
std::string NoBarPreload(int component, int bar);
/// @param description  that made the bars; -1: given as points
std::string BarsOutside(int component, int description, const std::vector<int>& bars);
std::string BarsReachOut(int component, int description, const std::vector<int>& bars);
std::string BarsOverlap(int component, int bar, int otherComponent, int otherBar);
std::string MoreOverlaps(std::size_t pairs);
/// @param area, concrete  [m²]
std::string TooMuchBarArea(int component, double area, double concrete);
std::string BadDescription(int component, int description, const std::string& problem);
std::string NoCreep(int task);
std::string NoPreloadingCase(int task);
std::string NoPreloadingState(int task, int reference, LoadState state);

/// What a message about a task begins with: "Error from task 2: ".
std::string TaskPrefix(int task);

}  // namespace Orlix::Data::Velmo9::CompileMessages
