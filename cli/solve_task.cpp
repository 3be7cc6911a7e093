#include "cli/solve_task.h"

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "cli/ProgressLine.h"
#include "cli/commands.h"
#include "cli/interrupt.h"
#include "cli/prepare_task.h"
#include "cli/printable.h"
#include "model/vlsol/Solver.h"

namespace Orlix::Cli {

std::string PlaceText(int iSec, int iTask, const std::string& message) {
  const std::string section = "section " + std::to_string(iSec + 1);
  const std::string number = std::to_string(iTask + 1);
  if (message.starts_with("Error from task " + number + ": ")) return section + ": ";
  return section + ", task " + number + ": ";
}

bool CheckTask(VelmoApp& app, int iSec, int iTask) {
  const std::vector<std::string> messages = PrepareTask(app, iSec, iTask);
  for (const std::string& message : messages) {
    std::cerr << PlaceText(iSec, iTask, message) << Printable(message) << '\n';
  }
  return messages.empty();
}

bool CheckAndSolve(VelmoApp& app, int iSec, int iTask) {
  const std::string place = PlaceText(iSec, iTask, "");
  if (!CheckTask(app, iSec, iTask)) return false;
  Data::Velmo9::VelmoSection& section = app.pData()->getSection(iSec);
  ProgressLine line(place);
  VlSol::SolveOptions options;
  options.progress = [&](std::size_t done, std::size_t total) {
    line.Show(done, total);
    return !IsInterrupted();
  };
  if (!app.SolveTask(section, iTask, options)) throw Interrupted();
  const Data::Velmo9::AnalysisTask& task = section.Task(iTask);
  if ((task.ComputesULS() || task.ComputesSLS()) && task.NumCases() > 0 &&
      !task.IsCaseAnalysed(0)) {
    throw CommandError(place + "passed all checks, yet could not be solved");
  }
  return true;
}

}  // namespace Orlix::Cli
