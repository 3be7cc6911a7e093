#include "plot/shapes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace Orlix::Plot {

namespace {

// Takes from [first, last] of the line start + t * along what is beyond the half plane.
void Cut(const HalfPlane& part, Spot start, Spot along, double& first, double& last) {
  if (!std::isfinite(part.limit)) return;
  const double rate = Dot(part.normal, along);
  const double room = part.limit - Dot(part.normal, start);
  if (rate == 0.0) {
    if (room < 0.0) last = first - 1.0;  // nothing
  } else if (rate > 0.0) {
    last = std::min(last, room / rate);
  } else {
    first = std::max(first, room / rate);
  }
}

// Where a line at a distance across crosses the rings, sorted, as distances along.
std::vector<double> Crossings(std::span<const Ring> rings, Spot along, Spot across, double at) {
  std::vector<double> found;
  for (const Ring& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const Spot a = ring[i];
      const Spot b = ring[(i + 1) % ring.size()];
      const double da = Dot(across, a) - at;
      const double db = Dot(across, b) - at;
      if ((da <= 0.0) == (db <= 0.0)) continue;
      found.push_back(Dot(along, a + da / (da - db) * (b - a)));
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace

Stroke Within(const Box& box, Stroke stroke) {
  const Spot along = stroke.to - stroke.from;
  double first = 0.0;
  double last = 1.0;
  for (const HalfPlane& side : {HalfPlane{{-1, 0}, -box.left}, HalfPlane{{1, 0}, box.right},
                                HalfPlane{{0, -1}, -box.top}, HalfPlane{{0, 1}, box.bottom}}) {
    Cut(side, stroke.from, along, first, last);
  }
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  if (!(first <= last)) return {{kNone, kNone}, {kNone, kNone}};
  return {stroke.from + first * along, stroke.from + last * along};
}

bool Crosses(const Box& box, const Stroke& stroke) {
  return !std::isnan(Within(box, stroke).from.x);
}

std::vector<Stroke> HatchLines(std::span<const Ring> rings, double angleDeg, double spacing,
                               const HalfPlane& part) {
  const double angle = angleDeg * std::numbers::pi / 180.0;
  const Spot along{std::cos(angle), -std::sin(angle)};  // y runs down the sheet
  const Spot across{-along.y, along.x};
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  for (const Ring& ring : rings) {
    for (const Spot& p : ring) {
      low = std::min(low, Dot(across, p));
      high = std::max(high, Dot(across, p));
    }
  }
  std::vector<Stroke> lines;
  for (double i = std::ceil(low / spacing); i * spacing < high; ++i) {
    const Spot start = i * spacing * across;
    const std::vector<double> ends = Crossings(rings, along, across, i * spacing);
    for (std::size_t k = 0; k + 1 < ends.size(); k += 2) {
      double first = ends[k];
      double last = ends[k + 1];
      Cut(part, start, along, first, last);
      if (first < last) lines.push_back({start + first * along, start + last * along});
    }
  }
  return lines;
}

}  // namespace Orlix::Plot
