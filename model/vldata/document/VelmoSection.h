#pragma once

#include <vector>

#include "model/oxdata/section/CSection.h"
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

  /// Whether the components that a task includes contain concrete.
  bool hasConcreteComponent(int iTask) const;

 private:
  std::vector<AnalysisTask> tasks_;
};

}  // namespace Orlix::Data::Velmo9
