#pragma once

#include <string>

#include "model/oxdata/file_access/CFile.h"

namespace Orlix::FileIO {

/// Kind of a file, by its beginning.
enum class FileType {
  unknown,  ///< no header that is known here
  dos,      ///< a file of the DOS era
  other,    ///< a file of the family that holds something other than sections
  velmo,    ///< sections, of the older format
};

/// What the first line of a file says.
struct OrlixHeader {
  FileType type{FileType::unknown};
  int majorVersion{};
  int minorVersion{};
  bool isUtf8{};  ///< otherwise Latin-1
};

/// Reads the first line of a file: `ORLIX VELMO 1.0 UTF-8`, fields between blanks. A file of the
/// DOS era begins with the bytes "ORLIX" and 0x1A. docs/older-format.md has the format.
/// @param file  before its first line; afterwards before its second
OrlixHeader ReadOrlixHeader(CFile& file);

}  // namespace Orlix::FileIO
