#pragma once

#include <string_view>
#include <vector>

namespace Orlix::Cli {

/// Reads a list of numbers and ranges that count from one, such as "1-20,25", into indices that
/// count from zero, in the order of the list and each once.
/// @param count  how many there are
/// @param what   the name of one in messages, e.g. "case"
/// @throws CommandError when the text is no such list or a number is not within 1 to `count`.
std::vector<int> IndicesFrom(std::string_view text, int count, std::string_view what);

/// The index of the one number that the text is.
/// @throws CommandError when it is none or not within 1 to `count`.
int OneIndexFrom(std::string_view text, int count, std::string_view what);

/// As OneIndexFrom; where there is only one, it need not be named.
/// @throws CommandError, too, when the text is empty and there are none or several.
int IndexOfOne(std::string_view text, int count, std::string_view what);

/// As IndicesFrom; all of them when the text is empty.
std::vector<int> ChosenIndices(std::string_view text, int count, std::string_view what);

}  // namespace Orlix::Cli
