#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "legacy/ModuleText.h"
#include "legacy/Notes.h"
#include "legacy/RecordReader.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Legacy {

/// A grade that a module defines.
struct FileGrade {
  Data::Design::CMat material{MatType::none};
  std::size_t numPoints{};  ///< of its explicit curves
  bool isUsed{};            ///< some component is made of it
};

/// What the modules of one file are read into, and what later modules know of earlier ones.
struct Context {
  explicit Context(bool isNewerThanProgram) : isNewer(isNewerThanProgram) {}

  bool isNewer;  ///< what is not known is left out with a warning
  ModuleTexts modules;
  Notes notes;
  Data::CVelmoData document;
  /// Grades of concrete, steel and FRP, and those of reinforcement by the names they have in the
  /// file.
  std::map<std::pair<MatType, std::wstring>, FileGrade> grades;
  std::map<std::wstring, int> bars;  ///< grades of reinforcement in the document's table
  int numGroups{};                   ///< of bars, up to now

  /// Whether a grade that is not there may be one of a module that could not be read.
  bool MayLack(MatType type) const;
  bool MayLackSections() const { return notes.HasFailed("SECTIONS"); }

  RecordReader Records(std::string_view module) {
    return {module, modules.at(std::string(module)), isNewer, notes};
  }
};

}  // namespace Orlix::Legacy
