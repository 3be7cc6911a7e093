#include "reports/csv/CsvOptions.h"

namespace Orlix::Velmo {

ULSOptions::ULSOptions(bool all)
    : stressStrainProfile(all),
      stressStrainRebar(all),
      appliedLoad(all),
      failureLoad(all),
      responseDeformation(all),
      failureDeformation(all),
      appliedDeformation(all),
      responseLoad(all) {}

SLSOptions::SLSOptions(bool all)
    : stressStrainProfile(all),
      stressStrainRebar(all),
      appliedLoad(all),
      responseDeformation(all),
      interpolatedStrainPlane(all),
      appliedDeformation(all),
      responseLoad(all),
      stiffness(all),
      crackResults(all),
      crackResultsPerFace(all) {}

bool CsvOptions::IsAnyULSOptionSelected() const {
  return uls.stressStrainProfile || uls.stressStrainRebar || uls.appliedLoad || uls.failureLoad ||
         uls.responseDeformation || uls.failureDeformation || uls.appliedDeformation ||
         uls.responseLoad;
}

bool CsvOptions::IsAnySLSOptionSelected() const {
  return sls.stressStrainProfile || sls.stressStrainRebar || sls.appliedLoad ||
         sls.responseDeformation || sls.interpolatedStrainPlane || sls.appliedDeformation ||
         sls.responseLoad || sls.stiffness || sls.crackResults || sls.crackResultsPerFace;
}

}  // namespace Orlix::Velmo
