#include "model/vldata/document/SLSResult.h"

#include <utility>

namespace Orlix::Data::Velmo9 {

SLSResult SLSResult::NotAskedFor() {
  SlsCaseSolution nothing;
  nothing.solved = true;
  return {nothing, nullptr, nullptr};
}

SLSResult::SLSResult(
    const SlsCaseSolution& solution,
    std::shared_ptr<const DetailedIntegrationResult::ComponentMap> uncrackedComponents,
    std::shared_ptr<const DetailedIntegrationResult::ComponentMap> crackedComponents)
    : solution_(solution),
      response_{{Deformation(solution.uncracked), VelmoLoad(solution.uncrackedLoad),
                 std::move(uncrackedComponents)},
                {Deformation(solution.cracked), VelmoLoad(solution.crackedLoad),
                 std::move(crackedComponents)},
                solution.zeta} {}

}  // namespace Orlix::Data::Velmo9
