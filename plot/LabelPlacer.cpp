#include "plot/LabelPlacer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace Orlix::Plot {

namespace {

constexpr int kDirections = 16;
constexpr std::array<double, 4> kDistances = {0.0, 1.2, 2.6, 4.4};  // beyond the gap [mm]

// The box whose nearest point lies about `distance` from a point, in a direction.
Box Beside(Spot point, double distance, Spot size, double angle) {
  const Spot direction{std::cos(angle), std::sin(angle)};
  // From the box's centre to its edge, along the direction.
  const double reach = std::min(size.x / 2.0 / std::max(std::abs(direction.x), 1e-9),
                                size.y / 2.0 / std::max(std::abs(direction.y), 1e-9));
  const Spot centre = point + (distance + reach) * direction;
  return {centre.x - size.x / 2.0, centre.y - size.y / 2.0, centre.x + size.x / 2.0,
          centre.y + size.y / 2.0};
}

}  // namespace

void LabelPlacer::Block(std::span<const Ring> rings) {
  for (const Ring& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      edges_.push_back({ring[i], ring[(i + 1) % ring.size()]});
    }
  }
}

bool LabelPlacer::IsFree(const Box& box) const {
  return room_.Contains({box.left, box.top}) && room_.Contains({box.right, box.bottom}) &&
         std::none_of(boxes_.begin(), boxes_.end(),
                      [&](const Box& other) { return other.Overlaps(box); }) &&
         std::none_of(edges_.begin(), edges_.end(),
                      [&](const Stroke& edge) { return Crosses(box, edge); });
}

std::optional<Box> LabelPlacer::Place(Spot point, double gap, Spot size, Spot towards) {
  const double first = Length(towards) > 0.0 ? std::atan2(towards.y, towards.x) : 0.0;
  constexpr double kStep = 2.0 * std::numbers::pi / kDirections;
  for (const double further : kDistances) {
    for (int i = 0; i < kDirections; ++i) {
      const int turn = (i + 1) / 2 * (i % 2 == 0 ? 1 : -1);  // 0, -1, 1, -2, 2, ...
      const Box box = Beside(point, gap + further, size, first + turn * kStep);
      if (!IsFree(box)) continue;
      Block(box);
      return box;
    }
  }
  return std::nullopt;
}

std::vector<double> SpreadLabels(std::span<const double> wanted, double spacing, double low,
                                 double high) {
  const auto n = static_cast<double>(wanted.size());
  std::vector<double> at(wanted.begin(), wanted.end());
  if (wanted.empty()) return at;
  const double step = n > 1.0 ? std::min(spacing, (high - low) / (n - 1.0)) : 0.0;
  for (std::size_t i = 0; i < at.size(); ++i) {
    at[i] = std::max(at[i], i == 0 ? low : at[i - 1] + step);
  }
  // What went beyond the end comes back; the room is enough by the choice of the step.
  for (std::size_t i = at.size(); i-- > 0;) {
    at[i] = std::min(at[i], i + 1 == at.size() ? high : at[i + 1] - step);
  }
  return at;
}

}  // namespace Orlix::Plot
