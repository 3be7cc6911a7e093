#pragma once

#include <cstddef>
#include <functional>

#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/document/VelmoSection.h"

namespace Orlix::VlSol {

/// What a solution is accompanied by.
struct SolveOptions {
  /// Told now and then, by the calling thread alone, how many of all solutions are found, one for
  /// each case and limit state; false: stop. May be empty.
  std::function<bool(std::size_t done, std::size_t total)> progress;
};

/// Solves analysis tasks.
class Solver {
 public:
  /// Solves all cases of a task, in parallel, and stores the results in the task. A task that
  /// cannot be compiled (`SectionCompiler::Problems`) is left without results.
  /// @throws std::out_of_range for no such task.
  static void SolveTask(const Data::CVelmoData& document, Data::Velmo9::VelmoSection& section,
                        int iTask);
  /// As above.
  /// @return false when it was stopped; then the task has no results
  /// @throws also what `options.progress` throws; then, too, the task has no results.
  static bool SolveTask(const Data::CVelmoData& document, Data::Velmo9::VelmoSection& section,
                        int iTask, const SolveOptions& options);

  /// Whether some concrete component has the interpolated serviceability model (22).
  static bool IsInterpolatedModel(const Data::CVelmoData& document,
                                  const Data::Velmo9::VelmoSection& section);
};

}  // namespace Orlix::VlSol
