#include "model/vldata/document/CVelmoData.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "model/oxdata/reinforcement/CPositionRebar.h"
#include "model/oxnumeric/polygon_validity.h"
#include "model/oxutil/text.h"
#include "model/oxutil/uuid.h"
#include "model/vldata/document/grade_migration.h"
#include "model/vldata/document/standard_grades.h"

namespace Orlix::Data {

using Velmo9::VelmoSection;

CVelmoData::CVelmoData()
    : materials_(StandardMaterials(code_.Data())), rebarHelper_(materials_), modelId_(NewUuid()) {}

CVelmoData::CVelmoData(const OrlixString<wchar_t>& title, const CUnit& units) : CVelmoData() {
  CTitles titles;
  titles.project = to_string(title);
  SetTitle(titles);
  SetUnits(units);
}

CVelmoData::CVelmoData(const CVelmoData& other)
    : CModelData(other),
      sections_(other.sections_),
      queue_(other.queue_),
      code_(other.code_),
      materials_(std::make_shared<Materials>(*other.materials_)),
      rebarHelper_(materials_),
      options_(other.options_),
      filePath_(other.filePath_),
      modelId_(other.modelId_),
      readProblems_(other.readProblems_),
      gradeChanges_(other.gradeChanges_) {}

CVelmoData& CVelmoData::operator=(const CVelmoData& other) {
  if (this != &other) *this = CVelmoData(other);
  return *this;
}

void CVelmoData::GenerateRebar(CSection& section) const {
  Velmo::CPositionRebar(rebarHelper_, barHelper_, code_, Units()).GenerateRebar(section);
}

void CVelmoData::UpdateModelId() { modelId_ = NewUuid(); }

bool CVelmoData::IsMigrationOfGradesRequired() const { return CarryOwnGrades(sections_); }

void CVelmoData::SetUserDefinedGradesToSections() { MoveOwnGrades(sections_, *materials_); }

const VelmoSection& CVelmoData::Section(int iSec) const {
  if (iSec < 0) throw std::out_of_range("no such section");
  return sections_.at(static_cast<std::size_t>(iSec));
}

VelmoSection& CVelmoData::getSection(int iSec) {
  if (iSec < 0) throw std::out_of_range("no such section");
  return sections_.at(static_cast<std::size_t>(iSec));
}

VelmoSection& CVelmoData::AddSection() {
  VelmoSection& section = sections_.emplace_back();
  section.AddTask();
  return section;
}

// By way of a copy, in both: the argument may be one of the document's own sections.
VelmoSection& CVelmoData::AddSection(const CSection& geometry) {
  return sections_.emplace_back(VelmoSection(geometry));
}

VelmoSection& CVelmoData::AddSection(const VelmoSection& section) {
  sections_.emplace_back(VelmoSection(section));
  RequeueLastAnalysedCases(NumSections() - 1);
  return sections_.back();
}

void CVelmoData::DeleteSection(int iSec) {
  getSection(iSec);
  sections_.erase(sections_.begin() + iSec);
  RequeueLastAnalysedCases(iSec);
}

void CVelmoData::ResetGrade(MatType type, int grade) {
  if (!materials_->IsValidGrade(type, grade)) return;
  Design::CMat& material = materials_->Grade(type, grade);
  const auto* standard = StandardGrade(code_.Data(), type, material.Name().View());
  if (standard != nullptr) material = *standard;
}

bool CVelmoData::HasMaterialModel(const VelmoSection& section, int iTask, LoadState state,
                                  int model) const {
  const Velmo9::AnalysisTask& task = section.Task(iTask);
  int index = 0;
  return std::any_of(
      section.Components().begin(), section.Components().end(), [&](const CSecComp& component) {
        if (!task.IncludesComponent(index++) || !component.ConcreteExist()) return false;
        if (!materials_->IsValidGrade(MatType::concrete, component.MaterialGrade())) return false;
        const auto& concrete = materials_->Grade(MatType::concrete, component.MaterialGrade());
        return static_cast<int>(concrete.Model(state, LoadSign::compression)) == model ||
               static_cast<int>(concrete.Model(state, LoadSign::tension)) == model;
      });
}

bool CVelmoData::ShouldCalculateCracked(const VelmoSection& section, int iTask) const {
  return HasMaterialModel(section, iTask, LoadState::SLS,
                          static_cast<int>(Design::CurveKind::bs8110Tension)) ||
         HasMaterialModel(section, iTask, LoadState::SLS,
                          static_cast<int>(Design::CurveKind::interpolated));
}

bool CVelmoData::IsComponentOverlappedInStages(int iSec, int iTask, int iReference) const {
  const VelmoSection& section = Section(iSec);
  const Velmo9::AnalysisTask& task = section.Task(iTask);
  const Velmo9::AnalysisTask& reference = section.Task(iReference);
  std::vector<SectionPolygon> earlier;
  std::vector<SectionPolygon> added;
  for (int i = 0; i < static_cast<int>(section.Components().size()); ++i) {
    const CSecGeom& geometry = section.Components()[static_cast<std::size_t>(i)].Geometry();
    const bool isEarlier = reference.IncludesComponent(i);
    if (!geometry.hasValidPolygons() || !(isEarlier || task.IncludesComponent(i))) continue;
    std::vector<SectionPolygon>& list = isEarlier ? earlier : added;
    for (SectionPolygon& polygon : geometry.Polygons(0.0)) list.push_back(std::move(polygon));
  }
  return std::any_of(added.begin(), added.end(), [&](const SectionPolygon& a) {
    return std::any_of(earlier.begin(), earlier.end(), [&](const SectionPolygon& b) {
      return Numeric::InteriorsOverlap({a.outline, a.holes}, {b.outline, b.holes});
    });
  });
}

void CVelmoData::ClearTaskCasesFromAnalysisQueue(int iSec, int iTask, bool andLaterTasks) {
  queue_.RemoveTask(iSec, iTask, andLaterTasks);
}

void CVelmoData::RequeueLastAnalysedCases(int iSec) {
  if (iSec < 0 || iSec > NumSections()) throw std::out_of_range("no such section");
  queue_.RemoveSectionsFrom(iSec);
  for (int i = iSec; i < NumSections(); ++i) RequeueLastAnalysedCases(i, 0);
}

void CVelmoData::RequeueLastAnalysedCases(int iSec, int iTask) {
  const auto numTasks = static_cast<int>(Section(iSec).Tasks().size());
  if (iTask < 0 || iTask > numTasks) throw std::out_of_range("no such task");
  queue_.RemoveTask(iSec, iTask, true);
  for (int i = iTask; i < numTasks; ++i) QueueCasesWithoutResults(iSec, i);
}

void CVelmoData::UpdateAnalysisQueue(int iSec) {
  const auto numTasks = static_cast<int>(Section(iSec).Tasks().size());
  if (!queue_.IsPaused()) queue_.RemoveTask(iSec, 0, true);
  for (int i = 0; i < numTasks; ++i) QueueCasesWithoutResults(iSec, i);
}

// A task that computes no limit state waits for nothing.
void CVelmoData::QueueCasesWithoutResults(int iSec, int iTask) {
  const Velmo9::AnalysisTask& task = Section(iSec).Task(iTask);
  if (!task.ComputesULS() && !task.ComputesSLS()) return;
  if (!task.Results()) return queue_.Put({iSec, iTask, 0, task.NumCases()});
  int first = 0;  // of the cases without results that end at `i`
  for (int i = 0; i < task.NumCases(); ++i) {
    if (!task.IsCaseAnalysed(i)) continue;
    queue_.Put({iSec, iTask, first, i});
    first = i + 1;
  }
  queue_.Put({iSec, iTask, first, task.NumCases()});
}

}  // namespace Orlix::Data
