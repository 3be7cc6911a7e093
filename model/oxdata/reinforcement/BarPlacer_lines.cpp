#include <algorithm>
#include <cmath>
#include <numbers>

#include "model/oxdata/reinforcement/BarPlacer.h"
#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/FaceDistance.h"
#include "model/oxnumeric/area_moments.h"

// Circles, lines and points, and the bars of a bundle.

namespace Orlix::Data {
namespace {

constexpr auto kMost = static_cast<std::size_t>(CBarInput::kMostBars);

}  // namespace

std::optional<RoundFace> BarPlacer::ChooseRoundFace() {
  const ShapeDimensions& d = geometry_.Dimensions();
  if (info_.place != BarPlace::hole) return RoundFace{d.diameter / 2, false};
  if (geometry_.Kind() == ShapeKind::ring && info_.number == 1) {
    return RoundFace{d.diameter / 2 - d.thickness, true};
  }
  Fail("the component has no hole " + std::to_string(info_.number));
  return std::nullopt;
}

// Circles and arcs at a radius, and what follows a round face.
void BarPlacer::PlaceRound() {
  if (info_.radius) return PlaceOnCircle(Centre(), *info_.radius, 1.0);
  if (!info_.cover || !IsRound(geometry_)) {
    Fail(IsRound(geometry_) ? "it has neither radius nor cover"
                            : "it has no radius, and the shape is not round");
    return;
  }
  if (!info_.points.empty()) {
    Fail("a centre needs a radius, for instance \"circle 200mm at (0, 0)\"");
    return;
  }
  const std::optional<RoundFace> face = ChooseRoundFace();
  if (!face) return;
  const double inward = face->isHole ? -1.0 : 1.0;  // towards the centre, or away from it
  const double first = cover_ + LargestDiameter(info_.layers.front()) / 2;
  PlaceOnCircle(geometry_.Centre(), face->radius - inward * first, inward);
}

// `radius` is that of the largest bars of the first layer; smaller ones have the same cover, or,
// where the radius is given, the same radius.
void BarPlacer::PlaceOnCircle(Vec2<double> centre, double radius, double inward) {
  const double face = radius + inward * LargestDiameter(info_.layers.front()) / 2;
  const double turn = IsRound(geometry_) ? geometry_.Rotation() : 0.0;
  const double from = info_.from.value_or(0.0) + turn;
  const bool isArc = info_.place == BarPlace::arc;
  const double sweep = isArc ? *info_.to - info_.from.value_or(0.0) : 2.0 * std::numbers::pi;
  for (std::size_t i = 0; i < info_.layers.size(); ++i) {
    const BarLayer& layer = info_.layers[i];
    const auto radiusOf = [&](const BarGroup& group) {
      if (info_.radius && i == 0) return radius;
      return face - inward * (depths_[i] + group.size.diameter / 2);
    };
    const double length = std::abs(sweep) * radiusOf(layer.front());
    const auto slots = isArc ? SlotsOnLine(layer, length) : SlotsAround(layer, length);
    if (!slots) return;
    const double intervals = static_cast<double>(slots->size() - (isArc ? 1U : 0U));
    for (std::size_t k = 0; k < slots->size(); ++k) {
      const BarGroup& group = *(*slots)[k];
      const double own = radiusOf(group);
      if (!(own > 0.0)) {
        Fail("the circle of the bars has no radius left");
        return;
      }
      const double share = intervals > 0.0 ? static_cast<double>(k) / intervals : 0.5;
      const double angle = from + share * sweep;
      const Vec2<double> outward{std::cos(angle), std::sin(angle)};
      // The bars of a bundle touch the circle beside the spot.
      const double half = group.bundle == 1 ? 0.0 : group.size.diameter / 2;
      const double chord = std::sqrt(std::max(own * own - half * half, 0.0));
      const BarSpot spot{centre + chord * outward, {-outward.y, outward.x}, -inward * outward};
      if (!Add(spot, group)) return;
    }
  }
}

void BarPlacer::PlaceLine() {
  const Vec2<double> start = info_.points[0];
  const Vec2<double> step = info_.points[1] - start;
  const double length = Length(step);
  const auto slots = SlotsOnLine(info_.layers.front(), length);
  if (!slots) return;
  const Vec2<double> along = length > 0.0 ? (1.0 / length) * step : Vec2<double>{1.0, 0.0};
  for (std::size_t k = 0; k < slots->size(); ++k) {
    const double share =
        slots->size() > 1 ? static_cast<double>(k) / static_cast<double>(slots->size() - 1) : 0.5;
    if (!Add({start + share * step, along, {-along.y, along.x}}, *(*slots)[k])) return;
  }
}

void BarPlacer::PlacePoints() {
  const BarSlots slots = InOrder(info_.layers.front());
  for (std::size_t k = 0; k < slots.size(); ++k) {
    if (!Add({info_.points[k], {1.0, 0.0}, {0.0, 1.0}}, *slots[k])) return;
  }
}

Vec2<double> BarPlacer::Centre() const {
  if (!info_.points.empty()) return info_.points.front();
  if (geometry_.Kind() != ShapeKind::polygon) return geometry_.Centre();
  Numeric::AreaMoments moments;
  const auto add = [&](const std::vector<Vec2<double>>& ring, double sign) {
    const Numeric::AreaMoments own = Numeric::MomentsOf(ring);
    const double factor = own.area < 0.0 ? -sign : sign;
    moments.area += factor * own.area;
    moments.sy += factor * own.sy;
    moments.sz += factor * own.sz;
  };
  for (const SectionPolygon& polygon : geometry_.Polygons(0.0)) {
    add(polygon.outline, 1.0);
    for (const auto& hole : polygon.holes) add(hole, -1.0);
  }
  return {moments.sy / moments.area, moments.sz / moments.area};
}

// Two bars of a bundle lie beside each other, the third and fourth behind them; in a corner one
// bar is in the corner, the next ones along its edges.
bool BarPlacer::Add(const BarSpot& spot, const BarGroup& group) {
  const double d = group.size.diameter;
  const auto put = [&](double along, double inward) {
    placement_.bars.push_back(
        {spot.position + along * spot.along + inward * spot.inward, group.size});
  };
  if (placement_.bars.size() + static_cast<std::size_t>(group.bundle) > kMost) {
    return Fail("it makes more than 10000 bars");
  }
  if (group.bundle == 1) {
    put(0.0, 0.0);
  } else if (spot.isCorner) {
    const Vec2<double> beside = d * spot.along;
    const Vec2<double> below = d * spot.back;
    const Vec2<double> offsets[] = {{}, beside, below, beside + below};
    for (int i = 0; i < group.bundle; ++i) {
      placement_.bars.push_back({spot.position + offsets[i], group.size});
    }
  } else {
    put(-d / 2, 0.0);
    put(d / 2, 0.0);
    if (group.bundle == 3) put(0.0, d * std::numbers::sqrt3 / 2);
    if (group.bundle == 4) {
      put(-d / 2, d);
      put(d / 2, d);
    }
  }
  return true;
}

}  // namespace Orlix::Data
