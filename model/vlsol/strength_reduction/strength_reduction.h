#pragma once

#include <limits>
#include <optional>
#include <variant>
#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/failure.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vlsol/strength_reduction/neutral_axis_factor.h"
#include "model/vlsol/strength_reduction/squash_line.h"

namespace Orlix::VlSol {

/// phi that rises in a straight line with the net tensile strain of the extreme tension bar at
/// nominal failure.
/// Source: ACI 318-14 and -19, 21.2.2; the task's own factors under any code.
struct NetStrainFactor {
  /// Strains between which phi rises, for each point area of the compiled section.
  struct Range {
    double compression{};  ///< compression-controlled up to this strain
    double tension{};      ///< tension-controlled from this strain on
  };
  std::vector<Range> ranges;
  double phiCompression{1.0};
  double phiTension{1.0};

  /// phi of a nominal failure plane about the section's centre; phiCompression without bars.
  double Phi(const Numeric::CompiledSection& section, const Numeric::Plane& failure) const;
};

/// Strength reduction of a task, ready for the search: phi of a nominal failure by the code's rule,
/// and what else the code does to the nominal capacity in compression.
struct StrengthReduction {
  std::variant<NetStrainFactor, NeutralAxisFactor> factor;
  double phiCompression{1.0};  ///< least phi: of governing compression
  double phiTension{1.0};      ///< largest phi
  /// Largest nominal compression, positive [N].
  double axialCap{std::numeric_limits<double>::infinity()};
  /// In the place of the strain-limited capacity where the concrete is in compression throughout.
  std::optional<SquashLine> squashLine{};

  /// phi of a nominal failure plane about the section's centre.
  double Phi(const Numeric::CompiledSection& section, const Numeric::Plane& failure) const;
  /// The load that the code gives a failure plane over the one that its stresses make up; other
  /// than 1 on the squash line alone.
  double LineFactor(const Numeric::CompiledSection& section, const Numeric::Plane& failure) const;
};

/// The strength reduction of a task; under partial factors phi is 1, and there is none without a
/// cap on the axial resistance.
/// @param compiled  the task's section at the ultimate limit state
std::optional<StrengthReduction> StrengthReductionOf(const Data::CVelmoData& document,
                                                     const Data::Velmo9::VelmoSection& section,
                                                     int iTask,
                                                     const Numeric::CompiledSection& compiled);

/// Design moment capacity over the moment at held axial force: the smallest mu with
/// phi(d) F(d) = (N, mu M), phi being that of the nominal failure plane d.
/// @param load   (N, Myy, Mzz) about the section's origin, with a moment
/// @param start  a plane near the equilibrium of the load, about the section's centre
/// @return nothing when the axial force alone is beyond what the section takes
std::optional<double> ReducedMomentFactor(const Numeric::CompiledSection& section,
                                          const StrengthReduction& reduction,
                                          const Vec3<double>& load, const Numeric::Plane& start);

}  // namespace Orlix::VlSol
