#include "model/vlsol/Solver.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include "model/oxutil/ForEachCase.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/results_stamp.h"
#include "model/vlsol/uls.h"

namespace Orlix::VlSol {

using Data::CSecComp;
using Data::Design::CurveKind;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::TaskResults;

void Solver::SolveTask(const Data::CVelmoData& document, Data::Velmo9::VelmoSection& section,
                       int iTask) {
  AnalysisTask& task = section.Task(iTask);
  task.DropResults();
  auto results = std::make_shared<TaskResults>();
  results->stamp = Data::Velmo9::ResultsStamp(document, section, iTask);
  results->action = task.Action();
  if (task.ComputesULS()) {
    const auto compiled = SectionCompiler::Compile(document, section, iTask, LoadState::ULS);
    if (compiled == nullptr) return;
    results->ulsComponents = compiled->components;
    results->uls.resize(task.Cases().size());
    const bool isLoad = task.Action() == LoadAction::load;
    ForEachCase(static_cast<std::ptrdiff_t>(task.Cases().size()), [&](std::ptrdiff_t i) {
      const auto slot = static_cast<std::size_t>(i);
      const Vec3<double>& input = task.Cases()[slot].input;
      results->uls[slot] = isLoad ? SolveUlsLoad(compiled->section, input)
                                  : SolveUlsDeformation(compiled->section, input);
    });
  }
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
