#pragma once

#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/DetailedIntegrationResult.h"

namespace Orlix::VlSol {

/// A straight piece of an outline, with the concrete to its left.
struct CrackEdge {
  Vec2<double> start;
  Vec2<double> direction;  ///< unit
  Vec2<double> normal;     ///< unit, outwards
  double length{};         ///< [m]

  Vec2<double> At(double s) const { return start + s * direction; }
};

/// Edges that go on in nearly one direction: a side, or a whole curved outline.
struct CrackFace {
  std::vector<CrackEdge> edges;
  std::vector<double> covers;  ///< by bar: from its surface to the face [m]
};

struct CrackBar {
  Vec2<double> position;
  double area{};
  double diameter{};     ///< of a bar known by its area alone: of the circle with that area
  double modulus{};      ///< [Pa]
  double yieldStrain{};  ///< f_yk / E
  bool isPrestressed{};  ///< counts as a pretensioned strand
};

/// A concrete component as crack widths see it.
struct CrackComponent {
  int index{};  ///< in the section
  std::vector<Data::SectionPolygon> polygons;
  std::vector<CrackFace> faces;  ///< of the outlines; what lies in another component is left out
  std::vector<CrackBar> bars;    ///< all of the component, in its order
  double f_ct{};                 ///< mean tensile strength [Pa]
  double modulus{};              ///< short-term modulus E_cm [Pa]
  bool carriesTension{};         ///< between cracks: the model's plane includes the stiffening
  bool neverCracks{};            ///< linear in tension at any strain: no plane is that of cracks
  Data::Velmo9::Deformation lockedIn;
  Data::Velmo9::Deformation lockedIntoBars;

  /// The concrete components that a task includes.
  /// @param cracked  details of the cracked state
  static std::vector<CrackComponent> Of(
      const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section, int iTask,
      const Data::Velmo9::DetailedIntegrationResult::ComponentMap& cracked);
};

/// Part of a component on one side of a line.
struct CutArea {
  double area{};   ///< with u >= level [m²]
  double chord{};  ///< length of the line in the component [m]
};

/// Cuts polygons, holes taken out, at u = direction . p = level.
/// @param direction  unit
CutArea CutAt(const std::vector<Data::SectionPolygon>& polygons, Vec2<double> direction,
              double level);

}  // namespace Orlix::VlSol
