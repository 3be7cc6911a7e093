#pragma once

#include "model/vldata/document/AnalysisQueue.h"

namespace Orlix::Data {

/// Keeps cases from being taken off the queue of a document while it lives: nobody begins to solve
/// what is being edited. Pausers nest. For one thread, as the document itself.
class AnalysisCasePauser {
 public:
  /// @param queue  of the document that is edited; must outlive the pauser
  explicit AnalysisCasePauser(AnalysisQueue& queue) : queue_(queue) { ++queue_.pauses_.count; }
  ~AnalysisCasePauser() { --queue_.pauses_.count; }
  AnalysisCasePauser(const AnalysisCasePauser&) = delete;
  AnalysisCasePauser& operator=(const AnalysisCasePauser&) = delete;

 private:
  AnalysisQueue& queue_;
};

}  // namespace Orlix::Data
