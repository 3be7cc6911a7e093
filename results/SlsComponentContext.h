#pragma once

#include "model/vldata/records/DetailedIntegrationResult.h"
#include "model/vldata/records/SlsResponse.h"
#include "results/TaskSamples.h"

namespace Orlix {

/// What the strains of one component at the serviceability limit state are computed from; refers to
/// what its maker holds.
struct SlsComponentContext {
  using ComponentDetails = Data::Velmo9::DetailedIntegrationResult::ComponentDetails;

  const TaskSamples::Component& component;
  const Data::Velmo9::SlsResponse& response;
  const ComponentDetails& uncracked;  ///< empty details when the response has none of this state
  const ComponentDetails& cracked;
  bool calculateCracked{};  ///< whether the cracked state of the task's materials is of its own
};

}  // namespace Orlix
