#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "model/oxnumeric/section/failure.h"
#include "model/vlsol/strength_reduction/crushing_planes.h"

namespace Orlix::VlSol {

/// Capacity of a section whose concrete is in compression throughout, where a code replaces the
/// strain-limited one: straight lines from the points of decompression, with the concrete at its
/// failure strain on one face and at none on the far one, to the squash load. The direction of the
/// moment about the squash load's line of action stays the same along each of them.
/// Source: AS 3600:2018, 10.6.2.2 to 10.6.2.4.
class SquashLine {
 public:
  /// @param squash  nominal squash load about the section's centre, with its moments
  SquashLine(std::shared_ptr<const CrushingPlanes> planes, const Numeric::Resultant& squash);

  /// Where a load path meets the lines. Allocates nothing.
  /// @param nominal  where it leaves the strain domain, about the section's centre; null: nowhere
  /// @return the path's factor; nothing where the neutral axis stays in the concrete
  /// Error: 1e-11 relative.
  std::optional<double> FactorOn(const Numeric::LoadPath& path,
                                 const Numeric::Plane* nominal) const;

 private:
  std::shared_ptr<const CrushingPlanes> planes_;
  Numeric::Resultant squash_;  // scaled: moments over the section's radius
};

/// The squash load about the section's centre: concrete at a stress of its own, steel at a strain.
/// @param concrete  stress of the concretes [Pa], positive, for each curve of the section; 0: none
/// @param strain    of steel, positive
Numeric::Resultant SquashLoad(const Numeric::CompiledSection& section,
                              const std::vector<double>& concrete, double strain);

}  // namespace Orlix::VlSol
