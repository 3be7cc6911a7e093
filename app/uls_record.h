#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/OutputOptions.h"
#include "results/StressStrainCalculator.h"

namespace Orlix {

/// The ULS record of one case. Only reads, so cases may be asked for at the same time.
/// @param section     of the document, or a copy of one
/// @param withPoints  false: no point results, whatever the options want
/// @param calculator  of the document, for any task or for this one
/// @return the default record when no output is wanted, there is no such case or the task does not
///         compute ULS; a failed one with the input alone for a case that is not solved
/// @pre    the section has the task
Data::Velmo9::CaseULSDetails UlsRecord(const Data::CVelmoData& document,
                                       const Data::Velmo9::VelmoSection& section, int iTask,
                                       int iCase, const Data::Velmo9::UlsOutputOptions& options,
                                       bool withPoints, const StressStrainCalculator& calculator);
/// As above, with a calculator of its own.
Data::Velmo9::CaseULSDetails UlsRecord(const Data::CVelmoData& document,
                                       const Data::Velmo9::VelmoSection& section, int iTask,
                                       int iCase, const Data::Velmo9::UlsOutputOptions& options,
                                       bool withPoints);

}  // namespace Orlix
