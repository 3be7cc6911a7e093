#pragma once

#include <cstdint>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data::Velmo9 {

/// Hash of all that decides the results of a task besides its cases: geometry, bars, the curves of
/// the materials used, code, options and task settings. Names and titles do not count.
std::uint64_t ResultsStamp(const CVelmoData& document, const VelmoSection& section, int iTask);

/// Drops the results of a section's tasks that no longer belong to what they were computed from.
void DropOutdatedResults(const CVelmoData& document, VelmoSection& section);

}  // namespace Orlix::Data::Velmo9
