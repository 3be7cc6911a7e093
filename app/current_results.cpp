#include "app/current_results.h"

#include <algorithm>

#include "app/AppMessages.h"
#include "app/model_indices.h"

namespace Orlix {

bool TaskExists(const Data::CVelmoData& document, int iSec, int iTask, std::string& message) {
  if (HasTask(document, iSec, iTask)) return true;
  message = HasSection(document, iSec) ? AppMessages::InvalidTask(iSec, iTask)
                                       : AppMessages::InvalidSection(iSec);
  return false;
}

std::optional<int> FirstUnsolved(const Data::Velmo9::AnalysisTask& task,
                                 std::span<const int> cases) {
  if (!task.ComputesULS() && !task.ComputesSLS()) return std::nullopt;
  const auto found = std::find_if(cases.begin(), cases.end(), [&](int iCase) {
    return HasCase(task, iCase) && !task.IsCaseAnalysed(iCase);
  });
  return found == cases.end() ? std::nullopt : std::optional(*found);
}

}  // namespace Orlix
