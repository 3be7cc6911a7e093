#include "model/oxdata/reinforcement/BarPlacer.h"

#include <algorithm>
#include <cmath>

#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/FaceDistance.h"

namespace Orlix::Data {
namespace {

constexpr auto kMost = static_cast<std::size_t>(CBarInput::kMostBars);
const char* const kTooMany = "it makes more than 10000 bars";

}  // namespace

BarPlacer::BarPlacer(const BarInfo& info, const CSecGeom& geometry, double linkDepth)
    : info_(info),
      geometry_(geometry),
      cover_(info.cover.value_or(0.0) + linkDepth),
      depths_(LayerDepths(info)) {}

BarPlacement BarPlacer::Run() {
  Place();
  if (!placement_.problem.empty()) placement_.bars.clear();
  return std::move(placement_);
}

void BarPlacer::Place() {
  switch (info_.place) {
    case BarPlace::line:
      return PlaceLine();
    case BarPlace::points:
      return PlacePoints();
    case BarPlace::circle:
    case BarPlace::arc:
      return PlaceRound();
    default:
      return PlaceOnFace();
  }
}

const SectionPolygon* BarPlacer::ChoosePolygon() {
  polygons_ = geometry_.Polygons(0.0);
  if (info_.polygon > static_cast<int>(polygons_.size())) {
    Fail("the component has no polygon " + std::to_string(info_.polygon));
    return nullptr;
  }
  if (info_.polygon == 0 && polygons_.size() > 1) {
    Fail("the component has " + std::to_string(polygons_.size()) +
         " polygons: name one, for instance \"polygon 1\"");
    return nullptr;
  }
  return &polygons_[static_cast<std::size_t>(std::max(info_.polygon, 1)) - 1];
}

void BarPlacer::PlaceOnFace() {
  if (!info_.cover) {
    Fail("it has no cover: add one, for instance \"cover 40mm\"");
    return;
  }
  const bool isAround = info_.place == BarPlace::perimeter || info_.place == BarPlace::hole;
  if (IsRound(geometry_) || geometry_.Kind() == ShapeKind::ellipse) {
    if (!isAround) {
      Fail("the shape has no straight sides: use circle, arc, perimeter or points");
      return;
    }
  }
  if (IsRound(geometry_)) return PlaceRound();
  if (info_.from) {
    Fail("\"from\" is for round shapes and circles alone");
    return;
  }
  const SectionPolygon* polygon = ChoosePolygon();
  if (polygon == nullptr) return;
  if (info_.place == BarPlace::hole) {
    const auto hole = static_cast<std::size_t>(info_.number) - 1;
    if (hole >= polygon->holes.size()) {
      Fail("the component has no hole " + std::to_string(info_.number));
      return;
    }
    return PlaceAround(BarRing(polygon->holes[hole], true));
  }
  const BarRing ring(polygon->outline, false);
  if (info_.place == BarPlace::perimeter) return PlaceAround(ring);
  const double turn = geometry_.Kind() == ShapeKind::polygon ? 0.0 : geometry_.Rotation();
  const double c = std::cos(turn);
  const double s = std::sin(turn);
  switch (info_.place) {
    case BarPlace::top:
      return PlaceSide(ring, {-s, c});
    case BarPlace::bottom:
      return PlaceSide(ring, {s, -c});
    case BarPlace::left:
      return PlaceSide(ring, {-c, -s});
    default:
      return PlaceSide(ring, {c, s});
  }
}

std::optional<BarSlots> BarPlacer::SlotsOnLine(const BarLayer& layer, double length) {
  if (layer.front().count > 0) return FromTheEnds(layer);
  const std::size_t places = Intervals(length, layer.front().spacing, kMost) + 1;
  if (places <= kMost) return Repeated(layer, places);
  Fail(kTooMany);
  return std::nullopt;
}

std::optional<BarSlots> BarPlacer::SlotsAround(const BarLayer& layer, double length) {
  if (layer.front().count > 0) return Spread(layer);
  const std::size_t places = Intervals(length, layer.front().spacing, kMost + 1);
  if (places <= kMost) return Repeated(layer, places);
  Fail(kTooMany);
  return std::nullopt;
}

void BarPlacer::PlaceSide(const BarRing& ring, Vec2<double> direction) {
  const bool isEdge = info_.place == BarPlace::edge;
  const auto side = isEdge ? ring.SideWithEdge(info_.number) : ring.Side(direction);
  if (!side) {
    Fail(isEdge ? "the outline has no edge " + std::to_string(info_.number) + " between corners"
                : "no side of the outline faces that way");
    return;
  }
  for (std::size_t i = 0; i < info_.layers.size(); ++i) {
    const BarLayer& layer = info_.layers[i];
    const BarGroup& any = layer.front();
    const double beside = cover_ + HalfWidth(any);
    const double length = ring.Length(*side, InsetOf(any, depths_[i]), {beside, beside});
    const std::optional<BarSlots> slots = SlotsOnLine(layer, length);
    if (!slots) return;
    std::vector<double> insets;
    for (const BarGroup* group : *slots) insets.push_back(InsetOf(*group, depths_[i]));
    const bool isAlone = slots->size() == 1;
    if (isAlone) insets.assign(3, insets.front());
    const auto spots = ring.SpotsIn(
        *side, insets, {cover_ + HalfWidth(*slots->front()), cover_ + HalfWidth(*slots->back())});
    for (std::size_t k = 0; k < slots->size(); ++k) {
      if (!Add(spots[isAlone ? 1 : k], *(*slots)[k])) return;
    }
  }
}

void BarPlacer::PlaceAround(const BarRing& ring) {
  for (std::size_t i = 0; i < info_.layers.size(); ++i) {
    const bool isPlaced = ring.NumCorners() == 0
                              ? PlaceSmoothLayer(ring, info_.layers[i], depths_[i])
                              : PlaceCorneredLayer(ring, info_.layers[i], depths_[i]);
    if (!isPlaced) return;
  }
}

bool BarPlacer::PlaceSmoothLayer(const BarRing& ring, const BarLayer& layer, double depth) {
  const double length = ring.Length({}, InsetOf(layer.front(), depth), {});
  const std::optional<BarSlots> slots = SlotsAround(layer, length);
  if (!slots) return false;
  std::vector<double> insets;
  for (const BarGroup* group : *slots) insets.push_back(InsetOf(*group, depth));
  const std::vector<BarSpot> spots = ring.SpotsAround(insets);
  for (std::size_t k = 0; k < spots.size(); ++k) {
    if (!Add(spots[k], *(*slots)[k])) return false;
  }
  return true;
}

bool BarPlacer::PlaceCorneredLayer(const BarRing& ring, const BarLayer& layer, double depth) {
  const std::vector<BarRing::Chain> chains = ring.Chains();
  const std::size_t corners = chains.size();
  const BarGroup& any = layer.front();
  const bool isCounted = any.count > 0;
  std::vector<double> lengths;
  for (const BarRing::Chain& chain : chains) {
    const double inset = InsetOf(any, depth);
    lengths.push_back(ring.Length(chain, inset, {inset, inset}));
  }
  BarSlots slots;  // corners first, then what is between them
  std::vector<std::size_t> shares;
  if (isCounted) {
    slots = InOrder(layer);
    if (slots.size() < corners) {
      return Fail("it has " + std::to_string(slots.size()) + " bars for " +
                  std::to_string(corners) + " corners: every corner needs one");
    }
    shares = ShareOut(lengths, slots.size() - corners);
  } else {
    std::size_t bars = corners;
    for (const double length : lengths) {
      shares.push_back(Intervals(length, any.spacing, kMost) - 1);
      bars += shares.back();
      if (bars > kMost) return Fail(kTooMany);
    }
    slots = Repeated(layer, bars);
  }
  auto between = slots.begin() + static_cast<std::ptrdiff_t>(corners);
  for (std::size_t c = 0; c < corners; ++c) {
    const BarGroup& corner = *slots[c];
    const double start = InsetOf(corner, depth);
    const double end = InsetOf(*slots[c + 1 == corners ? 0 : c + 1], depth);
    if (!Add(ring.CornerSpot(chains[c].first, start), corner)) return false;
    std::vector<double> insets = {start};
    for (std::size_t k = 0; k < shares[c]; ++k)
      insets.push_back(InsetOf(*between[static_cast<std::ptrdiff_t>(k)], depth));
    insets.push_back(end);
    const std::vector<BarSpot> spots = ring.SpotsIn(chains[c], insets, {start, end});
    for (std::size_t k = 0; k < shares[c]; ++k, ++between) {
      if (!Add(spots[k + 1], **between)) return false;
    }
  }
  return true;
}

}  // namespace Orlix::Data
