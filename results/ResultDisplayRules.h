#pragma once

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Velmo {

/// Which serviceability results of a task are worth showing.
class ResultDisplayRules {
 public:
  /// @param document  must outlive the rules
  explicit ResultDisplayRules(const Data::CVelmoData& document) : document_(document) {}

  /// Whether the cracked state is the whole result: some concrete of the task follows BS 8110-2,
  /// 3.6 (model 20) and none is interpolated between both states (model 22).
  /// @throws std::out_of_range for no such task.
  bool ShouldShowOnlyCrackedSlsResults(const Data::Velmo9::VelmoSection& section, int iTask) const;

 private:
  const Data::CVelmoData& document_;
};

}  // namespace Orlix::Velmo
