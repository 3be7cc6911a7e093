#include "model/vlsol/Solver.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>

#include "model/oxutil/ForEachCase.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/sls.h"
#include "model/vlsol/strength_reduction.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol {

using Data::CSecComp;
using Data::Design::CurveKind;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;
using Data::Velmo9::TaskResults;
using Data::Velmo9::VelmoSection;

namespace {

// Fills the ULS part of the results; false when the task cannot be compiled.
bool SolveUls(const Data::CVelmoData& document, const VelmoSection& section, int iTask,
              TaskResults& results) {
  const auto compiled = SectionCompiler::Compile(document, section, iTask, SectionState::ultimate);
  if (compiled == nullptr) return false;
  const AnalysisTask& task = section.Task(iTask);
  const auto reduction = StrengthReductionOf(document, section, iTask, compiled->section);
  const StrengthReduction* phi = reduction ? &*reduction : nullptr;
  results.ulsComponents = compiled->components;
  results.uls.resize(task.Cases().size());
  const bool isLoad = task.Action() == LoadAction::load;
  ForEachCase(std::ssize(task.Cases()), [&](std::ptrdiff_t i) {
    const auto slot = static_cast<std::size_t>(i);
    const Vec3<double>& input = task.Cases()[slot].input;
    results.uls[slot] = isLoad ? SolveUlsLoad(compiled->section, input, phi)
                               : SolveUlsDeformation(compiled->section, input, phi);
  });
  return true;
}

// Fills the SLS part of the results; false when the task cannot be compiled.
bool SolveSls(const Data::CVelmoData& document, const VelmoSection& section, int iTask,
              TaskResults& results) {
  const auto model = SlsModel::Of(document, section, iTask);
  if (!model) return false;
  const AnalysisTask& task = section.Task(iTask);
  results.uncrackedComponents = model->uncracked->components;
  results.crackedComponents = model->cracked->components;
  results.sls.resize(task.Cases().size());
  const bool isLoad = task.Action() == LoadAction::load;
  ForEachCase(std::ssize(task.Cases()), [&](std::ptrdiff_t i) {
    const auto slot = static_cast<std::size_t>(i);
    const Vec3<double>& input = task.Cases()[slot].input;
    results.sls[slot] = isLoad ? SolveSlsLoad(*model, input) : SolveSlsDeformation(*model, input);
  });
  return true;
}

}  // namespace

void Solver::SolveTask(const Data::CVelmoData& document, VelmoSection& section, int iTask) {
  AnalysisTask& task = section.Task(iTask);
  task.DropResults();
  auto results = std::make_shared<TaskResults>();
  results->stamp = Data::Velmo9::ResultsStamp(document, section, iTask);
  results->action = task.Action();
  if (task.ComputesULS() && !SolveUls(document, section, iTask, *results)) return;
  if (task.ComputesSLS() && !SolveSls(document, section, iTask, *results)) return;
  task.SetResults(std::move(results));
}

bool Solver::IsInterpolatedModel(const Data::CVelmoData& document,
                                 const Data::Velmo9::VelmoSection& section) {
  const auto materials = document.getMaterials();
  return std::any_of(
      section.Components().begin(), section.Components().end(), [&](const CSecComp& component) {
        if (!component.ConcreteExist()) return false;
        const int grade = component.MaterialGrade();
        if (!materials->IsValidGrade(MatType::concrete, grade)) return false;
        const auto& concrete = materials->Grade(MatType::concrete, grade);
        return concrete.Model(LoadState::SLS, LoadSign::tension) == CurveKind::interpolated ||
               concrete.Model(LoadState::SLS, LoadSign::compression) == CurveKind::interpolated;
      });
}

}  // namespace Orlix::VlSol
