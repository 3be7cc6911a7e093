#include "model/vldata/document/VelmoSection.h"

#include <algorithm>
#include <stdexcept>

#include "model/oxdata/section/section_properties.h"
#include "model/oxutil/json.h"
#include "model/vldata/json/json_values.h"

namespace Orlix::Data::Velmo9 {

namespace {

Util::JsonValue PropertiesJson(const Numeric::CentroidalProperties& properties,
                               Util::JsonAllocator& allocator) {
  Util::JsonValue json(rapidjson::kObjectType);
  AddNumber(json, "area", properties.area, allocator);
  AddNumber(json, "centroidY", properties.centroid.x, allocator);
  AddNumber(json, "centroidZ", properties.centroid.y, allocator);
  AddNumber(json, "Iyy", properties.iyy, allocator);
  AddNumber(json, "Izz", properties.izz, allocator);
  AddNumber(json, "Iyz", properties.iyz, allocator);
  AddNumber(json, "Imax", properties.major, allocator);
  AddNumber(json, "Imin", properties.minor, allocator);
  AddNumber(json, "angle", properties.angle, allocator);
  return json;
}

}  // namespace

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

void VelmoSection::UpdateTask(int iTask, const AnalysisTask& task) {
  if (&Task(iTask) != &task) Task(iTask) = task;
}

void VelmoSection::DeleteTask(int iTask) {
  Task(iTask);
  tasks_.erase(tasks_.begin() + iTask);
  const int removed = iTask + 1;
  for (AnalysisTask& task : tasks_) {
    auto from = task.PreloadFrom();
    if (!from || from->task < removed) continue;
    from->task = from->task == removed ? 0 : from->task - 1;
    task.SetPreloadFrom(from);
  }
}

bool VelmoSection::hasConcreteComponent(int iTask) const {
  const AnalysisTask& task = Task(iTask);
  int index = 0;
  return std::any_of(Components().begin(), Components().end(), [&](const CSecComp& component) {
    return task.IncludesComponent(index++) && component.ConcreteExist();
  });
}

Util::JsonValue VelmoSection::propertiesToJson(Util::JsonAllocator& allocator) const {
  const SectionProperties properties = SectionPropertiesOf(*this);
  Util::JsonValue json(rapidjson::kObjectType);
  Util::JsonValue part = PropertiesJson(properties.gross, allocator);
  AddMember(json, "gross", part, allocator);
  part = PropertiesJson(properties.net, allocator);
  AddMember(json, "net", part, allocator);
  AddNumber(json, "rebarArea", properties.rebarArea, allocator);
  AddNumber(json, "rebarPercentage", properties.rebarPercentage, allocator);
  return json;
}

bool VelmoSection::IsCommonActiveComponentFound(int iTask, int iReference) const {
  const AnalysisTask& task = Task(iTask);
  const AnalysisTask& reference = Task(iReference);
  for (int i = 0; i < static_cast<int>(Components().size()); ++i) {
    if (task.IncludesComponent(i) && reference.IncludesComponent(i)) return true;
  }
  return false;
}

bool VelmoSection::DoesPreloadedTaskHasSameCreep(int iTask, int iReference) const {
  const CreepSettings& a = Task(iTask).Creep();
  const CreepSettings& b = Task(iReference).Creep();
  if (a.term != b.term || a.creepCoefficient != b.creepCoefficient) return false;
  return a.term != LoadTerm::intermediate || a.longTermShare == b.longTermShare;
}

}  // namespace Orlix::Data::Velmo9
