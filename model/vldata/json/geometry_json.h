#pragma once

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// A geometry as it stands in a document: {"shape": …, its parameters, "centre", "rotation"} or
/// {"shape": "polygon", "polygons": …}.
/// @pre the geometry has a shape.
Util::JsonValue GeometryToJson(const CSecGeom& geometry, Util::JsonAllocator& allocator);

CSecGeom GeometryFromJson(const Util::JsonValue& json, const JsonPath& path, ProblemList& problems);

}  // namespace Orlix::Data
