#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "legacy/Notes.h"
#include "model/oxdata/file_access/CDataFile.h"

namespace Orlix::Legacy {

/// The lines between the first and the last line of a module, joined by line feeds.
struct ModuleText {
  std::size_t firstLine{};  ///< number of the line that `text` begins with
  std::string text;
};

/// The modules of a file by name.
using ModuleTexts = std::map<std::string, ModuleText, std::less<>>;

/// Names of the modules that this program reads, in the order in which it understands them: what
/// refers to something comes after it.
const std::vector<std::string_view>& KnownModules();

/// Takes a file apart into its modules. A module that is listed in the contents and missing, stands
/// twice or has no end fails; one that is not known is left out with a warning.
/// @return false when the file has no contents line or cannot be read to its end.
bool ReadModules(FileIO::CDataFile& file, ModuleTexts& modules, Notes& notes);

}  // namespace Orlix::Legacy
