#pragma once

#include <optional>
#include <string_view>

#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// The JSON Schema (draft 4) of documents, word for word docs/velmo-document.schema.json.
std::string_view DocumentSchemaText();

/// Where a JSON value first departs from the schema of documents; nothing when it satisfies it.
///
/// What the schema cannot say, such as which grades exist, CVelmoData's own reading finds.
/// @pre  `json` is nested no deeper than Util::kMaxJsonDepth, as all that Util::ParseJson reads.
std::optional<ReadProblem> SchemaProblem(const Util::JsonValue& json);

}  // namespace Orlix::Data
