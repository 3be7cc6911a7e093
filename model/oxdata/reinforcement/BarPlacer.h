#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxdata/reinforcement/BarRing.h"
#include "model/oxdata/reinforcement/bar_info.h"
#include "model/oxdata/reinforcement/bar_placement.h"
#include "model/oxdata/reinforcement/bar_slots.h"

namespace Orlix::Data {

/// A face that is a true circle.
struct RoundFace {
  double radius{};  ///< [m]
  bool isHole{};
};

/// Places the layers of one description.
class BarPlacer {
 public:
  /// As `PlaceBars`; `info` and `geometry` must outlive the placer.
  BarPlacer(const BarInfo& info, const CSecGeom& geometry, double linkDepth);

  /// Places them; call it once.
  BarPlacement Run();

 private:
  void Place();
  void PlaceOnFace();
  void PlaceOnCircle(Vec2<double> centre, double radius, double inward);
  void PlaceRound();
  void PlaceLine();
  void PlacePoints();
  void PlaceSide(const BarRing& ring, Vec2<double> direction);
  void PlaceAround(const BarRing& ring);
  bool PlaceSmoothLayer(const BarRing& ring, const BarLayer& layer, double depth);
  bool PlaceCorneredLayer(const BarRing& ring, const BarLayer& layer, double depth);

  bool Fail(std::string problem) {
    placement_.problem = std::move(problem);
    return false;
  }
  /// The polygon that the description means; null with a problem.
  const SectionPolygon* ChoosePolygon();
  std::optional<RoundFace> ChooseRoundFace();
  Vec2<double> Centre() const;
  /// The slots of an open line; nothing with a problem.
  std::optional<BarSlots> SlotsOnLine(const BarLayer& layer, double length);
  std::optional<BarSlots> SlotsAround(const BarLayer& layer, double length);
  bool Add(const BarSpot& spot, const BarGroup& group);
  double InsetOf(const BarGroup& group, double depth) const {
    return cover_ + depth + group.size.diameter / 2;
  }

  const BarInfo& info_;
  const CSecGeom& geometry_;
  double cover_;  // to the bars [m]
  std::vector<double> depths_;
  std::vector<SectionPolygon> polygons_;
  BarPlacement placement_;
};

}  // namespace Orlix::Data
