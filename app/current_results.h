#pragma once

#include <optional>
#include <span>
#include <string>

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix {

/// Whether the document has a task; `message` says why not.
bool TaskExists(const Data::CVelmoData& document, int iSec, int iTask, std::string& message);

/// The first of `cases` that is a case of the task and has no result; nothing when all have, or
/// when the task computes none.
std::optional<int> FirstUnsolved(const Data::Velmo9::AnalysisTask& task,
                                 std::span<const int> cases);

/// Calls use(section) with a section of the document, or a copy of it, whose task has no results of
/// an earlier model.
template <class Use>
auto WithCurrentResults(const Data::CVelmoData& document, int iSec, int iTask, Use use) {
  const Data::Velmo9::VelmoSection& section = document.Section(iSec);
  const auto& solved = section.Task(iTask).Results();
  if (!solved || solved->stamp == Data::Velmo9::ResultsStamp(document, section, iTask)) {
    return use(section);
  }
  Data::Velmo9::VelmoSection current = section;
  Data::Velmo9::DropOutdatedResults(document, current);
  return use(current);
}

}  // namespace Orlix
