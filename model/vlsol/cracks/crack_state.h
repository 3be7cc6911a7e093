#pragma once

#include "model/vldata/records/CCrack.h"
#include "model/vlsol/cracks/crack_geometry.h"

namespace Orlix::VlSol {

/// The strains of a cracked component: what both kinds of rule start from.
class CrackState {
 public:
  /// @param plane  of the section in its cracked state, about the origin
  CrackState(const CrackComponent& component, const Data::Velmo9::Deformation& plane);

  const CrackComponent& Component() const { return component_; }
  double StrainAt(Vec2<double> p) const { return total_.StrainAt(p); }
  /// Strain of a bar less what it was stressed to.
  double StrainOf(const CrackBar& bar) const;

  bool IsInTension() const { return largest_ > 0.0; }
  double LargestStrain() const { return largest_; }     ///< e_1, of the outline
  Vec2<double> MostStrained() const { return place_; }  ///< vertex where that is
  /// Unit vector towards growing strain; that of the z axis for uniform strain.
  Vec2<double> Gradient() const { return gradient_; }
  /// 0: some of the section is in compression, 1: the strain is uniform; e_2/e_1 between.
  double Uniformity() const { return uniformity_; }
  double TensionDepth() const { return tensionDepth_; }  ///< h - x = e_1/κ [m], may be +infinity
  double Depth() const { return depth_; }                ///< h along the gradient [m]
  /// Part of the tension of the bars that a bar has: A e, 0 for one in compression.
  double PullOf(const CrackBar& bar) const;

 private:
  const CrackComponent& component_;
  Data::Velmo9::Deformation total_;   // of the concrete
  Data::Velmo9::Deformation ofBars_;  // prestrain left out
  Vec2<double> gradient_{0.0, 1.0};
  double largest_{};
  Vec2<double> place_;
  double uniformity_{};
  double tensionDepth_{};
  double depth_{};
};

/// How far outlines reach in a direction.
struct Extent {
  double low{};
  double high{};
};
Extent ExtentOf(const CrackComponent& component, Vec2<double> direction);

/// Takes the cracks that a rule finds.
class CrackSink {
 public:
  virtual ~CrackSink() = default;
  virtual void Add(const Data::Velmo9::CCrack& crack) = 0;
  /// Cracks that are no wider need not be added [m].
  virtual double Threshold() const { return 0.0; }
};

/// Calls use(from, to, bar) for the parts of a piece of an edge that have one and the same nearest
/// bar centre, in order; the index of the bar is that in `bars`. Bars that `counts` refuses are
/// left out; without any there is no call. O(parts x bars).
template <class Counts, class Use>
void ForEachNearestBar(const CrackEdge& edge, double from, double to,
                       const std::vector<CrackBar>& bars, Counts counts, Use use) {
  // The squared distances differ from each other by straight lines along the edge.
  const auto slope = [&](const CrackBar& b) {
    return -2.0 * Dot(b.position - edge.start, edge.direction);
  };
  const auto level = [&](const CrackBar& b) {
    return Dot(b.position - edge.start, b.position - edge.start);
  };
  const CrackBar* nearest = nullptr;
  for (const CrackBar& b : bars) {
    if (!counts(b)) continue;
    const auto at = [&](const CrackBar& bar) { return level(bar) + from * slope(bar); };
    if (nearest == nullptr || at(b) < at(*nearest) ||
        (at(b) == at(*nearest) && slope(b) < slope(*nearest))) {
      nearest = &b;
    }
  }
  while (nearest != nullptr && from < to) {
    const CrackBar* next = nullptr;
    double end = to;
    for (const CrackBar& b : bars) {
      const double fall = slope(*nearest) - slope(b);
      if (fall <= 0.0 || !counts(b)) continue;
      const double meet = (level(b) - level(*nearest)) / fall;
      if (meet < end || (next != nullptr && meet == end && slope(b) < slope(*next))) {
        end = meet;
        next = &b;
      }
    }
    end = end < from ? from : end;
    use(from, end, static_cast<int>(nearest - bars.data()));
    from = end;
    nearest = next;
  }
}

}  // namespace Orlix::VlSol
