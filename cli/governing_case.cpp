#include "cli/governing_case.h"

#include <cmath>
#include <cstddef>

#include "app/sls_record.h"
#include "cli/case_records.h"
#include "model/vldata/document/governing_utilisation.h"

namespace Orlix::Cli {

int GoverningCase(const Data::Velmo9::AnalysisTask& task, LoadState state) {
  int governing = 0;
  double most = -1.0;
  for (int i = 0; i < task.NumCases(); ++i) {
    const double utilisation = state == LoadState::SLS
                                   ? task.SLSResult(i, true, true, false).CrackingUtilisation()
                                   : GoverningUtilisation(task.ULSResult(i, false), task.Action());
    if (!(utilisation > most)) continue;
    most = utilisation;
    governing = i;
  }
  return governing;
}

double AxialForceOf(const VelmoApp& app, int iSec, int iTask, int iCase, LoadState state) {
  const Data::Velmo9::AnalysisTask& task = app.pData()->Section(iSec).Task(iTask);
  if (task.Action() == LoadAction::load) {
    return task.Cases()[static_cast<std::size_t>(iCase)].input.x;
  }
  if (state == LoadState::ULS) return task.ULSResult(iCase, false).Load().Vector().x;
  double axial = 0.0;
  const int cases[] = {iCase};
  ForEachSlsRecord(app, iSec, iTask, cases, [&](int, const auto& record) {
    const double carried = CarriedLoad(record).Vector().x;
    if (std::isfinite(carried)) axial = carried;
  });
  return axial;
}

}  // namespace Orlix::Cli
