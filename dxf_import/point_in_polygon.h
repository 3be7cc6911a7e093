#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "dxf_import/SectionGeometry.h"
#include "model/oxnumeric/Vec.h"

namespace Orlix::dxf_import {

/// Tells by the even-odd rule in the XY plane whether a point is inside `polygon`: an edge from a
/// to b counts when a.y <= y < b.y or b.y <= y < a.y, and is crossed when its point at y lies
/// strictly to the right. No tolerance: a point on an edge falls on either side. O(n).
/// @return false for fewer than three vertices.
bool IsPointInsidePolygon(const Vec2<double>& point, const Polygon& polygon);

/// The edges of one polygon by bands of y, for many points.
///
/// Laws: Contains answers bit for bit as IsPointInsidePolygon: whether an edge counts depends on y
/// alone, so all that can count are in the point's band, and parity does not depend on their order.
/// Cost: O(n log n) to build and at most 16 bytes an edge; a point costs the edges of its band,
/// which are few unless many edges are nearly as high as the outline.
class OutlineIndex {
 public:
  /// @param polygon  must outlive the index; its coordinates may be anything, NaN and infinity too.
  /// @param points   about how many points will be asked for; sorts no edges when it does not pay.
  OutlineIndex(const Polygon& polygon, std::size_t points);

  bool Contains(const Vec2<double>& point) const;

 private:
  std::size_t BandOf(double y) const;
  std::size_t CountEntries() const;
  void ChooseBorders();
  void SortEdges();
  template <class Action>
  void ForEachEdgeAndBand(Action action) const;

  const Polygon& polygon_;
  std::vector<double> borders_;       ///< ascending; band b is from borders_[b-1] to borders_[b]
  std::vector<std::size_t> begin_;    ///< band b has edges_[begin_[b]] to edges_[begin_[b + 1]]
  std::vector<std::uint32_t> edges_;  ///< edges by the vertex they end at
};

}  // namespace Orlix::dxf_import
