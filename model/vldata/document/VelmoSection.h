#pragma once

#include <vector>

#include "model/oxdata/reinforcement/CRebarHelper.h"
#include "model/oxdata/section/CSection.h"
#include "model/oxutil/CUnit.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/AnalysisTask.h"

namespace Orlix::Data::Velmo9 {

/// A cross-section with its analysis tasks.
class VelmoSection : public CSection {
 public:
  VelmoSection() = default;
  explicit VelmoSection(const CSection& geometry) : CSection(geometry) {}

  const std::vector<AnalysisTask>& Tasks() const { return tasks_; }
  /// A task. @throws std::out_of_range for no such task.
  AnalysisTask& Task(int iTask);
  const AnalysisTask& Task(int iTask) const;
  /// Appends a default task, or a copy.
  AnalysisTask& AddTask();
  AnalysisTask& AddTask(const AnalysisTask& task);
  /// Replaces a task by a copy, with whatever results that brings along.
  /// @throws std::out_of_range for no such task.
  void UpdateTask(int iTask, const AnalysisTask& task);
  /// Removes a task. Preload references follow their task to its new number; one to the removed
  /// task gets the number 0, which is no task: the checks before a solution name it.
  /// @throws std::out_of_range for no such task.
  void DeleteTask(int iTask);

  /// Whether the components that a task includes contain concrete.
  bool hasConcreteComponent(int iTask) const;
  /// Whether some component of the section is included in both tasks.
  bool IsCommonActiveComponentFound(int iTask, int iReference) const;
  /// Whether both tasks have the same load term and creep coefficient and, when the term is
  /// intermediate, the same share of long-term load.
  bool DoesPreloadedTaskHasSameCreep(int iTask, int iReference) const;

  /// The properties of the section's geometry: gross and net area, bars. docs/facade-json.md has
  /// the form. @throws as `SectionPropertiesOf`.
  Util::JsonValue propertiesToJson(Util::JsonAllocator& allocator) const;
  /// The links of the components that have some, in display units; docs/facade-json.md has the
  /// form.
  /// @param grades  of the document
  Util::JsonValue LinksToJson(Util::JsonAllocator& allocator, const CUnit& units,
                              const Util::CRebarHelper& grades) const;

 private:
  std::vector<AnalysisTask> tasks_;
};

}  // namespace Orlix::Data::Velmo9
