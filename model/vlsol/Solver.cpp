#include "model/vlsol/Solver.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "model/oxutil/ForEachCase.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/cracks/cracks.h"
#include "model/vlsol/sls.h"
#include "model/vlsol/strength_reduction/strength_reduction.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol {

using Data::CSecComp;
using Data::Design::CurveKind;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::SectionState;
using Data::Velmo9::TaskCase;
using Data::Velmo9::TaskResults;
using Data::Velmo9::VelmoSection;

namespace {

enum class Outcome { solved, notCompiled, stopped };

// Solves every case of a task for one limit state.
template <class Solution, class Solve>
Outcome SolveCases(const AnalysisTask& task, std::vector<Solution>& solutions,
                   const LoopProgress& progress, Solve solve) {
  const std::vector<TaskCase>& cases = task.Cases();
  solutions.resize(cases.size());
  const bool isComplete = ForEachCase(
      std::ssize(cases),
      [&](std::ptrdiff_t i) {
        const auto slot = static_cast<std::size_t>(i);
        solutions[slot] = solve(cases[slot].input);
      },
      progress);
  return isComplete ? Outcome::solved : Outcome::stopped;
}

Outcome SolveUls(const Data::CVelmoData& document, const VelmoSection& section, int iTask,
                 const LoopProgress& progress, TaskResults& results) {
  const auto compiled = SectionCompiler::Compile(document, section, iTask, SectionState::ultimate);
  if (compiled == nullptr) return Outcome::notCompiled;
  const AnalysisTask& task = section.Task(iTask);
  const auto reduction = StrengthReductionOf(document, section, iTask, compiled->section);
  const StrengthReduction* phi = reduction ? &*reduction : nullptr;
  results.ulsComponents = compiled->components;
  const bool isLoad = task.Action() == LoadAction::load;
  return SolveCases(task, results.uls, progress, [&](const Vec3<double>& input) {
    return isLoad ? SolveUlsLoad(compiled->section, input, phi)
                  : SolveUlsDeformation(compiled->section, input, phi);
  });
}

Outcome SolveSls(const Data::CVelmoData& document, const VelmoSection& section, int iTask,
                 const LoopProgress& progress, TaskResults& results) {
  const auto model = SlsModel::Of(document, section, iTask);
  if (!model) return Outcome::notCompiled;
  const AnalysisTask& task = section.Task(iTask);
  results.uncrackedComponents = model->uncracked->components;
  results.crackedComponents = model->cracked->components;
  const auto cracks = CrackModel::Of(document, section, iTask, *results.crackedComponents);
  const bool isLoad = task.Action() == LoadAction::load;
  return SolveCases(task, results.sls, progress, [&](const Vec3<double>& input) {
    auto solution = isLoad ? SolveSlsLoad(*model, input) : SolveSlsDeformation(*model, input);
    if (cracks != nullptr) solution.crackWidth = cracks->LargestWidth(solution);
    return solution;
  });
}

// What is told of a limit state before which `before` solutions of `total` were found.
LoopProgress ProgressFrom(std::size_t before, std::size_t total, const SolveOptions& options) {
  if (!options.progress) return {};
  return [before, total, &options](std::ptrdiff_t done) {
    return options.progress(before + static_cast<std::size_t>(done), total);
  };
}

}  // namespace

void Solver::SolveTask(const Data::CVelmoData& document, VelmoSection& section, int iTask) {
  SolveTask(document, section, iTask, {});
}

bool Solver::SolveTask(const Data::CVelmoData& document, VelmoSection& section, int iTask,
                       const SolveOptions& options) {
  AnalysisTask& task = section.Task(iTask);
  task.DropResults();
  auto results = std::make_shared<TaskResults>();
  results->stamp = Data::Velmo9::ResultsStamp(document, section, iTask);
  results->action = task.Action();
  const std::size_t count = task.Cases().size();
  const std::size_t before = task.ComputesULS() ? count : 0;
  const std::size_t total = before + (task.ComputesSLS() ? count : 0);
  Outcome outcome = Outcome::solved;
  if (task.ComputesULS()) {
    outcome = SolveUls(document, section, iTask, ProgressFrom(0, total, options), *results);
  }
  if (task.ComputesSLS() && outcome == Outcome::solved) {
    outcome = SolveSls(document, section, iTask, ProgressFrom(before, total, options), *results);
  }
  if (outcome == Outcome::solved) task.SetResults(std::move(results));
  return outcome != Outcome::stopped;
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
