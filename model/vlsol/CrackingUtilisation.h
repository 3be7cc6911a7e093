#pragma once

#include <map>

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/DetailedIntegrationResult.h"

namespace Orlix::VlSol {

/// How near a serviceability state is to cracking: above 1 the section is cracked. The largest,
/// over the concrete components, of the tension that uncracked concrete would have at an outline
/// vertex over f_ct; under the model of BS 8110-2, 3.6, of the tension at the level of the steel
/// over the one that the code allows there.
/// @param deformation  of the uncracked state; locked-in planes of the components are added
double CrackingUtilisation(
    const Data::CVelmoData& document, const Data::Velmo9::Deformation& deformation,
    const std::map<int, Data::Velmo9::DetailedIntegrationResult::ComponentDetails>& components);

/// The same: the details of the components hold all that the document would tell.
double CrackingUtilisation(const Data::Velmo9::Deformation& deformation,
                           const Data::Velmo9::DetailedIntegrationResult::ComponentMap& components);

}  // namespace Orlix::VlSol
