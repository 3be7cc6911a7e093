#pragma once

#include <cstdint>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Data::Velmo9 {

/// Hash of all that decides the results of a task besides its cases: geometry, bars, the curves of
/// the materials used, code, options, task settings and the solved case that preloads it. Names and
/// titles do not count.
std::uint64_t ResultsStamp(const CVelmoData& document, const VelmoSection& section, int iTask);

/// Whether a case has results that belong to the model as it is; false for no such task or case.
bool HasCurrentResults(const CVelmoData& document, const VelmoSection& section, int iTask,
                       int iCase);

/// Drops the results of a section's tasks that no longer belong to what they were computed from,
/// those of a task preloaded by such a case with them.
void DropOutdatedResults(const CVelmoData& document, VelmoSection& section);

}  // namespace Orlix::Data::Velmo9
