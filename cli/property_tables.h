#pragma once

#include <iosfwd>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Cli {

/// Prints gross and net properties of a section, and the transformed ones of its tasks, short and
/// long term; tasks for which they are alike share a line. Prints nothing for a section without
/// area.
void PrintProperties(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                     std::ostream& out);

}  // namespace Orlix::Cli
