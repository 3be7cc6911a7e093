#pragma once

#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Finds what keeps a task from being solved. Every problem is a message line; nothing here throws
/// for a bad model.
class PreSolutionChecks {
 public:
  /// @param document  what is checked; must outlive the checks
  explicit PreSolutionChecks(const Data::CVelmoData& document) : document_(document) {}

  /// Appends the problems of a section: its number, then each component's material type, grade,
  /// curves and polygons, then its bar descriptions. A section that is not there gives the message
  /// about its number alone.
  /// @return whether `messages` is empty afterwards
  bool CheckSection(std::vector<std::string>& messages, int iSec) const;
  /// Appends the problems of a task, its phi factors, its component preload and its section and,
  /// where there are none, what else keeps the task from being compiled for the limit states that
  /// it computes.
  /// @return whether `messages` is empty afterwards
  bool CheckTask(std::vector<std::string>& messages, int iSec, int iTask) const;

  // Each appends to `bad` the numbers, from one, of the components that fail, and returns whether
  // there are none. A component is listed by the first of them that it fails: without a type there
  // is no table to look a grade up in, without a grade no curve.
  bool HaveMaterialType(int iSec, std::vector<int>& bad) const;
  bool HaveMaterialGrade(int iSec, std::vector<int>& bad) const;
  bool HaveMaterialCurves(int iSec, std::vector<int>& bad) const;  ///< of both load states
  bool HavePolygons(int iSec, std::vector<int>& bad) const;
  /// Whether every bar description of a section can be read; if not, `message` says so.
  bool HaveValidRebarDefinition(int iSec, std::string& message) const;
  /// Whether a task includes at least one component; false when there is no such task.
  bool IsAnyComponentEnabled(int iSec, int iTask) const;

  /// Appends what is wrong with the phi factors that a task has of its own. Without such a task or
  /// factors, or under a code without strength reduction, there is nothing to check.
  void CheckCustomPhiFactors(std::vector<std::string>& messages, int iSec, int iTask) const;
  /// Appends the first thing that is wrong with the component preload of a task.
  void CheckComponentPreload(std::vector<std::string>& messages, int iSec, int iTask) const;
  /// Whether a case of a section has results of its input as it is; false for no such case.
  static bool IsPreloadCaseResultsValid(const Data::Velmo9::VelmoSection& section, int iTask,
                                        int iCase);

 private:
  void AddCompileProblems(std::vector<std::string>& messages,
                          const Data::Velmo9::VelmoSection& section, int iTask,
                          LoadState state) const;
  std::string PreloadProblem(int iSec, int iTask, const Data::Velmo9::PreloadReference& from) const;
  template <class Fails>
  bool Collect(int iSec, std::vector<int>& bad, Fails fails) const;

  const Data::CVelmoData& document_;
};

}  // namespace Orlix
