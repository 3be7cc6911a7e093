#pragma once

#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/vlsol/cracks/crack_state.h"

namespace Orlix::VlSol {

/// The cracks of each face in tension by BS 8110-2, 3.8.3: for every bar the widest within the part
/// of the face that it is nearest to. Where the cracked plane already has tension between cracks it
/// gives the mean strain by itself, equation 13 elsewhere; h - x there is at most 2h, the value of
/// pure tension. The code halves the concrete's modulus for this check, which is the task's to say:
/// a creep coefficient of 1.
void FindSurfaceCracks(const Data::Design::Bs8110::CrackWidthParameters& rule,
                       const CrackState& state, CrackSink& sink);

}  // namespace Orlix::VlSol
