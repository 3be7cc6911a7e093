#pragma once

#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data {

/// What another design code, or another annex, did to one grade of a document.
struct GradeChange {
  enum class Kind {
    replaced,   ///< a standard grade; it has the values that the new code has for its name
    removed,    ///< a standard grade of the old code of which nothing was made
    added,      ///< a standard grade of the new code
    keptInUse,  ///< a standard grade of the old code that the new one does not know
    keptOwn     ///< the user's own or edited; it stays as it is, factors included
  };

  MatType type{};
  OrlixString<wchar_t> name;
  Kind kind{};

  friend bool operator==(const GradeChange&, const GradeChange&) = default;
};

}  // namespace Orlix::Data
