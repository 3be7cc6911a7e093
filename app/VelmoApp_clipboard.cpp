// Clipboard commands of VelmoApp.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "app/VelmoApp.h"
#include "app/model_indices.h"
#include "app/sls_record.h"
#include "app/uls_record.h"
#include "model/oxutil/CopyToClipboard.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/response/results_stamp.h"
#include "reports/clipboard/TaskDataToClipboardFormatter.h"
#include "results/ResultDisplayRules.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::OutputOptions;
using Data::Velmo9::VelmoLoad;
using Data::Velmo9::VelmoSection;
using Util::JsonValue;

namespace {

constexpr double kNone = Data::Velmo9::kNotCalculated;
constexpr Vec3<double> kNoVector{kNone, kNone, kNone};

/// A range of a task's case table.
struct TaskRange {
  int iSec{};
  int iTask{};
  int firstCase{};
  int lastCase{};
  ColumnRange columns;
};

// Takes an integer member; false when it is absent or something else.
bool TakeInt(const JsonValue* object, const char* key, int& number) {
  const JsonValue* member = object == nullptr ? nullptr : Util::FindMember(*object, key);
  if (member == nullptr || !member->IsInt()) return false;
  number = member->GetInt();
  return true;
}

std::optional<TaskRange> RangeFrom(const JsonValue& request) {
  TaskRange taken;
  const JsonValue* range = Util::FindMember(request, "range");
  if (range == nullptr) return std::nullopt;
  const JsonValue* start = Util::FindMember(*range, "start");
  const JsonValue* end = Util::FindMember(*range, "end");
  const bool complete =
      TakeInt(&request, "iSec", taken.iSec) && TakeInt(&request, "iTask", taken.iTask) &&
      TakeInt(start, "case", taken.firstCase) && TakeInt(start, "col", taken.columns.first) &&
      TakeInt(end, "case", taken.lastCase) && TakeInt(end, "col", taken.columns.last);
  return complete ? std::optional(taken) : std::nullopt;
}

void ForgetUncracked(CaseSLSDetails& record) {
  record.uncrackedDeformation = Deformation(kNoVector);
  record.uncrackedLoad = VelmoLoad(kNoVector);
  record.stressStrainSummary.uncracked = {};
}

void ForgetCracked(CaseSLSDetails& record) {
  record.crackedDeformation = Deformation(kNoVector);
  record.crackedLoad = VelmoLoad(kNoVector);
  record.stressStrainSummary.cracked.reset();
}

}  // namespace

bool VelmoApp::CopyToClipboard(const JsonValue& value) {
  return Orlix::CopyToClipboard(Util::PrettyJson(value));
}

bool VelmoApp::CopyAll() const { return Orlix::CopyToClipboard(to_string(fileString(true))); }

bool VelmoApp::CopyTaskData(const JsonValue& request, std::string& text) const {
  const std::optional<TaskRange> range = RangeFrom(request);
  const JsonValue* options = Util::FindMember(request, "options");
  if (!range || options == nullptr || !options->IsObject()) return false;
  if (!HasTask(document_, range->iSec, range->iTask)) return false;

  VelmoSection section = document_.Section(range->iSec);
  Data::Velmo9::DropOutdatedResults(document_, section);
  const AnalysisTask& task = std::as_const(section).Task(range->iTask);
  const OutputOptions wanted(*options);
  const int first = std::max(range->firstCase, 0);
  const int last = std::min(range->lastCase, task.NumCases() - 1);
  std::vector<std::optional<ClipboardCaseData>> cases;
  for (int iCase = first; iCase <= last; ++iCase) {
    cases.push_back(BuildClipboardCaseData(task, range->iSec, range->iTask, iCase, wanted));
  }
  text = TaskDataToClipboardFormatter(document_, section, range->iTask)
             .FormatTaskData(cases, first, range->columns);
  return true;
}

std::optional<ClipboardCaseData> VelmoApp::BuildClipboardCaseData(
    const AnalysisTask& task, int iSec, int iTask, int iCase, const OutputOptions& options) const {
  if (!HasCase(task, iCase)) return std::nullopt;
  ClipboardCaseData data;
  const Vec3<double>& input = task.Cases()[static_cast<std::size_t>(iCase)].input;
  if (task.Action() == LoadAction::load) {
    data.load = VelmoLoad(input);
  } else {
    data.deformation = Deformation(input);
  }
  if (!task.IsCaseAnalysed(iCase)) return data;
  // Results that count as analysed are those of the document's section as it is.
  const VelmoSection& section = document_.Section(iSec);
  if (task.ComputesULS()) {
    data.ulsOptions = options.uls;
    data.uls = UlsRecord(document_, section, iTask, iCase, options.uls, false);
  }
  if (task.ComputesSLS()) {
    data.slsOptions = options.sls;
    data.sls = SlsRecord(document_, section, iSec, iTask, iCase, options.sls, false);
    const Velmo::ResultDisplayRules rules(document_);
    if (rules.ShouldShowOnlyCrackedSlsResults(section, iTask)) ForgetUncracked(data.sls);
    if (!document_.ShouldCalculateCracked(section, iTask)) ForgetCracked(data.sls);
  }
  return data;
}

}  // namespace Orlix
