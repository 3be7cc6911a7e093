#pragma once

#include <iosfwd>
#include <string>

#include "app/VelmoApp.h"
#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Cli {

/// The code that the options --code and --annex ask for: the first with that name and annex, an
/// empty text fitting all. An annex that no code has is the file of one (docs/national-annex.md).
/// @throws CommandError that lists the codes when none fits and there is no such file, and for a
///         file that is not understood in all its parts.
Data::Design::CConcCode CodeFor(const std::string& code, const std::string& annex);

/// Gives the document a code.
void SetCode(VelmoApp& app, const Data::Design::CConcCode& code);

/// Whether two codes are the same, their annexes included.
bool AreEqual(const Data::Design::CConcCode& a, const Data::Design::CConcCode& b);

/// What the last change of the document's code did to its grades, a line for each type and way.
void PrintGradeChanges(const Data::CVelmoData& document, std::ostream& out);

}  // namespace Orlix::Cli
