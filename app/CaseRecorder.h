#pragma once

#include <utility>

#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/OutputOptions.h"
#include "results/StressStrainCalculator.h"

namespace Orlix {

/// Makes records of the cases of one task and their JSON; what the cases share is looked up once.
/// Only reads, so cases may be asked for at the same time.
class CaseRecorder {
 public:
  using Records = std::pair<Data::Velmo9::CaseULSDetails, Data::Velmo9::CaseSLSDetails>;

  /// @param section  section `iSec` of the document, or a copy of it with other results; like the
  ///                 document it must outlive the recorder and stay as it is
  /// @pre the section has the task
  CaseRecorder(const Data::CVelmoData& document, const Data::Velmo9::VelmoSection& section,
               int iSec, int iTask);

  /// All outputs but the points and bars, which the JSON of a case does not have.
  static Data::Velmo9::OutputOptions JsonOptions();

  /// The records of a case; see `UlsRecord` and `SlsRecord`.
  Records Record(int iCase, const Data::Velmo9::OutputOptions& options) const;
  /// The JSON object of a case: "iCase", then the members of the limit states that the task
  /// computes.
  Util::JsonValue ToJson(int iCase, const Records& records, Util::JsonAllocator& allocator) const;

 private:
  const Data::CVelmoData& document_;
  const Data::Velmo9::VelmoSection& section_;
  int iSec_;
  int iTask_;
  StressStrainCalculator calculator_;
};

}  // namespace Orlix
