#pragma once

#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/linear_solve.h"
#include "model/oxnumeric/section/CSegment.h"
#include "model/oxnumeric/section/StressCurve.h"

namespace Orlix::Numeric {

/// Strain plane (e0, ky, kz): e(y, z) = e0 + ky z - kz y.
using Plane = Vec3<double>;
/// Resultant (N, My, Mz): N = ∫σ dA, My = ∫σ z dA, Mz = -∫σ y dA.
using Resultant = Vec3<double>;

/// The vector phi(y, z) with e = phi·d and F = ∫ phi σ dA: the one place that knows the sign of y.
inline Vec3<double> Phi(Vec2<double> p) { return {1.0, p.y, -p.x}; }

/// A part of the section made of one curve. Regions do not overlap.
struct RegionInput {
  /// Outlines and holes in any order and sense; `isHole` tells them apart.
  struct Ring {
    std::vector<Vec2<double>> vertices;  ///< (y, z) [m]
    bool isHole{};
  };
  std::vector<Ring> rings;
  int curve{};     ///< index into SectionInput::curves
  Plane locked{};  ///< strain plane locked in before the section was loaded
};

/// An area lumped at a point: a bar.
struct PointAreaInput {
  Vec2<double> position;  ///< (y, z) [m]
  double area{};          ///< [m²]
  int curve{};            ///< index into SectionInput::curves
  double prestrain{};     ///< added to the strain of the section; tension positive
  Plane locked{};         ///< locked-in plane that the bar takes
  int host{-1};           ///< region it displaces material of; -1: none
};

/// What a section is made of; all tension positive, coordinates about the section's origin.
struct SectionInput {
  std::vector<CurveInput> curves;
  std::vector<RegionInput> regions;
  std::vector<PointAreaInput> points;
};

/// A section ready for integration: immutable, small, shared by all threads. Everything in it is
/// about `centre`, the centre of gravity of the outlines, so that a far origin costs no digits.
struct CompiledSection {
  struct Region {
    std::vector<std::vector<Vec2<double>>> rings;  ///< outlines anticlockwise, holes clockwise
    std::vector<Vec2<double>> hull;                ///< of all outlines: where strains are extreme
    int curve{};
    Plane locked{};
  };
  struct PointArea {
    Vec2<double> position;
    double area{};
    int curve{};
    int displacedCurve{-1};    ///< curve of the material displaced; -1: none
    double strainOffset{};     ///< locked-in strain at the bar and prestrain
    double lockedOffset{};     ///< locked-in strain of the bar alone
    double displacedOffset{};  ///< locked-in strain of the material around it
  };

  /// A place where a strain limit is reached first: a hull vertex or a point area.
  struct LimitPoint {
    Vec3<double> phi;
    double inverseUpper{};  ///< 1 / (upper limit - locked-in strain), positive
    double inverseLower{};  ///< 1 / (lower limit - locked-in strain), negative
    bool upperIsCap{};
    bool lowerIsCap{};
  };

  std::vector<StressCurve> curves;
  std::vector<Region> regions;
  std::vector<PointArea> points;
  std::vector<LimitPoint> limits;
  Vec2<double> centre;       ///< (y, z) [m] in the section's axes
  double radius{1.0};        ///< R: largest distance of a vertex or bar from the centre [m]
  double squash{};           ///< F_s: Σ A max|σ| [N], the scale of all tolerances
  double mostTension{};      ///< no state within the limits carries more axial force [N]
  double mostCompression{};  ///< or less, negative [N]
  Sym3 elastic{};            ///< tangent with every curve at its reference modulus, full areas
  bool hasSteps{};           ///< some curve jumps upwards
  bool softens{};            ///< some curve falls inside its limits
  bool hasLockedRegions{};   ///< some region has a locked-in plane
  bool lockedBeyondLimit{};  ///< locked-in strain alone uses up a limit: no plane is admissible

  /// From the section's origin to the centre and back.
  Plane ToLocal(const Plane& d) const;
  Plane ToOrigin(const Plane& d) const;
  Resultant LoadToLocal(const Resultant& f) const;
  Resultant LoadToOrigin(const Resultant& f) const;
};

/// Prepares a section: merges duplicate vertices, drops rings without area, orients the rings,
/// shifts to the centre and derives the solver's curves. O(n log n).
/// @pre indices are in range, all numbers finite, limits of the curves on both sides of zero.
CompiledSection Compile(const SectionInput& input);

}  // namespace Orlix::Numeric
