#include "app/model_indices.h"

#include <utility>

namespace Orlix {

bool HasSection(const Data::CVelmoData& document, int iSec) {
  return iSec >= 0 && iSec < document.NumSections();
}

bool HasTask(const Data::CVelmoData& document, int iSec, int iTask) {
  return HasSection(document, iSec) && iTask >= 0 &&
         std::cmp_less(iTask, document.Section(iSec).Tasks().size());
}

bool HasCase(const Data::CVelmoData& document, int iSec, int iTask, int iCase) {
  return HasTask(document, iSec, iTask) && HasCase(document.Section(iSec).Task(iTask), iCase);
}

bool HasCase(const Data::Velmo9::AnalysisTask& task, int iCase) {
  return iCase >= 0 && iCase < task.NumCases();
}

}  // namespace Orlix
