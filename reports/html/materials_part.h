#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "reports/html/HtmlPage.h"

namespace Orlix::Velmo {

/// The grades that a section is made of, and their curves of the limit states that a task computes.
void AddMaterials(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
                  const Data::Velmo9::AnalysisTask& task, HtmlPage& page);

}  // namespace Orlix::Velmo
