#include "results/ResultDisplayRules.h"

#include "model/oxdata/materials/CMatCurveParam.h"

namespace Orlix::Velmo {

bool ResultDisplayRules::ShouldShowOnlyCrackedSlsResults(const Data::Velmo9::VelmoSection& section,
                                                         int iTask) const {
  const auto has = [&](Data::Design::CurveKind model) {
    return document_.HasMaterialModel(section, iTask, LoadState::SLS, static_cast<int>(model));
  };
  return has(Data::Design::CurveKind::bs8110Tension) && !has(Data::Design::CurveKind::interpolated);
}

}  // namespace Orlix::Velmo
