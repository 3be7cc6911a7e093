#pragma once

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/document/VelmoSection.h"

namespace Orlix::VlSol {

/// Solves analysis tasks.
class Solver {
 public:
  /// Solves all cases of a task, in parallel, and stores the results in the task. A task that
  /// cannot be compiled (`SectionCompiler::Problems`) is left without results.
  /// @throws std::out_of_range for no such task.
  static void SolveTask(const Data::CVelmoData& document, Data::Velmo9::VelmoSection& section,
                        int iTask);

  /// Whether some concrete component has the interpolated serviceability model (22).
  static bool IsInterpolatedModel(const Data::CVelmoData& document,
                                  const Data::Velmo9::VelmoSection& section);
};

}  // namespace Orlix::VlSol
