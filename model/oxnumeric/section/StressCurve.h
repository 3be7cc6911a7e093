#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "model/oxnumeric/section/CSegment.h"

namespace Orlix::Numeric {

/// A material curve as the compile step gets it; tension positive.
struct CurveInput {
  std::vector<CSegment> segments;  ///< ascending, without gaps; the ends are the strain limits
  double uniformLimit{};           ///< strain limit under uniform compression, positive; 0: none
  bool compressionLimitIsCap{};    ///< the lower end is a numerical cap, not a material limit
  bool tensionLimitIsCap{};        ///< the upper end is a numerical cap, not a material limit
};

/// A piecewise curve over all strains, for fast look-up. Tension positive.
class PiecewiseCurve {
 public:
  PiecewiseCurve() = default;
  /// @param negligible  a jump of the stress up to this size is round-off of the curve's data [Pa]
  /// @pre segments are ascending without gaps, the first from -infinity, the last to +infinity.
  PiecewiseCurve(std::vector<CSegment> segments, double negligible);

  std::size_t size() const { return segments_.size(); }
  const CSegment& operator[](std::size_t i) const { return segments_[i]; }
  /// Multiplies the stress of the pieces from zero strain on, all of them polynomials.
  void ScaleTension(double factor);
  /// Jump of the stress where segment i begins [Pa]; 0 where the curve is continuous.
  double Jump(std::size_t i) const { return jumps_[i]; }
  /// Index of the segment [from, to) that holds a strain.
  std::size_t Locate(double eps) const {
    std::size_t i = middle_;
    while (eps >= segments_[i].to && i + 1 < segments_.size()) ++i;
    while (eps < segments_[i].from && i > 0) --i;
    return i;
  }

 private:
  std::vector<CSegment> segments_;
  std::vector<double> jumps_;
  std::size_t middle_{};  // the segment that holds zero strain: where most searches end
};

/// A curve as the solver uses it. Beyond the limits the stress goes on with a small positive slope,
/// so that an equilibrium exists for every load; no reported state lies there.
struct StressCurve {
  PiecewiseCurve exact;
  PiecewiseCurve ramp;  ///< steps replaced by steep ramps: starts Newton; as exact without steps
  PiecewiseCurve displaced;  ///< for material displaced by bars: steps no steeper than 100 GPa
  double lower{};            ///< failure strain in compression, negative
  double upper{};            ///< failure strain in tension, positive
  double uniformLimit{};     ///< strain limit under uniform compression, positive; 0: none
  double modulus{};          ///< reference modulus E0 [Pa]; 0 for a curve without stress
  double maxStress{};        ///< largest |stress| within the limits [Pa]
  double stressAtLower{};
  double stressAtUpper{};
  bool lowerIsCap{};
  bool upperIsCap{};
  bool hasSteps{};  ///< jumps upwards within the limits
  bool softens{};   ///< falls somewhere within the limits

  /// Multiplies the stress in tension: another slope of a tension side that is straight from the
  /// origin.
  void ScaleTension(double factor);
};

/// Derives the solver's forms of a curve.
/// @pre  segments are not empty and hold zero strain.
StressCurve MakeStressCurve(const CurveInput& input);

}  // namespace Orlix::Numeric
