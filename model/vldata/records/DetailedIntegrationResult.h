#pragma once

#include <map>
#include <memory>

#include "model/oxdata/materials/CMatCurveParam.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Data::Velmo9 {

/// The integration of one deformation over a section, with what is needed to find the stress
/// anywhere in it.
class DetailedIntegrationResult {
 public:
  /// What a component brings to the integration.
  struct ComponentDetails {
    Design::CMatCurveParam curve;  ///< the material's curve for the load state
    Velmo9::Deformation lockedIn;  ///< strain plane locked in from an earlier stage
    bool barResultsValid{};        ///< whether bar strains and stresses can be given
  };
  using ComponentMap = std::map<int, ComponentDetails>;

  DetailedIntegrationResult();
  /// @param components  by component index: every component that the task includes; shared by all
  ///                    results of one task and load state. Never null.
  DetailedIntegrationResult(const Velmo9::Deformation& deformation, const VelmoLoad& load,
                            std::shared_ptr<const ComponentMap> components);

  const Velmo9::Deformation& Deformation() const { return deformation_; }
  /// The load that the deformation carries.
  const VelmoLoad& Load() const { return load_; }
  const ComponentMap& Components() const { return *components_; }

 private:
  Velmo9::Deformation deformation_;
  VelmoLoad load_;
  std::shared_ptr<const ComponentMap> components_;
};

}  // namespace Orlix::Data::Velmo9
