#include "model/oxdata/reinforcement/bar_placement.h"

#include <algorithm>

#include "model/oxdata/reinforcement/BarPlacer.h"
#include "model/oxdata/reinforcement/FaceDistance.h"

namespace Orlix::Data {

BarPlacement PlaceBars(const BarInfo& info, const CSecGeom& geometry, double linkDepth) {
  BarPlacement placement = BarPlacer(info, geometry, linkDepth).Run();
  if (!info.cover || placement.bars.empty()) return placement;
  constexpr double kRounding = 1e-7;  // [m], of places computed in doubles far from the origin
  const FaceDistance faces(geometry);
  for (const PlacedBar& bar : placement.bars) {
    const double wanted = *info.cover + linkDepth + bar.size.diameter / 2;
    const double missing = wanted - faces.To(bar.position);
    if (missing > kRounding) placement.missingCover = std::max(placement.missingCover, missing);
  }
  return placement;
}

}  // namespace Orlix::Data
