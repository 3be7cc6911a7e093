#include "model/vldata/records/DetailedIntegrationResult.h"

#include <utility>

namespace Orlix::Data::Velmo9 {
namespace {

using ComponentMap = DetailedIntegrationResult::ComponentMap;

const std::shared_ptr<const ComponentMap>& NoComponents() {
  static const std::shared_ptr<const ComponentMap> kNone = std::make_shared<const ComponentMap>();
  return kNone;
}

}  // namespace

DetailedIntegrationResult::DetailedIntegrationResult() : components_(NoComponents()) {}

DetailedIntegrationResult::DetailedIntegrationResult(const Velmo9::Deformation& deformation,
                                                     const VelmoLoad& load,
                                                     std::shared_ptr<const ComponentMap> components)
    : deformation_(deformation),
      load_(load),
      components_(components ? std::move(components) : NoComponents()) {}

}  // namespace Orlix::Data::Velmo9
