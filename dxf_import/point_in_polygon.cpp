#include "dxf_import/OutlineIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Orlix::dxf_import {
namespace {

// Below these the straight loop over all edges is done before the edges are sorted.
constexpr std::size_t kFewVertices = 256;
constexpr std::size_t kFewPoints = 16;

constexpr std::size_t kVerticesPerBand = 8;
constexpr std::size_t kMostBands = std::size_t{1} << 16;
// A high edge is in many bands; the index holds at most this many entries for each vertex.
constexpr std::size_t kEntriesPerVertex = 4;

// Whether the edge from j to i counts and is crossed to the right of p.
bool IsCrossed(const Vec2<double>& p, const Vec3<double>& i, const Vec3<double>& j) {
  const bool counts = (i.y <= p.y && p.y < j.y) || (j.y <= p.y && p.y < i.y);
  return counts && i.x + (p.y - i.y) / (j.y - i.y) * (j.x - i.x) > p.x;
}

}  // namespace

bool IsPointInsidePolygon(const Vec2<double>& point, const Polygon& polygon) {
  if (polygon.vertices.size() < 3) return false;
  bool inside = false;
  const Vec3<double>* previous = &polygon.vertices.back();
  for (const Vec3<double>& vertex : polygon.vertices) {
    if (IsCrossed(point, vertex, *previous)) inside = !inside;
    previous = &vertex;
  }
  return inside;
}

OutlineIndex::OutlineIndex(const Polygon& polygon, std::size_t points) : polygon_(polygon) {
  const std::size_t count = polygon.vertices.size();
  if (count < kFewVertices || points < kFewPoints) return;
  if (count > std::numeric_limits<std::uint32_t>::max()) return;
  ChooseBorders();
  SortEdges();
}

bool OutlineIndex::Contains(const Vec2<double>& point) const {
  if (begin_.empty()) return IsPointInsidePolygon(point, polygon_);
  const std::vector<Vec3<double>>& vertices = polygon_.vertices;
  const std::size_t band = BandOf(point.y);
  bool inside = false;
  for (std::size_t at = begin_[band]; at < begin_[band + 1]; ++at) {
    const std::size_t i = edges_[at];
    const std::size_t j = i == 0 ? vertices.size() - 1 : i - 1;
    if (IsCrossed(point, vertices[i], vertices[j])) inside = !inside;
  }
  return inside;
}

// Never falls as y grows, infinite y included: that is all the index relies on.
std::size_t OutlineIndex::BandOf(double y) const {
  return static_cast<std::size_t>(std::upper_bound(borders_.begin(), borders_.end(), y) -
                                  borders_.begin());
}

// Calls action(edge, lowest band, highest band). An edge with a NaN never counts and is in none.
template <class Action>
void OutlineIndex::ForEachEdgeAndBand(Action action) const {
  const std::vector<Vec3<double>>& vertices = polygon_.vertices;
  double previous = vertices.back().y;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const double y = vertices[i].y;
    if (!std::isnan(y) && !std::isnan(previous)) {
      action(i, BandOf(std::min(y, previous)), BandOf(std::max(y, previous)));
    }
    previous = y;
  }
}

std::size_t OutlineIndex::CountEntries() const {
  std::size_t entries = 0;
  ForEachEdgeAndBand(
      [&](std::size_t, std::size_t low, std::size_t high) { entries += high - low + 1; });
  return entries;
}

// Takes the heights of vertices, evenly picked, so that bands are narrow where vertices are many.
void OutlineIndex::ChooseBorders() {
  const std::vector<Vec3<double>>& vertices = polygon_.vertices;
  const std::size_t bands = std::min(vertices.size() / kVerticesPerBand, kMostBands);
  const std::size_t step = vertices.size() / bands;
  for (std::size_t i = 0; i < vertices.size(); i += step) {
    if (!std::isnan(vertices[i].y)) borders_.push_back(vertices[i].y);
  }
  std::sort(borders_.begin(), borders_.end());
  borders_.erase(std::unique(borders_.begin(), borders_.end()), borders_.end());

  // With every k-th border alone an edge that passed s of them passes at most s / k + 1.
  const std::size_t entries = CountEntries();
  const std::size_t passed = entries - std::min(entries, vertices.size());
  const std::size_t room = (kEntriesPerVertex - 2) * vertices.size();
  const std::size_t k = passed / room + 1;
  std::size_t kept = 0;
  for (std::size_t i = k - 1; i < borders_.size(); i += k) borders_[kept++] = borders_[i];
  borders_.resize(kept);
}

void OutlineIndex::SortEdges() {
  begin_.assign(borders_.size() + 2, 0);
  ForEachEdgeAndBand([&](std::size_t, std::size_t low, std::size_t high) {
    for (std::size_t band = low; band <= high; ++band) ++begin_[band + 1];
  });
  for (std::size_t band = 1; band < begin_.size(); ++band) begin_[band] += begin_[band - 1];
  edges_.resize(begin_.back());
  std::vector<std::size_t> next(begin_.begin(), begin_.end() - 1);
  ForEachEdgeAndBand([&](std::size_t edge, std::size_t low, std::size_t high) {
    for (std::size_t band = low; band <= high; ++band) {
      edges_[next[band]++] = static_cast<std::uint32_t>(edge);
    }
  });
}

}  // namespace Orlix::dxf_import
