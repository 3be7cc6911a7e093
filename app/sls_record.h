#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/OutputOptions.h"
#include "results/StressStrainCalculator.h"

namespace Orlix {

/// The SLS record of one case. Only reads, so cases may be asked for at the same time.
/// @param section     section `iSec` of the document, or a copy of it with other results
/// @param withPoints  false: no point results, whatever the options want
/// @param calculator  of the document, for any task or for this one
/// @return the default record when no output is wanted, there is no such case, the task does not
///         compute SLS, or the input is zero; one without a solution, with the input alone, for a
///         case that is not solved
/// @pre    the section has the task
Data::Velmo9::CaseSLSDetails SlsRecord(const Data::CVelmoData& document,
                                       const Data::Velmo9::VelmoSection& section, int iSec,
                                       int iTask, int iCase,
                                       const Data::Velmo9::SlsOutputOptions& options,
                                       bool withPoints, const StressStrainCalculator& calculator);
/// As above, with a calculator of its own.
Data::Velmo9::CaseSLSDetails SlsRecord(const Data::CVelmoData& document,
                                       const Data::Velmo9::VelmoSection& section, int iSec,
                                       int iTask, int iCase,
                                       const Data::Velmo9::SlsOutputOptions& options,
                                       bool withPoints);

/// The load that a section carries at an applied deformation: between those of both states where
/// the record has a zeta, elsewhere that of the cracked state, which is the only one there is or
/// the governing one.
Data::Velmo9::VelmoLoad CarriedLoad(const Data::Velmo9::CaseSLSDetails& record);

}  // namespace Orlix
