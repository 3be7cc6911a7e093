#include "model/vlsol/diagrams/worst_intervals.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace Orlix::VlSol {

std::vector<std::size_t> WorstIntervals(std::span<const Vec2<double>> points, bool isClosed,
                                        std::size_t count) {
  const std::size_t n = points.size();
  const std::size_t intervals = isClosed || n == 0 ? n : n - 1;
  const auto chord = [&](std::size_t i) { return points[(i + 1) % n] - points[i % n]; };
  const auto sine = [&](std::size_t i, std::size_t next) {
    const Vec2<double> a = chord(i);
    const Vec2<double> b = chord(next);
    const double size = Length(a) * Length(b);
    return size > 0.0 ? std::abs(Cross(a, b)) / size : 0.0;
  };
  std::vector<std::pair<double, std::size_t>> worst(intervals);
  for (std::size_t i = 0; i < intervals; ++i) {
    const bool hasBefore = isClosed || i > 0;
    const bool hasAfter = isClosed || i + 1 < intervals;
    const double turning =
        (hasBefore ? sine(i + n - 1, i) : 0.0) + (hasAfter ? sine(i, i + 1) : 0.0);
    worst[i] = {Length(chord(i)) * turning, i};
  }
  count = std::min(count, intervals);
  std::partial_sort(worst.begin(), worst.begin() + static_cast<std::ptrdiff_t>(count), worst.end(),
                    std::greater<>());
  std::vector<std::size_t> indices;
  indices.reserve(count);
  for (std::size_t k = 0; k < count; ++k) indices.push_back(worst[k].second);
  return indices;
}

}  // namespace Orlix::VlSol
