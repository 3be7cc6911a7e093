#include "app/CaseRecorder.h"

#include <rapidjson/document.h>

#include "app/sls_record.h"
#include "app/uls_record.h"
#include "reports/case_json/CaseResultsJsonBuilder.h"

namespace Orlix {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;
using Util::JsonValue;

CaseRecorder::CaseRecorder(const Data::CVelmoData& document, const VelmoSection& section, int iSec,
                           int iTask)
    : document_(document),
      section_(section),
      iSec_(iSec),
      iTask_(iTask),
      calculator_(document, section, section.Task(iTask)) {}

Data::Velmo9::OutputOptions CaseRecorder::JsonOptions() {
  Data::Velmo9::OutputOptions options(true);
  options.uls.pointResults = options.sls.pointResults = false;
  return options;
}

CaseRecorder::Records CaseRecorder::Record(int iCase,
                                           const Data::Velmo9::OutputOptions& options) const {
  return {UlsRecord(document_, section_, iTask_, iCase, options.uls, true, calculator_),
          SlsRecord(document_, section_, iSec_, iTask_, iCase, options.sls, true, calculator_)};
}

JsonValue CaseRecorder::ToJson(int iCase, const Records& records,
                               Util::JsonAllocator& allocator) const {
  const AnalysisTask& task = section_.Task(iTask_);
  const CaseResultsJsonBuilder builder(document_.concreteCode(), allocator,
                                       section_.hasConcreteComponent(iTask_));
  JsonValue object(rapidjson::kObjectType);
  object.AddMember("iCase", iCase, allocator);
  if (task.ComputesULS()) builder.AddUlsCaseResultsToJson(object, records.first, task.Action());
  if (task.ComputesSLS()) builder.AddSlsCaseResultsToJson(object, records.second, task.Action());
  return object;
}

}  // namespace Orlix
