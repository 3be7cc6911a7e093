#pragma once

#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/AnalysisTask.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// Reads a task of a section; `AnalysisTask::toJson` writes it.
/// @param numComponents  of the section
Velmo9::AnalysisTask TaskFromJson(const Util::JsonValue& json, const JsonPath& path,
                                  int numComponents, ProblemList& problems);

}  // namespace Orlix::Data
