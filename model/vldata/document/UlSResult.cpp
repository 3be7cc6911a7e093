#include "model/vldata/document/UlSResult.h"

#include <limits>
#include <utility>

namespace Orlix::Data::Velmo9 {

UlSResult::UlSResult() {
  solution_.loadUtilisation = solution_.deformationUtilisation = solution_.momentRatio =
      std::numeric_limits<double>::infinity();
}

UlSResult UlSResult::NotAskedFor() {
  UlsCaseSolution nothing;
  nothing.carried = true;
  return {nothing, nullptr};
}

UlSResult::UlSResult(const UlsCaseSolution& solution,
                     std::shared_ptr<const DetailedIntegrationResult::ComponentMap> components)
    : solution_(solution),
      response_(Velmo9::Deformation(solution.deformation), VelmoLoad(solution.load),
                std::move(components)) {}

}  // namespace Orlix::Data::Velmo9
