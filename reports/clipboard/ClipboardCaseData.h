#pragma once

#include "results/CaseRecords.h"

namespace Orlix {

/// What the clipboard shows of one case.
struct ClipboardCaseData {
  Data::Velmo9::VelmoLoad load;           ///< the input of a case of loads, else zero
  Data::Velmo9::Deformation deformation;  ///< the input of a case of deformations, else zero
  Data::Velmo9::CaseULSDetails uls;
  Data::Velmo9::UlsOutputOptions ulsOptions;  ///< what of `uls` is filled
  Data::Velmo9::CaseSLSDetails sls;
  Data::Velmo9::SlsOutputOptions slsOptions;  ///< what of `sls` is filled
};

}  // namespace Orlix
