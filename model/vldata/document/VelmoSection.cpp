#include "model/vldata/document/VelmoSection.h"

#include <algorithm>
#include <stdexcept>

namespace Orlix::Data::Velmo9 {

AnalysisTask& VelmoSection::Task(int iTask) {
  if (iTask < 0) throw std::out_of_range("no such task");
  return tasks_.at(static_cast<std::size_t>(iTask));
}

const AnalysisTask& VelmoSection::Task(int iTask) const {
  if (iTask < 0) throw std::out_of_range("no such task");
  return tasks_.at(static_cast<std::size_t>(iTask));
}

AnalysisTask& VelmoSection::AddTask() { return tasks_.emplace_back(); }

AnalysisTask& VelmoSection::AddTask(const AnalysisTask& task) {
  // By way of a copy: the argument may be one of the section's own tasks.
  return tasks_.emplace_back(AnalysisTask(task));
}

bool VelmoSection::hasConcreteComponent(int iTask) const {
  const AnalysisTask& task = Task(iTask);
  int index = 0;
  return std::any_of(Components().begin(), Components().end(), [&](const CSecComp& component) {
    return task.IncludesComponent(index++) && component.ConcreteExist();
  });
}

}  // namespace Orlix::Data::Velmo9
