#include "app/PreSolutionChecks.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "app/AppMessages.h"
#include "app/model_indices.h"
#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/vldata/response/SectionCompiler.h"
#include "model/vldata/response/compile_problems.h"
#include "model/vldata/response/results_stamp.h"

namespace Orlix {

using Data::CSecComp;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::SectionCompiler;
using Data::Velmo9::VelmoSection;

bool PreSolutionChecks::CheckSection(std::vector<std::string>& messages, int iSec) const {
  using Check = bool (PreSolutionChecks::*)(int, std::vector<int>&) const;
  const struct {
    Check check;
    const char* one;
    const char* several;
  } kChecks[] = {
      {&PreSolutionChecks::HaveMaterialType, " has no material type.", " have no material types."},
      {&PreSolutionChecks::HaveMaterialGrade, " does not have a valid material grade.",
       " do not have valid material grades."},
      {&PreSolutionChecks::HaveMaterialCurves, " does not have valid material curves.",
       " do not have valid material curves."},
      {&PreSolutionChecks::HavePolygons, " is invalid.", " are invalid."},
  };
  if (!HasSection(document_, iSec)) messages.push_back(AppMessages::InvalidSection(iSec));
  for (const auto& [check, one, several] : kChecks) {
    std::vector<int> bad;
    if (!(this->*check)(iSec, bad)) {
      messages.push_back(AppMessages::AboutComponents(bad, one, several));
    }
  }
  std::string message;
  if (!HaveValidRebarDefinition(iSec, message)) messages.push_back(std::move(message));
  return messages.empty();
}

bool PreSolutionChecks::CheckTask(std::vector<std::string>& messages, int iSec, int iTask) const {
  if (!HasSection(document_, iSec)) return CheckSection(messages, iSec);
  const std::size_t before = messages.size();
  if (iTask >= 0 && !HasTask(document_, iSec, iTask)) {
    messages.push_back(AppMessages::TaskPrefix(iTask) + AppMessages::InvalidTask(iSec, iTask));
  }
  if (!IsAnyComponentEnabled(iSec, iTask)) {
    messages.push_back(AppMessages::NoActiveComponents(iTask));
  }
  CheckCustomPhiFactors(messages, iSec, iTask);
  CheckComponentPreload(messages, iSec, iTask);
  CheckSection(messages, iSec);
  if (messages.size() > before) return false;
  // What the checks above find would be reported again by the compile step, so it is asked last.
  const VelmoSection& section = document_.Section(iSec);
  const AnalysisTask& task = section.Task(iTask);
  if (task.ComputesULS()) AddCompileProblems(messages, section, iTask, LoadState::ULS);
  if (task.ComputesSLS()) AddCompileProblems(messages, section, iTask, LoadState::SLS);
  return messages.empty();
}

// Most problems are those of both states and are told once.
void PreSolutionChecks::AddCompileProblems(std::vector<std::string>& messages,
                                           const VelmoSection& section, int iTask,
                                           LoadState state) const {
  for (std::string& problem : SectionCompiler::Problems(document_, section, iTask, state)) {
    if (std::find(messages.begin(), messages.end(), problem) == messages.end()) {
      messages.push_back(std::move(problem));
    }
  }
}

template <class Fails>
bool PreSolutionChecks::Collect(int iSec, std::vector<int>& bad, Fails fails) const {
  if (!HasSection(document_, iSec)) return true;
  bool passed = true;
  int number = 0;
  for (const CSecComp& component : document_.Section(iSec).Components()) {
    ++number;
    if (!fails(component)) continue;
    bad.push_back(number);
    passed = false;
  }
  return passed;
}

bool PreSolutionChecks::HaveMaterialType(int iSec, std::vector<int>& bad) const {
  return Collect(iSec, bad, [](const CSecComp& c) { return c.MaterialType() == MatType::none; });
}

bool PreSolutionChecks::HaveMaterialGrade(int iSec, std::vector<int>& bad) const {
  const Data::Materials& materials = *document_.getMaterials();
  return Collect(iSec, bad, [&](const CSecComp& c) {
    return c.MaterialType() != MatType::none &&
           !materials.IsValidGrade(c.MaterialType(), c.MaterialGrade());
  });
}

bool PreSolutionChecks::HaveMaterialCurves(int iSec, std::vector<int>& bad) const {
  const Data::Materials& materials = *document_.getMaterials();
  return Collect(iSec, bad, [&](const CSecComp& c) {
    if (!materials.IsValidGrade(c.MaterialType(), c.MaterialGrade())) return false;
    const Data::Design::CMat& material = materials.Grade(c.MaterialType(), c.MaterialGrade());
    return material.Curve(LoadState::ULS).Segments().empty() ||
           material.Curve(LoadState::SLS).Segments().empty();
  });
}

bool PreSolutionChecks::HavePolygons(int iSec, std::vector<int>& bad) const {
  return Collect(iSec, bad, [](const CSecComp& c) { return !c.Geometry().hasValidPolygons(); });
}

bool PreSolutionChecks::HaveValidRebarDefinition(int iSec, std::string& message) const {
  if (!HasSection(document_, iSec)) return true;
  const double metresPerUnit = 1.0 / document_.Units().Conversion(Dimension::sectionDimensions);
  for (const CSecComp& component : document_.Section(iSec).Components()) {
    if (!component.ConcreteExist()) continue;
    const auto& descriptions = component.Concrete().GetReinforcement().descriptions;
    const bool allValid =
        std::all_of(descriptions.begin(), descriptions.end(), [&](const auto& description) {
          return Data::CBarInput(description.text, document_.GetRebarHelper(),
                                 document_.GetBarHelper(), metresPerUnit)
              .IsDescriptionValid();
        });
    if (allValid) continue;
    message = AppMessages::kInvalidRebar;
    return false;
  }
  return true;
}

bool PreSolutionChecks::IsAnyComponentEnabled(int iSec, int iTask) const {
  if (!HasTask(document_, iSec, iTask)) return false;
  const VelmoSection& section = document_.Section(iSec);
  const AnalysisTask& task = section.Task(iTask);
  int component = 0;
  for (std::size_t i = 0; i < section.Components().size(); ++i) {
    if (task.IncludesComponent(component++)) return true;
  }
  return false;
}

void PreSolutionChecks::CheckCustomPhiFactors(std::vector<std::string>& messages, int iSec,
                                              int iTask) const {
  if (!HasTask(document_, iSec, iTask) || !document_.concreteCode().IsStrengthReduction()) return;
  const auto& phi = document_.Section(iSec).Task(iTask).PhiFactors();
  if (!phi) return;
  for (const std::string& problem : Data::Velmo9::PhiProblems(*phi)) {
    messages.push_back(AppMessages::TaskPrefix(iTask) + problem);
  }
}

void PreSolutionChecks::CheckComponentPreload(std::vector<std::string>& messages, int iSec,
                                              int iTask) const {
  if (!HasTask(document_, iSec, iTask)) return;
  const auto& from = document_.Section(iSec).Task(iTask).PreloadFrom();
  if (!from) return;
  std::string problem = PreloadProblem(iSec, iTask, *from);
  if (!problem.empty()) messages.push_back(std::move(problem));
}

std::string PreSolutionChecks::PreloadProblem(int iSec, int iTask,
                                              const Data::Velmo9::PreloadReference& from) const {
  const VelmoSection& section = document_.Section(iSec);
  if (from.task < 1) return AppMessages::NoPreloadTask(iTask, from.task);
  if (from.task > iTask) return AppMessages::LaterPreloadTask(iTask, from.task);
  const int iReference = from.task - 1;
  if (!section.IsCommonActiveComponentFound(iTask, iReference)) {
    return AppMessages::NoSharedComponents(iTask, from.task);
  }
  if (from.iCase < 1) return AppMessages::NoPreloadCase(iTask, from.iCase);
  if (from.iCase > section.Task(iReference).NumCases()) {
    return AppMessages::MissingPreloadCase(iTask, from.iCase);
  }
  // Results of an earlier model are none.
  if (!IsPreloadCaseResultsValid(section, iReference, from.iCase - 1) ||
      !HasCurrentResults(document_, section, iReference, from.iCase - 1)) {
    return AppMessages::UnsolvedPreloadCase(iTask, from.task, from.iCase);
  }
  if (!section.DoesPreloadedTaskHasSameCreep(iTask, iReference)) {
    return AppMessages::DifferentCreep(iTask, from.task);
  }
  if (document_.IsComponentOverlappedInStages(iSec, iTask, iReference)) {
    return AppMessages::OverlappingComponents(iTask, from.task);
  }
  return {};
}

bool PreSolutionChecks::IsPreloadCaseResultsValid(const VelmoSection& section, int iTask,
                                                  int iCase) {
  return iTask >= 0 && std::cmp_less(iTask, section.Tasks().size()) &&
         section.Task(iTask).IsCaseAnalysed(iCase);
}

}  // namespace Orlix
