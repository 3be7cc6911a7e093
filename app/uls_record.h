#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/OutputOptions.h"

namespace Orlix {

/// The ULS record of one solved case. Only reads, so cases may be asked for at the same time.
/// @param section      of the document, or a copy of one
/// @param withDetails  whether the details of the components are looked at; without them the record
///                     has no point results and no summary
/// @return the default record when no output is wanted, there is no such case, the task does not
///         compute ULS, or the case has no result that belongs to its input
/// @pre    the section has the task
Data::Velmo9::CaseULSDetails UlsRecord(const Data::CVelmoData& document,
                                       const Data::Velmo9::VelmoSection& section, int iTask,
                                       int iCase, const Data::Velmo9::UlsOutputOptions& options,
                                       bool withDetails);

}  // namespace Orlix
