#pragma once

#include <string>

namespace Orlix::Cli {

/// Text of a document as it may go to a terminal: control characters become spaces, so that a line
/// end breaks no table and an escape moves no cursor.
std::string Printable(std::string text);

}  // namespace Orlix::Cli
