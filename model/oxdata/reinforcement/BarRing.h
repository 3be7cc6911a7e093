#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Data {

/// A place for a bar on a line, with the directions there; unit vectors.
struct BarSpot {
  Vec2<double> position;
  Vec2<double> along;
  Vec2<double> inward;
  bool isCorner{};
  Vec2<double> back{};  ///< at a corner: along the edge that ends there, away from the corner
};

/// An outline or a hole as bars follow it: the concrete lies to the left of every edge.
class BarRing {
 public:
  /// Edges from one corner to the next; between them the ring bends little.
  struct Chain {
    std::size_t first{};  ///< edge
    std::size_t edges{};
  };

  /// Where a line of bars ends: its distances from the edges beside the chain [m].
  struct EndInsets {
    double before{};
    double after{};
  };

  /// @param vertices  valid polygon ring, either direction
  BarRing(std::span<const Vec2<double>> vertices, bool isHole);

  /// Edges that meet at more than this [rad], 20 degrees, make a corner: a round outline of 18
  /// sides or more has none.
  static constexpr double kCornerAngle = 0.349;

  std::size_t NumCorners() const { return corners_.size(); }
  /// The chains from corner to corner, in order; one without an end when there is no corner.
  std::vector<Chain> Chains() const;
  /// The chain that faces a direction and lies furthest there, of two as far the longer; its chord
  /// is at most 45 degrees askew. Nothing when no chain does or the ring has no corners.
  std::optional<Chain> Side(Vec2<double> direction) const;
  /// The chain with an edge, numbered from one as the vertices were given.
  std::optional<Chain> SideWithEdge(int number) const;

  /// The point at distances from the two edges that meet at the start of an edge [m].
  Vec2<double> CornerPoint(std::size_t edge, double before, double after) const;
  /// The spot of a bar in the corner where an edge begins.
  BarSpot CornerSpot(std::size_t edge, double inset) const;
  /// Length of the line in a chain at an inset from it [m].
  double Length(const Chain& chain, double inset, EndInsets ends) const;
  /// Spots in a chain: evenly spaced, both ends included, each at its own inset from its edge.
  /// @param insets  distance of each spot from the chain [m], at least two
  std::vector<BarSpot> SpotsIn(const Chain& chain, std::span<const double> insets,
                               EndInsets ends) const;
  /// Spots around a ring without corners, evenly spaced from the first vertex on.
  std::vector<BarSpot> SpotsAround(std::span<const double> insets) const;

 private:
  using Line = std::vector<Vec2<double>>;

  std::size_t Next(std::size_t edge) const { return edge + 1 == starts_.size() ? 0 : edge + 1; }
  std::size_t Before(std::size_t edge) const { return (edge == 0 ? starts_.size() : edge) - 1; }
  std::size_t Edge(const Chain& chain, std::size_t i) const {
    return (chain.first + i) % starts_.size();
  }
  Line LineIn(const Chain& chain, double first, double last, EndInsets ends) const;
  Line LineAround(double inset) const;
  /// Spots at shares of a line whose pieces belong to the edges of a chain.
  std::vector<BarSpot> SpotsOn(const Line& line, const Chain& chain, std::span<const double> insets,
                               std::size_t intervals) const;

  std::vector<Vec2<double>> starts_;  // of the edges
  std::vector<Vec2<double>> along_;
  std::vector<int> numbers_;
  std::vector<std::size_t> corners_;  // edges that begin at one
};

/// Length of an open line [m].
double LengthOf(std::span<const Vec2<double>> line);

}  // namespace Orlix::Data
