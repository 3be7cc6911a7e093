#pragma once

#include <vector>

#include "model/oxdata/materials/CMatCurveParam.h"

namespace Orlix::Data::Design {

/// One side of a curve, counted outwards: strain and stress are positive on either side.
struct CurveSide {
  std::vector<CSegment> segments;  ///< from strain 0 to the limit, without gaps; empty: no curve
  bool limitIsCap{};               ///< the limit is numerical, not the material's own
};

/// Builds the side of a curve that a shape and a table describe.
/// @param points  (strain, stress [Pa]), tension positive; read for explicitPoints alone
/// @return no segments when the shape makes no sense for the scale.
CurveSide BuildSide(MatType type, LoadSign sign, const CurveShape& shape, const CurveScale& scale,
                    const CTableT<double>& points);

/// Smallest strain of a side at which its stress reaches a value; the strain of the peak when it
/// never does.
/// @param segments  the side, counted outwards, as `BuildSide` makes it
/// @param stress    [Pa] > 0
double StrainOfSide(const std::vector<CSegment>& segments, const CurveShape& shape,
                    const CurveScale& scale, double stress);

}  // namespace Orlix::Data::Design
