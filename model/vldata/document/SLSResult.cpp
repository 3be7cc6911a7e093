#include "model/vldata/document/SLSResult.h"

#include <algorithm>
#include <utility>

#include "model/oxdata/materials/service_curves.h"

namespace Orlix::Data::Velmo9 {
namespace {

using ComponentMap = DetailedIntegrationResult::ComponentMap;

// The details of a cracked state whose concretes of the BS 8110 model have a case's own slope in
// tension; the shared details where there is no such concrete.
std::shared_ptr<const ComponentMap> WithSlope(std::shared_ptr<const ComponentMap> components,
                                              double modulus) {
  const auto isBs8110 = [](const auto& entry) {
    return entry.second.cracking && entry.second.cracking->bs8110;
  };
  if (!components || std::none_of(components->begin(), components->end(), isBs8110)) {
    return components;
  }
  auto own = std::make_shared<ComponentMap>(*components);
  for (auto& entry : *own) {
    if (!isBs8110(entry)) continue;
    const double slope = std::min(modulus, entry.second.cracking->modulus);
    entry.second.curve = Design::WithTensionModulus(entry.second.curve, slope);
  }
  return own;
}

}  // namespace

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
                 WithSlope(std::move(crackedComponents), solution.tensionModulus)},
                solution.zeta} {}

}  // namespace Orlix::Data::Velmo9
