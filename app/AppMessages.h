#pragma once

#include <string>
#include <vector>

#include "model/oxutil/Enumerations.h"

namespace Orlix::VlSol {
enum class DiagramProblem;
}

namespace Orlix::AppMessages {

// Texts of the facade. Indices come in from zero and are shown from one.

std::string InvalidSection(int iSec);
std::string InvalidTask(int iSec, int iTask);
std::string NoCaseResults(int iCase);

/// A member of a request for a diagram. @param expected  what it has to be
std::string WrongDiagramMember(const std::string& member, const std::string& expected);
/// Why a task has no diagram at a limit state.
std::string NoDiagram(int iTask, VlSol::DiagramProblem problem, LoadState state);

/// What a message about a task begins with.
std::string TaskPrefix(int iTask);
std::string NoActiveComponents(int iTask);

/// A bar description is not valid.
inline constexpr const char* kInvalidRebar =
    "Rebar definition is invalid. Please revise rebar grade and definition.";

// What is wrong with the component preload of a task. Numbers of the reference task and case come
// from the task and count from one.
std::string NoPreloadTask(int iTask, int number);
std::string LaterPreloadTask(int iTask, int number);
std::string NoSharedComponents(int iTask, int number);
std::string NoPreloadCase(int iTask, int number);
std::string MissingPreloadCase(int iTask, int number);
std::string UnsolvedPreloadCase(int iTask, int task, int number);
std::string DifferentCreep(int iTask, int number);
std::string OverlappingComponents(int iTask, int number);

/// "Component 3 has …" or "Components 2 and 5 have …".
/// @param numbers  of the components, from one; at least one
/// @param one, several  what follows the number or numbers
std::string AboutComponents(const std::vector<int>& numbers, const std::string& one,
                            const std::string& several);
/// "1, 2 and 3"; empty for no numbers.
std::string List(const std::vector<int>& numbers);

}  // namespace Orlix::AppMessages
