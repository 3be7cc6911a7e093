#pragma once

#include <string>

namespace Orlix::Cli {

/// A check of a value on the command line: an empty one, as an unset variable of a shell gives,
/// must not count as an option left out.
/// @return what is wrong; empty when nothing is
std::string NotEmpty(const std::string& value);

}  // namespace Orlix::Cli
