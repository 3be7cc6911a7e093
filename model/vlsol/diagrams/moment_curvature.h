#pragma once

#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix::VlSol {

/// As DiagramOf for moments and curvatures at the ultimate limit state.
Diagram MomentCurvatureDiagram(const Numeric::CompiledSection& section,
                               const DiagramRequest& request, const StrengthReduction* reduction);

}  // namespace Orlix::VlSol
