#include "dxf_import/point_in_polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace Orlix::dxf_import {
namespace {

// Below these the loop over all edges is done before anything is sorted.
constexpr std::size_t kFewVertices = 64;
constexpr std::size_t kFewPoints = 16;

constexpr std::size_t kPointsPerBand = 256;

struct Edge {
  const Vec3<double>& i;
  const Vec3<double>& j;  ///< the vertex before i

  double Low() const { return std::min(i.y, j.y); }
  double High() const { return std::max(i.y, j.y); }

  /// Where the edge is at this height, of those it counts for.
  double At(double y) const { return i.x + (y - i.y) / (j.y - i.y) * (j.x - i.x); }

  /// Whether At is monotonic in y: each of its steps is, rounding included, while all are finite.
  bool IsMonotonic() const {
    return std::isfinite(i.x) && std::isfinite(j.y - i.y) && std::isfinite(j.x - i.x);
  }

  bool IsCrossed(const Vec2<double>& p) const {
    const bool counts = (i.y <= p.y && p.y < j.y) || (j.y <= p.y && p.y < i.y);
    return counts && At(p.y) > p.x;
  }
};

Edge EdgeTo(std::size_t vertex, const Polygon& polygon) {
  const auto& vertices = polygon.vertices;
  return {vertices[vertex], vertices[vertex == 0 ? vertices.size() - 1 : vertex - 1]};
}

/// Points that lie next to one another in height, and whether they are inside.
class Band {
 public:
  /// @param points  by height, at most kPointsPerBand, none with a NaN
  explicit Band(std::span<const Vec2<double>> points) : points_(points) {
    const auto end = byX_.begin() + static_cast<std::ptrdiff_t>(points.size());
    std::iota(byX_.begin(), end, std::size_t{0});
    std::sort(byX_.begin(), end,
              [&](std::size_t a, std::size_t b) { return points[a].x < points[b].x; });
  }

  double Low() const { return points_.front().y; }
  double High() const { return points_.back().y; }

  void Add(const Edge& edge) {
    if (edge.Low() <= Low() && High() < edge.High() && edge.IsMonotonic()) return AddHigh(edge);
    const auto isBelow = [](const Vec2<double>& p, double y) { return p.y < y; };
    const auto begin = std::lower_bound(points_.begin(), points_.end(), edge.Low(), isBelow);
    const auto end = std::lower_bound(begin, points_.end(), edge.High(), isBelow);
    for (auto point = begin; point != end; ++point) {
      if (edge.IsCrossed(*point)) Flip(static_cast<std::size_t>(point - points_.begin()));
    }
  }

  /// Calls action(point, whether it is inside), points numbered as they were given.
  template <class Action>
  void Finish(Action action) const {
    bool flipped = false;
    for (std::size_t at = points_.size(); at-- > 0;) {
      flipped ^= flipsBefore_[at + 1];
      action(byX_[at], isInside_[byX_[at]] != flipped);
    }
  }

 private:
  void Flip(std::size_t point) { isInside_[point] = !isInside_[point]; }

  // An edge that counts for all points. Those to the left of all of it in the band cross it.
  void AddHigh(const Edge& edge) {
    const auto [left, right] = std::minmax({edge.At(Low()), edge.At(High())});
    const std::size_t sure = CountLeftOf(left);
    const std::size_t possible = CountLeftOf(right);
    flipsBefore_[sure] = !flipsBefore_[sure];
    for (std::size_t at = sure; at < possible; ++at) {
      if (edge.IsCrossed(points_[byX_[at]])) Flip(byX_[at]);
    }
  }

  std::size_t CountLeftOf(double x) const {
    const auto end = byX_.begin() + static_cast<std::ptrdiff_t>(points_.size());
    const auto found = std::lower_bound(byX_.begin(), end, x, [&](std::size_t point, double value) {
      return points_[point].x < value;
    });
    return static_cast<std::size_t>(found - byX_.begin());
  }

