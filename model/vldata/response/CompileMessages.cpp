#include "model/vldata/response/CompileMessages.h"

#include "model/oxutil/text.h"

namespace Orlix::Data::Velmo9::CompileMessages {
namespace {

std::string Component(int component) { return "Component " + std::to_string(component + 1); }

std::string Bar(int component, int bar) {
  return Component(component) + ", bar " + std::to_string(bar + 1);
}

std::string Name(LoadState state) {
  return state == LoadState::ULS ? "ultimate" : "serviceability";
}

}  // namespace

std::string NothingIncluded(int task) {
  return "Task " + std::to_string(task + 1) + " includes no component.";
}

std::string NoMaterialType(int component) {
  return Component(component) + " has no material type: choose concrete, steel or FRP.";
}

std::string NoMaterialGrade(int component) {
  return Component(component) + " has no grade of its material: choose one of the document's.";
}

std::string NoShape(int component, const std::string& problem) {
  return Component(component) + " has no valid outline: " + problem + ".";
}

std::string TooFarAway(int component) {
  return Component(component) + " reaches further than 1000 km from the section's origin.";
}

std::string NoCurve(int component, const OrlixString<wchar_t>& grade, LoadState state) {
  return Component(component) + ": the grade " + to_string(grade) +
         " has no valid stress-strain curve at the " + Name(state) + " limit state.";
}

std::string NoBarGrade(int component, int bar) {
  return Bar(component, bar) + " has no grade of the document's reinforcement.";
}

std::string NoBarArea(int component, int bar) {
  return Bar(component, bar) + " has no area: give it a diameter or an area.";
}

std::string NoBarPlace(int component, int bar) {
  return Bar(component, bar) + " has no valid position.";
}

std::string NoBarPreload(int component, int bar) {
  return Bar(component, bar) + " has a preload that its curve does not reach.";
}

std::string NoCreep(int task) {
  return "Task " + std::to_string(task + 1) +
         " has no valid creep: the coefficient must lie between 0 and 100, the long-term share "
         "between 0 and 1.";
}

std::string NoPreloadingCase(int task) {
  return "Task " + std::to_string(task + 1) +
         " is preloaded by a case that has no results: solve the earlier task first.";
}

std::string NoPreloadingState(int task, int reference, LoadState state) {
  return "Task " + std::to_string(task + 1) + " is preloaded by task " +
         std::to_string(reference + 1) + ", which does not compute the " + Name(state) +
         " limit state.";
}

std::string TaskPrefix(int task) { return "Error from task " + std::to_string(1LL + task) + ": "; }

}  // namespace Orlix::Data::Velmo9::CompileMessages
