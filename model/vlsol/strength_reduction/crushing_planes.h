#pragma once

#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::VlSol {

/// The strain planes of a section with its concrete at the failure strain, by the place of the
/// neutral axis. The section is taken as built in one go: what stages locked in is left out.
class CrushingPlanes {
 public:
  /// A section at the ultimate limit state, without limits on strain: for integration alone.
  explicit CrushingPlanes(const Numeric::CompiledSection& compiled);

  /// Whether there is concrete with a failure strain of its own; without, nothing below has a
  /// meaning.
  bool HasConcrete() const { return !concretes_.empty(); }
  const Numeric::CompiledSection& Section() const { return section_; }

  /// Places along a direction of growing strain, about the section's centre [m].
  struct Reach {
    double compressed{};  ///< extreme compressive fibre of the concrete
    double farFace{};     ///< extreme fibre of the concrete on the other side
    double outermost{};   ///< the bar nearest to the tension face; -infinity without bars
  };
  /// @param direction  (y, z), of length 1
  Reach ReachAlong(Vec2<double> direction) const;
  /// The plane without strain at a place along a direction.
  /// @param zero  [m], beyond the extreme compressive fibre
  Numeric::Plane At(Vec2<double> direction, double zero) const;

  /// Strains of the concrete under a plane of the section with its stages.
  struct Strains {
    Numeric::Plane total;  ///< with what is locked into the most compressed concrete
    double least{};
    double largest{};
  };
  Strains StrainsUnder(const Numeric::Plane& plane) const;
  /// Direction (y, z) in which the strain of a plane grows, of length 1; z for a plane without
  /// curvature.
  Vec2<double> DirectionOf(const Numeric::Plane& plane) const;

 private:
  struct Concrete {
    std::size_t region{};
    double failure{};  // strain, positive
    Numeric::Plane locked;
  };
  Numeric::CompiledSection section_;
  std::vector<Concrete> concretes_;
};

}  // namespace Orlix::VlSol
