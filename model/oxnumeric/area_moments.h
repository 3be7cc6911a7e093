#pragma once

#include <span>

#include "model/oxnumeric/Vec.h"

namespace Orlix::Numeric {

/// Integrals of a region of the section plane about the origin. A vertex (x, y) of an outline is
/// the point (y, z) of the section: its members are named by the section's axes here.
struct AreaMoments {
  double area{};  ///< ∫ dA [m²]; positive for an anticlockwise outline
  double sy{};    ///< ∫ y dA [m³]
  double sz{};    ///< ∫ z dA [m³]
  double syy{};   ///< ∫ y² dA [m⁴]
  double szz{};   ///< ∫ z² dA [m⁴]
  double syz{};   ///< ∫ y z dA [m⁴]

  AreaMoments& operator+=(const AreaMoments& b);
};

/// Integrates a simple polygon by Green's theorem; exact but for rounding, O(n).
/// @param outline  (n) vertices (y, z) [m] in order, the first not repeated at the end.
/// @return moments about the origin; all zero when n < 3.
/// @pre    coordinates are finite and edges do not cross.
/// Laws:   (1) reversing the outline negates every member;
///         (2) the moments of an outline and of its holes, run the other way, add up.
/// Error:  the sums run about the first vertex. With s the largest distance between vertices, d the
///         largest distance from the origin and u = 2⁻⁵³ the area errs by at most 3n² u s² however
///         far the origin is, the first moments by 3n² u s² (s + d), the second by 3n² u s² (s +
///         d)².
/// Source: S. F. Bockman, Amer. Math. Monthly 96 (1989), 131–132.
AreaMoments MomentsOf(std::span<const Vec2<double>> outline);

/// Moments of an area lumped in a point; negative areas take away.
AreaMoments PointMoments(double area, Vec2<double> point);

/// Moments of the same region about another origin.
/// @param shift  (y, z) [m] by which the region moves: minus the new origin.
AreaMoments Shifted(const AreaMoments& m, Vec2<double> shift);

}  // namespace Orlix::Numeric
