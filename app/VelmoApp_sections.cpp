// Edits of sections and tasks, and the queue of what they leave without results.

#include <rapidjson/document.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "app/VelmoApp.h"
#include "app/model_indices.h"
#include "model/oxutil/JSONUtility.h"
#include "model/oxutil/json.h"
#include "model/vldata/document/AnalysisCasePauser.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix {

using Data::AnalysisCasePauser;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;
using Util::JsonValue;

namespace {

std::wstring TaskText(const AnalysisTask& task, bool withNames) {
  Util::JsonDocument json(rapidjson::kObjectType);
  JsonValue value = task.toJson(json.GetAllocator(), true, withNames, 0);
  json.AddMember("taskData", value, json.GetAllocator());
  return Util::JSONUtility::GetJsonString(json);
}

// Whether a task with results takes its component preload from a case.
bool HasResultsBuiltOn(const VelmoSection& section, int iTask, int iCase) {
  return std::any_of(section.Tasks().begin(), section.Tasks().end(), [&](const AnalysisTask& task) {
    return task.Results() && task.PreloadFrom() && task.PreloadFrom()->task == iTask + 1 &&
           task.PreloadFrom()->iCase == iCase + 1;
  });
}

// A case of the task came to wait or, when its input is the solved one again, waits no longer.
void UpdateQueue(Data::AnalysisQueue& queue, const Data::CaseRange& oneCase,
                 const AnalysisTask& task) {
  if (!task.IsCaseAnalysed(oneCase.first)) {
    queue.Put(oneCase);
  } else if (!queue.IsPaused()) {
    queue.Remove(oneCase);
  }
}

}  // namespace

VelmoSection& VelmoApp::AddSection(Data::CSection section) {
  const AnalysisCasePauser pauser(document_.Queue());
  return document_.AddSection(section);
}

void VelmoApp::setSection(int iSec, const JsonValue& json) {
  const AnalysisCasePauser pauser(document_.Queue());
  const VelmoSection before = document_.Section(iSec);
  document_.setSection(iSec, json);
  if (!document_.ReadProblems().empty()) return;
  VelmoSection& section = document_.getSection(iSec);
  generateRebar(section);
  const std::size_t numKept = std::min(before.Tasks().size(), section.Tasks().size());
  for (int i = 0; i < static_cast<int>(numKept); ++i) {
    section.Task(i).SetResults(before.Task(i).Results());
  }
  SectionChanged(iSec);  // drops the results of tasks that are not what they were
}

VelmoSection VelmoApp::section(const JsonValue& json) {
  VelmoSection section = document_.section(json);
  generateRebar(section);
  return section;
}

void VelmoApp::deleteSection(int iSec) {
  const AnalysisCasePauser pauser(document_.Queue());
  document_.DeleteSection(iSec);
  document_.RequeueLastAnalysedCases(iSec);
}

JsonValue VelmoApp::sectionProperties(int iSec, Util::JsonAllocator& allocator) const {
  return document_.Section(iSec).propertiesToJson(allocator);
}

double VelmoApp::rebarPercentage(int iSec) const {
  return document_.Section(iSec).RebarPercentage();
}

void VelmoApp::addTask(int iSec, const AnalysisTask& task) {
  const AnalysisCasePauser pauser(document_.Queue());
  document_.getSection(iSec).AddTask(task);
  SectionChanged(iSec);
}

void VelmoApp::addTask(int iSec) {
  const AnalysisCasePauser pauser(document_.Queue());
  document_.getSection(iSec).AddTask();
}

void VelmoApp::updateTask(int iSec, int iTask, const AnalysisTask& task) {
  VelmoSection& section = document_.getSection(iSec);
  if (!HasTask(document_, iSec, iTask)) return;
  const AnalysisCasePauser pauser(document_.Queue());
  section.UpdateTask(iTask, task);
  SectionChanged(iSec);
}

void VelmoApp::deleteTask(int iSec, int iTask) {
  VelmoSection& section = document_.getSection(iSec);
  if (!HasTask(document_, iSec, iTask)) return;
  document_.ClearTaskCasesFromAnalysisQueue(iSec, iTask, true);
  const AnalysisCasePauser pauser(document_.Queue());
  section.DeleteTask(iTask);
  DropOutdatedResults(document_, section);
  document_.RequeueLastAnalysedCases(iSec, iTask);
}

bool VelmoApp::IsTaskReferenced(int iSec, int iTask) const {
  const auto& tasks = document_.Section(iSec).Tasks();
  if (!HasTask(document_, iSec, iTask)) return false;
  const int number = iTask + 1;
  return std::any_of(tasks.begin() + number, tasks.end(), [number](const AnalysisTask& task) {
    return task.PreloadFrom() && task.PreloadFrom()->task == number;
  });
}

bool VelmoApp::AreTasksEqual(const AnalysisTask& a, const AnalysisTask& b, bool withNames) {
  const std::wstring text = TaskText(a, withNames);
  return !text.empty() && text == TaskText(b, withNames);
}

void VelmoApp::setCaseInput(int iSec, int iTask, int iCase, Vec3<double> input) {
  std::optional<AnalysisCasePauser> pauser;
  if (iSec >= document_.NumSections()) pauser.emplace(document_.Queue());
  while (document_.NumSections() <= iSec) document_.AddSection();
  AnalysisTask& task = document_.getSection(iSec).Task(iTask);
  const int numBefore = task.NumCases();
  while (task.NumCases() <= iCase) task.addCase();
  task.SetCaseInput(iCase, input);
  if (HasResultsBuiltOn(document_.Section(iSec), iTask, iCase)) return SectionChanged(iSec);
  if (!task.ComputesULS() && !task.ComputesSLS()) return;
  // These cases alone: a front end may fill a million rows one by one.
  UpdateQueue(document_.Queue(), {iSec, iTask, iCase, iCase + 1}, task);
  for (int i = numBefore; i < task.NumCases(); ++i) {
    UpdateQueue(document_.Queue(), {iSec, iTask, i, i + 1}, task);
  }
}

// The section is not what it was: its results are looked through and its part of the queue is made
// anew.
void VelmoApp::SectionChanged(int iSec) {
  DropOutdatedResults(document_, document_.getSection(iSec));
  document_.RequeueLastAnalysedCases(iSec, 0);
}

// What a section is made of may have changed: cases that lose their results wait.
void VelmoApp::DropOutdated(int iSec) {
  VelmoSection& section = document_.getSection(iSec);
  const auto numWithResults = [&] {
    return std::count_if(section.Tasks().begin(), section.Tasks().end(),
                         [](const AnalysisTask& task) { return task.Results() != nullptr; });
  };
  const auto before = numWithResults();
  DropOutdatedResults(document_, section);
  if (numWithResults() != before) document_.UpdateAnalysisQueue(iSec);
}

// Results of a task came in: what was built on earlier ones goes.
void VelmoApp::SectionSolved(int iSec) {
  DropOutdatedResults(document_, document_.getSection(iSec));
  document_.UpdateAnalysisQueue(iSec);
}

void VelmoApp::MaterialsChanged() {
  for (int i = 0; i < document_.NumSections(); ++i) DropOutdated(i);
}

}  // namespace Orlix
