// Solving and results: the other half of VelmoApp.

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "app/AppMessages.h"
#include "app/VelmoApp.h"
#include "app/model_indices.h"
#include "app/sls_record.h"
#include "app/uls_record.h"
#include "model/oxutil/ForEachCase.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/Solver.h"
#include "reports/case_json/CaseResultsJsonBuilder.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::DropOutdatedResults;
using Data::Velmo9::OutputOptions;
using Data::Velmo9::ResultsStamp;
using Data::Velmo9::VelmoSection;
using Util::JsonValue;

namespace {

// The first of `cases` that is a case of the task and has no result; the end when all have.
std::vector<int>::const_iterator FirstUnsolved(const AnalysisTask& task,
                                               const std::vector<int>& cases) {
  if (!task.ComputesULS() && !task.ComputesSLS()) return cases.end();
  return std::find_if(cases.begin(), cases.end(), [&](int iCase) {
    return HasCase(task, iCase) && !task.IsCaseAnalysed(iCase);
  });
}

// Calls use(section) with a section of the document whose task has no results of an earlier model.
template <class Use>
auto WithCurrentResults(const Data::CVelmoData& document, int iSec, int iTask, Use use) {
  const VelmoSection& section = document.Section(iSec);
  const auto& solved = section.Task(iTask).Results();
  if (!solved || solved->stamp == ResultsStamp(document, section, iTask)) return use(section);
  VelmoSection current = section;
  DropOutdatedResults(document, current);
  return use(current);
}

}  // namespace

bool VelmoApp::TaskExists(int iSec, int iTask, std::string& message) const {
  if (HasTask(document_, iSec, iTask)) return true;
  message = HasSection(document_, iSec) ? AppMessages::InvalidTask(iSec, iTask)
                                        : AppMessages::InvalidSection(iSec);
  return false;
}

void VelmoApp::SolveTask(VelmoSection& section, int iTask) {
  VlSol::Solver::SolveTask(document_, section, iTask);
  for (int i = 0; i < document_.NumSections(); ++i) {
    if (&document_.getSection(i) == &section) SectionSolved(i);
  }
}

bool VelmoApp::CompileCaseResults(int iSec, int iTask, const std::vector<int>& cases,
                                  std::string& message, std::vector<CaseRecords>& results,
                                  const OutputOptions& options) const {
  if (!TaskExists(iSec, iTask, message)) return false;
  VelmoSection section = document_.Section(iSec);
  DropOutdatedResults(document_, section);
  std::vector<CaseRecords> slots(cases.size());
  ForEachCase(std::ssize(cases), [&](std::ptrdiff_t i) {
    CaseRecords& slot = slots[static_cast<std::size_t>(i)];
    slot.first = cases[static_cast<std::size_t>(i)];
    slot.second.first = UlsRecord(document_, section, iTask, slot.first, options.uls, true);
    slot.second.second = SlsRecord(document_, section, iSec, iTask, slot.first, options.sls, true);
  });
  results.insert(results.end(), std::make_move_iterator(slots.begin()),
                 std::make_move_iterator(slots.end()));
  return true;
}

Data::Velmo9::CaseULSDetails VelmoApp::CaseULSDetails(int iSec, int iTask, int iCase,
                                                      const Data::Velmo9::UlsOutputOptions& options,
                                                      bool withPoints) const {
  if (!options.IsOutputWanted() || !HasCase(document_, iSec, iTask, iCase)) return {};
  return WithCurrentResults(document_, iSec, iTask, [&](const VelmoSection& section) {
    return UlsRecord(document_, section, iTask, iCase, options, withPoints);
  });
}

Data::Velmo9::CaseSLSDetails VelmoApp::CaseSLSDetails(int iSec, int iTask, int iCase,
                                                      const Data::Velmo9::SlsOutputOptions& options,
                                                      bool withPoints) const {
  if (!options.IsOutputWanted() || !HasCase(document_, iSec, iTask, iCase)) return {};
  return WithCurrentResults(document_, iSec, iTask, [&](const VelmoSection& section) {
    return SlsRecord(document_, section, iSec, iTask, iCase, options, withPoints);
  });
}

bool VelmoApp::GetCaseResults(int iSec, int iTask, const std::vector<int>& cases,
                              Util::JsonDocument& json, std::string& message, bool solve) {
  json.SetObject();
  if (!TaskExists(iSec, iTask, message)) return false;
  VelmoSection& section = document_.getSection(iSec);
  AnalysisTask& task = section.Task(iTask);
  DropOutdated(iSec);
  if (solve || FirstUnsolved(task, cases) != cases.end()) {
    VelmoSection copy = section;
    SolveTask(copy, iTask);
    task.SetResults(copy.Task(iTask).Results());
    SectionSolved(iSec);
  }
  if (const auto unsolved = FirstUnsolved(task, cases); unsolved != cases.end()) {
    message = AppMessages::NoCaseResults(*unsolved);
    return false;
  }
  std::vector<CaseRecords> records;
  if (!CompileCaseResults(iSec, iTask, cases, message, records, OutputOptions(true))) return false;

  Util::JsonAllocator& allocator = json.GetAllocator();
  const CaseResultsJsonBuilder builder(document_.concreteCode(), allocator,
                                       section.hasConcreteComponent(iTask));
  JsonValue results(rapidjson::kArrayType);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    if (i >= records.size() || records[i].first != cases[i]) {
      message = AppMessages::NoCaseResults(cases[i]);
      return false;
    }
    JsonValue object(rapidjson::kObjectType);
    object.AddMember("iCase", cases[i], allocator);
    if (task.ComputesULS()) {
      builder.AddUlsCaseResultsToJson(object, records[i].second.first, task.Action());
    }
    if (task.ComputesSLS()) {
      builder.AddSlsCaseResultsToJson(object, records[i].second.second, task.Action());
    }
    results.PushBack(object, allocator);
  }
  json.AddMember("iSec", iSec, allocator);
  json.AddMember("iTask", iTask, allocator);
  json.AddMember("results", results, allocator);
  return true;
}

}  // namespace Orlix
