#pragma once

#include <string>
#include <vector>

#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data::Velmo9 {

/// What keeps the outlines of a component from being integrated, as a message line; empty: nothing.
/// @param component  index, for the message
std::string OutlineProblem(int component, const CSecGeom& geometry);

/// What is wrong with a task's own phi factors, one text each; empty: nothing.
std::vector<std::string> PhiProblems(const CustomPhi& phi);

/// What keeps a task from being compiled for a load state, one message line each; empty: nothing.
/// @throws std::out_of_range for no such task.
std::vector<std::string> CompileProblems(const CVelmoData& document, const VelmoSection& section,
                                         int iTask, LoadState state);

}  // namespace Orlix::Data::Velmo9
