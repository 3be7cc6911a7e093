#pragma once

#include <optional>
#include <span>
#include <vector>

#include "plot/shapes.h"

namespace Orlix::Plot {

/// Finds places for labels where they cover nothing.
class LabelPlacer {
 public:
  /// @param room  labels stay within
  explicit LabelPlacer(const Box& room) : room_(room) {}

  /// What labels may not cover.
  void Block(const Box& box) { boxes_.push_back(box); }
  void Block(std::span<const Ring> rings);

  /// The place of a label of some size beside a point, nearest places first: all around it, at
  /// `gap`, then at some more distances.
  /// @param towards  direction that is tried first of each distance
  /// @return the box of the label, which from then on is blocked; nothing: there is no free one
  std::optional<Box> Place(Spot point, double gap, Spot size, Spot towards);

 private:
  bool IsFree(const Box& box) const;

  Box room_;
  std::vector<Box> boxes_;
  std::vector<Stroke> edges_;
};

/// Moves labels on a line apart.
/// @param wanted   where their middles should be, rising
/// @param spacing  least distance of two middles
/// @return where they are: in the same order, within `low` to `high` when there is room for all,
///         else evenly over it
std::vector<double> SpreadLabels(std::span<const double> wanted, double spacing, double low,
                                 double high);

}  // namespace Orlix::Plot
