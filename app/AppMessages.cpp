#include "app/AppMessages.h"

#include <cstddef>

#include "model/vldata/response/CompileMessages.h"
#include "model/vlsol/diagrams/diagrams.h"

namespace Orlix::AppMessages {

namespace {

std::string FromOne(int index) { return std::to_string(1LL + index); }

}  // namespace

std::string InvalidSection(int iSec) { return FromOne(iSec) + " is not a valid section number."; }

std::string InvalidTask(int iSec, int iTask) {
  return FromOne(iTask) + " is not a valid task number for Section " + FromOne(iSec) + ".";
}

std::string NoCaseResults(int iCase) { return "Unable to get results for case " + FromOne(iCase); }

std::string WrongDiagramMember(const std::string& member, const std::string& expected) {
  return "Diagram: \"" + member + "\" has to be " + expected + ".";
}

std::string NoDiagram(int iTask, VlSol::DiagramProblem problem, LoadState state) {
  const std::string name = state == LoadState::ULS ? "ULS" : "SLS";
  switch (problem) {
    case VlSol::DiagramProblem::none:
      break;
    case VlSol::DiagramProblem::notCompiled:
      return TaskPrefix(iTask) + "There is no diagram of a task that does not pass its checks";
    case VlSol::DiagramProblem::notComputed:
      return TaskPrefix(iTask) + "The task does not compute " + name +
             "; set it to do so for a diagram";
    case VlSol::DiagramProblem::noCapacity:
      return TaskPrefix(iTask) + "The section carries no moment here: no diagram";
    case VlSol::DiagramProblem::axialForce:
      return TaskPrefix(iTask) +
             "The section does not carry this axial force without a moment: no diagram";
  }
  return {};
}

std::string TaskPrefix(int iTask) { return Data::Velmo9::CompileMessages::TaskPrefix(iTask); }

std::string NoActiveComponents(int iTask) {
  return TaskPrefix(iTask) + "There are no active components to solve";
}

std::string NoPreloadTask(int iTask, int number) {
  return TaskPrefix(iTask) + "Task " + std::to_string(number) +
         " is not a valid task for component preload";
}

std::string LaterPreloadTask(int iTask, int number) {
  return TaskPrefix(iTask) + "Task " + std::to_string(number) +
         " is not a valid task. Only the tasks priors to the current task are valid for component "
         "preload";
}

std::string NoSharedComponents(int iTask, int number) {
  return TaskPrefix(iTask) + "Task " + FromOne(iTask) +
         " is not a valid because it doesn't share active components with the reference task " +
         std::to_string(number) + " for component preload";
}

std::string NoPreloadCase(int iTask, int number) {
  return TaskPrefix(iTask) + "Case " + std::to_string(number) +
         " is not a valid case number for component preload";
}

std::string MissingPreloadCase(int iTask, int number) {
  return TaskPrefix(iTask) + "Case " + std::to_string(number) +
         " is not available from the given task for component preload";
}

std::string UnsolvedPreloadCase(int iTask, int task, int number) {
  return TaskPrefix(iTask) + "Case " + std::to_string(number) + " of task " + std::to_string(task) +
         " is not valid for component preload, as it doesn't have result";
}

std::string DifferentCreep(int iTask, int number) {
  return TaskPrefix(iTask) +
         "Different load term or creep coefficients are not allowed between the current (Task " +
         FromOne(iTask) + ") and the referenced task (Task " + std::to_string(number) + ")";
}

std::string OverlappingComponents(int iTask, int number) {
  return TaskPrefix(iTask) + "Additional enabled component(s) from the task " + FromOne(iTask) +
         " overlaps with enabled components of the reference task " + std::to_string(number);
}

std::string AboutComponents(const std::vector<int>& numbers, const std::string& one,
                            const std::string& several) {
  const bool single = numbers.size() == 1;
  return (single ? "Component " : "Components ") + List(numbers) + (single ? one : several);
}

std::string List(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) text += i + 1 == numbers.size() ? " and " : ", ";
    text += std::to_string(numbers[i]);
  }
  return text;
}

}  // namespace Orlix::AppMessages
