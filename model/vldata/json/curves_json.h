#pragma once

#include "model/oxdata/materials/CMat.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// A curve as it stands in a document: {"compression": {"curve": …}, "tension": …, "points": …}.
Util::JsonValue CurveToJson(const Design::CMatCurveParam& curve, Util::JsonAllocator& allocator);

/// Reads a curve into a material whose properties are set. A side or a table of points that is
/// absent stays as it is in the material; a side that is there is given whole.
void ReadCurve(const Util::JsonValue& json, const JsonPath& path, LoadState state,
               Design::CMat& material, ProblemList& problems);

}  // namespace Orlix::Data
