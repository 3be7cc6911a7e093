#pragma once

#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vlsol/strength_reduction/strength_reduction.h"

namespace Orlix::VlSol {

/// What is plotted. A moment's direction a says that Myy = M cos a and Mzz = M sin a; it is the
/// direction of the moment that is held, the neutral axis turns as it must.
enum class DiagramKind {
  axialMoment,     ///< N against M of a held direction, both signs of M: a closed curve
  biaxialMoment,   ///< Myy against Mzz at a held axial force: a closed curve
  momentCurvature  ///< M against its curvature at a held axial force and direction of M
};

/// Points of a diagram that have a name.
enum class DiagramMark {
  none,
  pureCompression,  ///< largest compression without moments
  decompression,    ///< the neutral axis leaves the outline: nothing of it is in tension
  balanced,         ///< the first steel yields in tension as a limit in compression is reached
  pureBending,      ///< no axial force; in a biaxial diagram one of the two moments is zero
  pureTension,      ///< largest tension without moments
  axialCap,         ///< corner where the code caps the axial force, of the design curve alone
  start,            ///< no moment: a prestressed or unsymmetric section is curved all the same
  cracking,         ///< concrete with tension reaches the end of its straight part
  firstYield,       ///< the first steel yields in tension, bar or outline
  peak,             ///< first peak of the moment, where the curve falls before it ends
  failure,          ///< a strain limit is reached: the curve ends here
  axialLost         ///< the held axial force is carried no further: the curve ends here
};

/// "pure compression" and so on; empty for none.
const char* NameOf(DiagramMark mark);

/// A state on a diagram's curve. Loads (N, Myy, Mzz) and planes (eps0, kyy, kzz) are about the
/// section's origin, tension positive.
struct DiagramPoint {
  /// Where the point lies in the diagram: (M, N) [Nm, N], N positive in tension; (Myy, Mzz) [Nm];
  /// (curvature, M) [1/m, Nm].
  Vec2<double> at;
  Vec3<double> load;            ///< nominal, or phi times it on the design curve
  Vec3<double> plane;           ///< strain plane that goes with the nominal load
  double reductionFactor{1.0};  ///< phi of the plane, on both curves; 1 under partial factors
  /// Gauge of the plane: 1 at a strain limit; NaN in service.
  double strainUtilisation{};
  bool limitIsCap{};  ///< the limit is a numerical cap on strain, none of a material
  DiagramMark mark{DiagramMark::none};
};

/// A load of the task, drawn into a diagram of axial force and moment or of two moments.
struct DiagramLoad {
  int iCase{};          ///< from 0
  Vec2<double> at;      ///< projection on the diagram's plane, coordinates as of its points
  Vec3<double> load;    ///< (N, Myy, Mzz) [N, Nm]
  double outOfPlane{};  ///< what the projection leaves out: the moment across [Nm], or N - held N
  bool isInPlane{};     ///< nothing worth the name is left out
  /// Of the load, or of the deformation where deformations are imposed; +infinity: no capacity.
  double utilisation{};
  bool isCarried{};
  bool isGoverning{};  ///< the largest utilisation of the task, the first of equals
};

/// Why there is no curve.
enum class DiagramProblem {
  none,
  notCompiled,  ///< see SectionCompiler::Problems
  notComputed,  ///< the task does not compute the limit state asked for
  noCapacity,   ///< no moment of the diagram's plane is within the strain limits
  axialForce    ///< the held axial force is beyond what the section carries
};

/// A diagram. Closed curves run once around, without repeating the first point at the end; a curve
/// of curvatures runs from no moment to its end. In service it is that of the reported plane under
/// each moment and ends as the first steel yields in the cracked state, or where there is no
/// further solution. Points with a mark are part of the curves.
struct Diagram {
  DiagramKind kind{DiagramKind::axialMoment};
  LoadState state{LoadState::ULS};
  double angle{};  ///< held direction of the moment [rad]; of no meaning in a biaxial diagram
  double axial{};  ///< held axial force [N]; of no meaning in a diagram of axial forces
  DiagramProblem problem{DiagramProblem::none};
  /// Under partial factors this is the design resistance itself.
  std::vector<DiagramPoint> nominal;
  /// Under strength reduction: phi applied and the axial force capped; else empty. Of a curve of
  /// curvatures the one point of the design moment, with the nominal plane behind it.
  std::vector<DiagramPoint> design;
  std::vector<DiagramLoad> loads;

  bool IsClosed() const { return kind != DiagramKind::momentCurvature; }
};

/// What is asked for.
struct DiagramRequest {
  DiagramKind kind{DiagramKind::axialMoment};
  double angle{};   ///< [rad]
  double axial{};   ///< [N], tension positive
  int points{100};  ///< about so many on a curve, at least kFewestPoints; marks are among them
  LoadState state{LoadState::ULS};  ///< SLS for a curve of curvatures alone

  static constexpr int kFewestPoints = 12;
  static constexpr int kMostPoints = 100000;
};

/// The diagram of a compiled section at the ultimate limit state, without loads. `state` is passed
/// over.
/// @param reduction  null: partial factors alone
/// @return with `problem` set and without points where there is none
/// Error: every point is found to 1e-10 of its load, as by SolveUlsLoad.
/// Laws:  (1) closed curves are star-shaped about a load inside, so they cross themselves nowhere;
///        (2) the moment across the held direction is zero;
///        (3) along the ray of a point SolveUlsLoad finds utilisation 1.
Diagram DiagramOf(const Numeric::CompiledSection& section, const DiagramRequest& request,
                  const StrengthReduction* reduction = nullptr);

/// The diagram of a task with its loads; their utilisations are those of the task's results, NaN
/// for a case that has none.
/// @throws std::out_of_range for no such task, std::invalid_argument for a request that is not
/// finite, asks for too few or too many points or for a service state where there is none
Diagram DiagramOf(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                  int iTask, const DiagramRequest& request);

}  // namespace Orlix::VlSol