  std::span<const Vec2<double>> points_;
  std::array<std::size_t, kPointsPerBand> byX_{};  ///< points from left to right
  std::array<bool, kPointsPerBand> isInside_{};
  /// Whether all points before this one in byX_ are to be flipped.
  std::array<bool, kPointsPerBand + 1> flipsBefore_{};
};

// Edges that can be crossed, by their lower ends. One with a NaN never is, nor one that is level.
std::vector<std::size_t> EdgesByLowEnd(const Polygon& polygon) {
  std::vector<std::size_t> edges;
  edges.reserve(polygon.vertices.size());
  for (std::size_t i = 0; i < polygon.vertices.size(); ++i) {
    const Edge edge = EdgeTo(i, polygon);
    const bool isNowhere = std::isnan(edge.i.x) || std::isnan(edge.j.x);
    if (!isNowhere && (edge.i.y < edge.j.y || edge.j.y < edge.i.y)) edges.push_back(i);
  }
  std::sort(edges.begin(), edges.end(), [&](std::size_t a, std::size_t b) {
    return EdgeTo(a, polygon).Low() < EdgeTo(b, polygon).Low();
  });
  return edges;
}

// Points by height. One with a NaN crosses nothing and is left out.
std::vector<std::size_t> PointsByHeight(std::span<const Vec2<double>> points) {
  std::vector<std::size_t> order;
  order.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!std::isnan(points[i].x) && !std::isnan(points[i].y)) order.push_back(i);
  }
  std::sort(order.begin(), order.end(),
            [&](std::size_t a, std::size_t b) { return points[a].y < points[b].y; });
  return order;
}

}  // namespace

bool IsPointInsidePolygon(const Vec2<double>& point, const Polygon& polygon) {
  if (polygon.vertices.size() < 3) return false;
  bool inside = false;
  const Vec3<double>* previous = &polygon.vertices.back();
  for (const Vec3<double>& vertex : polygon.vertices) {
    if (Edge{vertex, *previous}.IsCrossed(point)) inside = !inside;
    previous = &vertex;
  }
  return inside;
}

// Whether an edge counts depends on the height alone, and parity not on the order of edges: so
// bands of points are taken from below, each with the edges that are at its height.
std::vector<bool> ArePointsInsidePolygon(std::span<const Vec2<double>> points,
                                         const Polygon& polygon) {
  std::vector<bool> inside(points.size());
  if (polygon.vertices.size() < kFewVertices || points.size() < kFewPoints) {
    std::transform(points.begin(), points.end(), inside.begin(),
                   [&](const Vec2<double>& p) { return IsPointInsidePolygon(p, polygon); });
    return inside;
  }
  const std::vector<std::size_t> order = PointsByHeight(points);
  const std::vector<std::size_t> edges = EdgesByLowEnd(polygon);
  auto nextEdge = edges.begin();
  std::vector<std::size_t> current;  // edges that may count in this band
  std::vector<Vec2<double>> bandPoints;
  for (std::size_t begin = 0; begin < order.size(); begin += kPointsPerBand) {
    bandPoints.clear();
    const std::size_t end = std::min(begin + kPointsPerBand, order.size());
    for (std::size_t at = begin; at < end; ++at) bandPoints.push_back(points[order[at]]);
    Band band(bandPoints);
    while (nextEdge != edges.end() && EdgeTo(*nextEdge, polygon).Low() <= band.High()) {
      current.push_back(*nextEdge++);
    }
    std::erase_if(current, [&](std::size_t i) { return EdgeTo(i, polygon).High() <= band.Low(); });
    for (const std::size_t i : current) band.Add(EdgeTo(i, polygon));
    band.Finish([&](std::size_t point, bool isInside) { inside[order[begin + point]] = isInside; });
  }
  return inside;
}

}  // namespace Orlix::dxf_import
