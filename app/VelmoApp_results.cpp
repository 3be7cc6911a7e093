// Solving and results: the other half of VelmoApp.

#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "app/AppMessages.h"
#include "app/CaseRecorder.h"
#include "app/VelmoApp.h"
#include "app/current_results.h"
#include "app/model_indices.h"
#include "app/sls_record.h"
#include "app/uls_record.h"
#include "model/oxutil/ForEachCase.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/Solver.h"
#include "model/vlsol/cracks/cracks.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::DropOutdatedResults;
using Data::Velmo9::OutputOptions;
using Data::Velmo9::VelmoSection;
using Util::JsonValue;

bool VelmoApp::TaskExists(int iSec, int iTask, std::string& message) const {
  return Orlix::TaskExists(document_, iSec, iTask, message);
}

void VelmoApp::SolveTask(VelmoSection& section, int iTask) { SolveTask(section, iTask, {}); }

bool VelmoApp::SolveTask(VelmoSection& section, int iTask, const VlSol::SolveOptions& options) {
  const bool isComplete = VlSol::Solver::SolveTask(document_, section, iTask, options);
  for (int i = 0; i < document_.NumSections(); ++i) {
    if (&document_.getSection(i) == &section) SectionSolved(i);
  }
  return isComplete;
}

bool VelmoApp::CompileCaseResults(int iSec, int iTask, const std::vector<int>& cases,
                                  std::string& message, std::vector<CaseRecords>& results,
                                  const OutputOptions& options) const {
  if (!TaskExists(iSec, iTask, message)) return false;
  VelmoSection section = document_.Section(iSec);
  DropOutdatedResults(document_, section);
  const CaseRecorder recorder(document_, section, iSec, iTask);
  std::vector<CaseRecords> slots(cases.size());
  ForEachCase(std::ssize(cases), [&](std::ptrdiff_t i) {
    CaseRecords& slot = slots[static_cast<std::size_t>(i)];
    slot.first = cases[static_cast<std::size_t>(i)];
    slot.second = recorder.Record(slot.first, options);
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

VelmoApp::CrackResults VelmoApp::GetCrackResults(int iSec, int iTask, int iCase) const {
  return std::move(CompileCrackResults(iSec, iTask, {iCase}).front());
}

std::vector<VelmoApp::CrackResults> VelmoApp::CompileCrackResults(
    int iSec, int iTask, const std::vector<int>& cases) const {
  std::vector<CrackResults> results(cases.size());
  if (!HasTask(document_, iSec, iTask)) return results;
  WithCurrentResults(document_, iSec, iTask, [&](const VelmoSection& section) {
    const VlSol::TaskCracks cracks(document_, section, iTask);
    ForEachCase(std::ssize(cases), [&](std::ptrdiff_t i) {
      const auto slot = static_cast<std::size_t>(i);
      if (HasCase(section.Task(iTask), cases[slot])) results[slot] = cracks.OfCase(cases[slot]);
    });
  });
  return results;
}

bool VelmoApp::GetCaseResults(int iSec, int iTask, const std::vector<int>& cases,
                              Util::JsonDocument& json, std::string& message, bool solve) {
  json.SetObject();
  if (!TaskExists(iSec, iTask, message)) return false;
  VelmoSection& section = document_.getSection(iSec);
  AnalysisTask& task = section.Task(iTask);
  DropOutdated(iSec);
  if (solve || FirstUnsolved(task, cases)) {
    VelmoSection copy = section;
    SolveTask(copy, iTask);
    task.SetResults(copy.Task(iTask).Results());
    SectionSolved(iSec);
  }
  if (const auto unsolved = FirstUnsolved(task, cases)) {
    message = AppMessages::NoCaseResults(*unsolved);
    return false;
  }
  std::vector<CaseRecords> records;
  if (!CompileCaseResults(iSec, iTask, cases, message, records, CaseRecorder::JsonOptions())) {
    return false;
  }

  Util::JsonAllocator& allocator = json.GetAllocator();
  const CaseRecorder recorder(document_, section, iSec, iTask);
  JsonValue results(rapidjson::kArrayType);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    if (i >= records.size() || records[i].first != cases[i]) {
      message = AppMessages::NoCaseResults(cases[i]);
      return false;
    }
    results.PushBack(recorder.ToJson(cases[i], records[i].second, allocator), allocator);
  }
  json.AddMember("iSec", iSec, allocator);
  json.AddMember("iTask", iTask, allocator);
  json.AddMember("results", results, allocator);
  return true;
}

}  // namespace Orlix
