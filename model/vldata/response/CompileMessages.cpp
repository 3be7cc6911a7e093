#include "model/vldata/response/CompileMessages.h"

#include "model/oxutil/text.h"

namespace Orlix::Data::Velmo9::CompileMessages {
namespace {

std::string Component(int component) { return "Component " + std::to_string(component + 1); }

std::string Bar(int component, int bar) {
  return Component(component) + ", bar " + std::to_string(bar + 1);
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
         " has no valid stress-strain curve at the " +
         (state == LoadState::ULS ? "ultimate" : "serviceability") + " limit state.";
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

std::string NoPhi(int task) {
  return "Task " + std::to_string(task + 1) +
         " has no valid phi factors: they must lie between 0 and 1 and, like their strain limits, "
         "not fall from compression to tension control; strain limits must not be negative.";
}

}  // namespace Orlix::Data::Velmo9::CompileMessages
