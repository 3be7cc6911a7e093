#pragma once

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

// The one place that asks whether the document has such a section, task or case. Indices count from
// zero; a negative one is never there.

bool HasSection(const Data::CVelmoData& document, int iSec);
bool HasTask(const Data::CVelmoData& document, int iSec, int iTask);
bool HasCase(const Data::CVelmoData& document, int iSec, int iTask, int iCase);
bool HasCase(const Data::Velmo9::AnalysisTask& task, int iCase);

}  // namespace Orlix
