#pragma once

#include <string>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Reads documents of the older file format.
///
/// No header of that format is known yet: a file that cannot be read, an empty one and one with any
/// content are refused alike.
class LegacyFileReader {
 public:
  /// Reads a file into a document.
  /// @param path    of the file
  /// @param target  is only changed when the file was read
  /// @param error   on failure a message for the user, else unchanged
  /// @return whether the file was read
  bool Read(const std::wstring& path, Data::CVelmoData& target, std::wstring& error);
};

}  // namespace Orlix
