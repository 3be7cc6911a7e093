#pragma once

#include <vector>

#include "model/oxdata/materials/CTableT.h"
#include "model/oxnumeric/section/CSegment.h"
#include "model/oxutil/Enumerations.h"

namespace Orlix::Data::Design {

using Numeric::CSegment;

/// Form of one side of a stress-strain curve. The numbers 2, 20 and 22 are fixed: reports and
/// rules test them.
enum class CurveKind : int {
  none = 0,               ///< no stress on this side
  linear = 1,             ///< E eps; an FRP without a limit of its own breaks at its strength
  explicitPoints = 2,     ///< the curve's own table of points
  bilinear = 3,           ///< straight to the strength at epsPeak, or at strength / E without it;
                          ///< then straight to epsHardening, horizontal beyond it or without it
  parabolaRectangle = 4,  ///< f (1 - (1 - eps/epsPeak)^exponent), then f
  rectangularBlock = 5,   ///< f from blockStart on
  nonLinear = 6,          ///< EN 1992-1-1 (3.14), short-term; needs a limit where it is positive
  // The two whole serviceability models of a concrete. Their segments are the common part, linear
  // in compression and no tension; the serviceability solver adds the tension that the model asks
  // for.
  bs8110Tension = 20,  ///< BS 8110-2, 3.6
  interpolated = 22    ///< EN 1992-1-1, 7.4.3
};

/// One side (compression or tension) of a curve. Strains are positive numbers on either side;
/// zero says "not given" where a member allows it.
struct CurveShape {
  CurveKind kind{CurveKind::none};
  double epsPeak{};         ///< eps_c2, eps_c3 or eps_c1: strain at which the strength is reached
  double exponent{2.0};     ///< n of the parabola-rectangle
  double epsLimit{};        ///< failure strain; 0: none, a numerical cap bounds the curve
  double uniformLimit{};    ///< strain limit under uniform compression; 0: none
  double blockStart{};      ///< strain at which a rectangular block begins
  double blockFactor{1.0};  ///< eta: the block's stress over the strength
  double hardening{1.0};    ///< bilinear: stress at epsHardening over the strength
  double epsHardening{};    ///< bilinear: strain of the second branch's end; 0: horizontal
  double slope{};           ///< linear: modulus of this side [Pa]; 0: that of the curve's scale

  friend bool operator==(const CurveShape&, const CurveShape&) = default;
};

/// Strength and stiffness that give a shape its size.
struct CurveScale {
  double strength{};  ///< f [Pa], of the load state: alpha f_k / gamma at ULS, f_k at SLS
  double modulus{};   ///< E [Pa]
  friend bool operator==(const CurveScale&, const CurveScale&) = default;
};

/// Stress-strain curve of a material for one load state. Compression positive in strain and
/// stress; the one table of explicit points alone is tension positive, as users give it.
class CMatCurveParam {
 public:
  /// A curve without segments: not valid until a shape or points are set.
  CMatCurveParam() = default;
  /// @param type  decides the numerical caps on strain: 1.0 concrete, 0.1 reinforcement,
  ///              0.05 structural steel and FRP
  explicit CMatCurveParam(MatType type) : type_(type) {}

  /// Sets both sides and rebuilds the segments. A shape that makes no sense (a negative strain, a
  /// peak beyond the limit, a missing strength or modulus) leaves no segments.
  void SetShapes(const CurveShape& compression, const CurveShape& tension, const CurveScale& scale);
  /// Sets the points (strain, stress [Pa]), tension positive; used by the sides whose kind is
  /// explicitPoints. Straight lines join them in the order of their strain, whatever their order in
  /// the table; two points at one strain make a vertical step, the way they follow each other in a
  /// table that runs up (or down) in strain. A side whose points do not begin at zero strain begins
  /// at the origin. Steel and reinforcement mirror a table given for one sign only, others have no
  /// stress on that side; a last point is the strain limit.
  /// @throws std::invalid_argument when the table does not have two columns.
  void SetExplicitPoints(const CTableT<double>& points);

  /// Segments in ascending strain, compression positive, without gaps; empty: no valid curve.
  /// Their ends are the strain limits.
  const std::vector<CSegment>& Segments() const { return segments_; }
  /// Stress [Pa] at a strain; beyond the limits the end value is held. 0 for an empty curve.
  double Stress(double strain) const;
  /// Strain for a stress [Pa]: the sign picks the side; the smallest |strain| that reaches it; on a
  /// plateau its start; above the peak the strain of the peak.
  double Strain(double stress) const;

  CurveKind Kind(LoadSign sign) const { return Shape(sign).kind; }
  const CurveShape& Shape(LoadSign sign) const;
  const CurveScale& Scale() const { return scale_; }
  const CTableT<double>& ExplicitPoints() const { return points_; }

  /// Failure strains, positive numbers.
  double CompressionLimit() const;
  double TensionLimit() const;
  /// Whether the limit of a side is a numerical cap and not the material's own.
  bool IsLimitCap(LoadSign sign) const;
  /// Strain limit under uniform compression; 0: none.
  double UniformCompressionLimit() const;

  friend bool operator==(const CMatCurveParam&, const CMatCurveParam&) = default;

 private:
  void Rebuild();

  MatType type_{MatType::none};
  CurveShape compression_;
  CurveShape tension_;
  CurveScale scale_;
  CTableT<double> points_{2};
  std::vector<CSegment> segments_;
  bool compressionIsCap_{};
  bool tensionIsCap_{};
};

}  // namespace Orlix::Data::Design
