#pragma once

#include <string>
#include <vector>

#include "legacy/LegacyNote.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Reads documents of the older file format, which docs/older-format.md describes. Total for any
/// bytes: what is wrong is found, every module is looked at, and memory stays within a small
/// multiple of the file's size.
class LegacyFileReader {
 public:
  /// Reads a file into a document. Grades that the file defines stand on the components that are
  /// made of them (`CVelmoData::IsMigrationOfGradesRequired`); bars of groups wait for their
  /// descriptions to be carried out.
  /// @param path    of the file
  /// @param target  is only changed when the file was read; gets an identity and no path
  /// @param error   on failure a message for the user, else unchanged: the file cannot be opened
  ///                or is of the DOS era, or the list of its modules that could not be read
  /// @return whether the file was read
  bool Read(const std::wstring& path, Data::CVelmoData& target, std::wstring& error);

  /// What made modules of the last file unreadable, at most a thousand and a last one that says so.
  const std::vector<LegacyNote>& Problems() const { return problems_; }
  /// What of the last file was left out or replaced, as many.
  const std::vector<LegacyNote>& Warnings() const { return warnings_; }

 private:
  std::vector<LegacyNote> problems_;
  std::vector<LegacyNote> warnings_;
};

}  // namespace Orlix
