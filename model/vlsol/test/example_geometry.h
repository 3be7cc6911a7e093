#pragma once

#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxnumeric/Vec.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::VlSol::Test {

/// The outlines of an example's geometry, circles as polygons. @param unit  [m] per unit of length
std::vector<Data::SectionPolygon> ReadPolygons(const Util::JsonValue& geometry, double unit);

/// The point that an example's moments are about [m]: its own, else the centroid of the outlines
/// less their holes.
Vec2<double> ReferencePoint(const Util::JsonValue& geometry,
                            const std::vector<Data::SectionPolygon>& polygons, double unit);

}  // namespace Orlix::VlSol::Test
