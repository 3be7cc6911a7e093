#pragma once

#include <array>
#include <cstdint>

namespace Orlix::Numeric {

/// Form of a stress-strain curve between two strains.
enum class SegmentKind : std::uint8_t { zero, constant, linear, cubic, power, rational };

/// One piece of a stress-strain curve. The sign convention is its owner's: material curves count
/// compression positive, the solver's curves tension positive; `Mirrored` goes from one to the
/// other.
///
/// With x = eps - origin and coefficients c the stress [Pa] is
///   zero      0
///   constant  c0
///   linear    c0 + c1 x
///   cubic     c0 + c1 x + c2 x² + c3 x³
///   power     c0 + c1 q^c3, q = c2 x, q >= 0 on the piece, c3 > 1
///   rational  (c0 x + c1 x²) / (1 + c2 x), without a pole on the piece
struct CSegment {
  double from{};  ///< smallest strain of the piece
  double to{};    ///< largest strain; the piece is [from, to)
  SegmentKind kind{SegmentKind::zero};
  double origin{};            ///< strain at which x = 0
  std::array<double, 4> c{};  ///< coefficients, see above

  static CSegment Zero(double from, double to);
  static CSegment Constant(double from, double to, double stress);
  /// The straight line through (from, stressFrom) and (to, stressTo).
  static CSegment Line(double from, double to, double stressFrom, double stressTo);
  static CSegment Cubic(double from, double to, double origin, std::array<double, 4> c);
  static CSegment Power(double from, double to, double origin, double c0, double c1, double scale,
                        double exponent);
  static CSegment Rational(double from, double to, double origin, double c0, double c1, double c2);

  /// Whether the coefficients are those of a polynomial in x: all kinds up to cubic. Zero, constant
  /// and linear pieces hold zeros behind their own coefficients.
  bool IsPolynomial() const { return kind <= SegmentKind::cubic; }
  double PolynomialStress(double x) const { return c[0] + x * (c[1] + x * (c[2] + x * c[3])); }
  double PolynomialTangent(double x) const { return c[1] + x * (2.0 * c[2] + x * 3.0 * c[3]); }

  /// Stress [Pa] of the piece's formula at a strain; also outside [from, to).
  double Stress(double eps) const {
    return IsPolynomial() ? PolynomialStress(eps - origin) : TranscendentStress(eps - origin);
  }
  /// Slope of the piece's formula at a strain [Pa].
  double Tangent(double eps) const {
    return IsPolynomial() ? PolynomialTangent(eps - origin) : TranscendentTangent(eps - origin);
  }
  /// The piece of the mirrored curve s'(e) = -s(-e).
  CSegment Mirrored() const;

  friend bool operator==(const CSegment&, const CSegment&) = default;

 private:
  double TranscendentStress(double x) const;  // power and rational pieces
  double TranscendentTangent(double x) const;
};

}  // namespace Orlix::Numeric
