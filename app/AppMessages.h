#pragma once

#include <string>
#include <vector>

namespace Orlix::AppMessages {

// Texts of the facade. Indices come in from zero and are shown from one.

std::string InvalidSection(int iSec);
std::string InvalidTask(int iSec, int iTask);
std::string NoCaseResults(int iCase);

/// What a message about a task begins with.
std::string TaskPrefix(int iTask);
std::string NoActiveComponents(int iTask);

/// "Component 3 has …" or "Components 2 and 5 have …".
/// @param numbers  of the components, from one; at least one
/// @param one, several  what follows the number or numbers
std::string AboutComponents(const std::vector<int>& numbers, const std::string& one,
                            const std::string& several);
/// "1, 2 and 3"; empty for no numbers.
std::string List(const std::vector<int>& numbers);

}  // namespace Orlix::AppMessages
