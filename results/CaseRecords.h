#pragma once

/// The result records of a case, gathered for those who read them (reports, the program): one
/// include instead of a list that every reader would repeat.

#include "model/vldata/records/CaseSLSDetails.h"       // IWYU pragma: export
#include "model/vldata/records/CaseULSDetails.h"       // IWYU pragma: export
#include "model/vldata/records/NeutralAxisData.h"      // IWYU pragma: export
#include "model/vldata/records/OutputOptions.h"        // IWYU pragma: export
#include "model/vldata/records/StressStrainSummary.h"  // IWYU pragma: export
#include "model/vldata/records/point_results.h"        // IWYU pragma: export
