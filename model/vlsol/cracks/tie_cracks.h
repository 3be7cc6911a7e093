#pragma once

#include "model/oxdata/codes/en1992/crack_width.h"
#include "model/vlsol/cracks/crack_state.h"

namespace Orlix::VlSol {

/// The crack of each face in tension by EN 1992-1-1, 7.3.4. The bars and the concrete that they
/// hold together are those between the most strained edge and a line parallel to the neutral axis;
/// as the strain becomes uniform the line turns parallel to the face, and every face is looked at.
/// Where the code's words give no number between two cases the width passes from one to the other
/// without a jump: a bar counts by the part of its diameter behind the line, the effective depth by
/// how uniform the strain is, and a face that slants by more than 83° to the gradient fades out.
/// @param longShare  part of the load that acts long, 0 to 1
void FindTieCracks(const Data::Design::En1992::CrackWidthParameters& rule, const CrackState& state,
                   double longShare, CrackSink& sink);

}  // namespace Orlix::VlSol
