#include "cli/prepare_task.h"

#include <algorithm>
#include <utility>

#include "model/vldata/response/bar_problems.h"
#include "model/vldata/response/stages.h"

namespace Orlix::Cli {

using Data::Velmo9::CaseIndex;

namespace {

// The cases that a task is built on, the first stage first.
std::vector<CaseIndex> StagesOf(const Data::Velmo9::VelmoSection& section, int iTask) {
  std::vector<CaseIndex> stages;
  for (auto from = PreloadingCase(section, iTask); from;
       from = PreloadingCase(section, from->iTask)) {
    stages.push_back(*from);
  }
  std::reverse(stages.begin(), stages.end());
  return stages;
}

// Appends those that are not there yet.
void Append(std::vector<std::string> more, std::vector<std::string>& messages) {
  for (std::string& message : more) {
    if (std::find(messages.begin(), messages.end(), message) == messages.end()) {
      messages.push_back(std::move(message));
    }
  }
}

bool Check(const VelmoApp& app, int iSec, int iTask, std::vector<std::string>& messages) {
  std::vector<std::string> found;
  const bool passed = app.preSolutionChecksPassed(found, iSec, iTask);
  Append(std::move(found), messages);
  return passed;
}

}  // namespace

std::vector<std::string> PrepareTask(VelmoApp& app, int iSec, int iTask) {
  std::vector<std::string> messages;
  Data::Velmo9::VelmoSection& section = app.pData()->getSection(iSec);
  for (const CaseIndex& stage : StagesOf(section, iTask)) {
    if (section.Task(stage.iTask).IsCaseAnalysed(stage.iCase)) continue;
    if (!Check(app, iSec, stage.iTask, messages)) break;
    app.SolveTask(section, stage.iTask);
  }
  Check(app, iSec, iTask, messages);
  if (messages.empty()) return messages;
  // Where a bar description goes wrong, which the checks sum up.
  Append(Data::Velmo9::DescriptionProblems(*app.pData(), section), messages);
  return messages;
}

}  // namespace Orlix::Cli
