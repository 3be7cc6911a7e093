#pragma once

#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix::VlSol {

/// As DiagramOf for the kinds of closed curves.
Diagram AxialMomentDiagram(const Numeric::CompiledSection& section, const DiagramRequest& request,
                           const StrengthReduction* reduction);
Diagram BiaxialMomentDiagram(const Numeric::CompiledSection& section, const DiagramRequest& request,
                             const StrengthReduction* reduction);

}  // namespace Orlix::VlSol
