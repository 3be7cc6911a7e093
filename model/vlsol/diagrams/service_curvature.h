#pragma once

#include "model/vlsol/diagrams/diagrams.h"
#include "model/vlsol/sls.h"

namespace Orlix::VlSol {

/// The reported plane's curvature under each moment of a held direction, the axial force held: from
/// no moment to the first yield of steel in the cracked state, or as far as there is a solution.
Diagram ServiceCurvatureDiagram(const SlsModel& model, const DiagramRequest& request);

}  // namespace Orlix::VlSol
