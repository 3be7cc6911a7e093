#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "model/oxdata/materials/CMatCurveParam.h"
#include "model/vldata/records/Deformation.h"
#include "model/vldata/records/VelmoLoad.h"

namespace Orlix::Data::Velmo9 {

/// The integration of one deformation over a section, with what is needed to find the stress
/// anywhere in it.
class DetailedIntegrationResult {
 public:
  /// What decides whether a concrete component cracks.
  struct Cracking {
    /// A bar: its level and area weigh in the tension level of BS 8110-2.
    struct Bar {
      Vec2<double> position;
      double area{};
    };
    std::vector<Vec2<double>> vertices;  ///< of the outlines (y, z) [m]
    double f_ct{};                       ///< tensile strength [Pa]
    double modulus{};                    ///< effective modulus of the uncracked concrete [Pa]
    bool bs8110{};                       ///< model 20: the steel level decides, not the outline
    double steelLevelStress{};           ///< model 20: tension at the steel's centroid [Pa]
    std::vector<Bar> bars;               ///< model 20: bars of the component
  };

  /// What a component brings to the integration.
  struct ComponentDetails {
    Design::CMatCurveParam curve;              ///< the material's curve for the load state
    Velmo9::Deformation lockedIn;              ///< strain plane locked in from an earlier stage
    bool barResultsValid{};                    ///< whether bar strains and stresses can be given
    std::shared_ptr<const Cracking> cracking;  ///< of a concrete component at SLS; null elsewhere
    /// The same of the bars, which may have been put in after the first of several earlier stages;
    /// nothing: `lockedIn`.
    std::optional<Velmo9::Deformation> barsLockedIn{};

    const Velmo9::Deformation& LockedIntoBars() const {
      return barsLockedIn ? *barsLockedIn : lockedIn;
    }
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
