#pragma once

#include "model/oxnumeric/linear_solve.h"
#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::Numeric {

/// Which form of the curves is integrated. The three differ only where curves have steps.
enum class CurveForm {
  exact,    ///< steps everywhere
  regular,  ///< material displaced by bars without steps: its force then has a derivative
  ramp      ///< no steps at all
};

/// Resultant of a strain plane and its derivative.
struct Response {
  Resultant force{};
  Sym3 tangent{};  ///< ∂force/∂plane
};

/// Integrates the stresses of a strain plane over a section; no mesh, no allocation.
/// @param d  plane about the section's centre (`CompiledSection::ToLocal`)
/// @return resultant about the centre
/// Error:  1e-15 of the squash force for pieces up to cubic, 1e-11 for power and rational pieces,
///         at every curvature.
/// Source: Green line integrals along the edges in the frame of the strain gradient, after
///         A. Fafitis, J. Struct. Eng. 127 (2001), 840-846; stress steps by their fronts' chords.
Resultant Integrate(const CompiledSection& section, const Plane& d,
                    CurveForm form = CurveForm::exact);

/// As `Integrate`, with the exact tangent; fronts of stress steps included.
Response IntegrateWithTangent(const CompiledSection& section, const Plane& d,
                              CurveForm form = CurveForm::exact);

}  // namespace Orlix::Numeric
