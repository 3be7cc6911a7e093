#pragma once

#include <string>

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
std::string NoCreep(int task);
std::string NoPreloadingCase(int task);
std::string NoPreloadingState(int task, int reference, LoadState state);

/// What a message about a task begins with: "Error from task 2: ".
std::string TaskPrefix(int task);

}  // namespace Orlix::Data::Velmo9::CompileMessages
