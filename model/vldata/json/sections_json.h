#pragma once

#include "model/oxdata/materials/Materials.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/VelmoSection.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// A section as it stands in a document, with its tasks. Grades are written by name; a component or
/// a bar whose grade is none of the tables' is written without.
Util::JsonValue SectionToJson(const Velmo9::VelmoSection& section, const Materials& materials,
                              Util::JsonAllocator& allocator);

Velmo9::VelmoSection SectionFromJson(const Util::JsonValue& json, const JsonPath& path,
                                     const Materials& materials, ProblemList& problems);

}  // namespace Orlix::Data
