#include "model/vldata/document/UlSResult.h"

#include <utility>

namespace Orlix::Data::Velmo9 {

UlSResult::UlSResult(const UlsCaseSolution& solution,
                     std::shared_ptr<const DetailedIntegrationResult::ComponentMap> components)
    : solution_(solution),
      response_(Velmo9::Deformation(solution.deformation), VelmoLoad(solution.load),
                std::move(components)) {}

}  // namespace Orlix::Data::Velmo9
