#include "model/vldata/response/CompileMessages.h"

#include "model/oxutil/StringFrom.h"
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

std::string Description(int component, int description) {
  return Component(component) + ", bar description " + std::to_string(description + 1);
}

// "bar 2" or "bars 2, 5 and 7", the first twenty of a long list.
std::string Bars(const std::vector<int>& bars) {
  constexpr std::size_t kMost = 20;
  const std::size_t named = bars.size() > kMost ? kMost : bars.size();
  std::string text = bars.size() == 1 ? "bar " : "bars ";
  for (std::size_t i = 0; i < named; ++i) {
    if (i > 0) text += i + 1 == bars.size() ? " and " : ", ";
    text += std::to_string(bars[i] + 1);
  }
  if (named < bars.size()) text += " and " + std::to_string(bars.size() - named) + " more";
  return text;
}

// The bars of a component, with the description that made them.
std::string BarsOf(int component, int description, const std::vector<int>& bars) {
  const std::string text = Component(component) + ", " + Bars(bars);
  if (description < 0) return text;
  return text + " of bar description " + std::to_string(description + 1);
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

std::string BarsOutside(int component, int description, const std::vector<int>& bars) {
  return BarsOf(component, description, bars) + (bars.size() == 1 ? " lies" : " lie") +
         " outside the section.";
}

std::string BarsReachOut(int component, int description, const std::vector<int>& bars) {
  return BarsOf(component, description, bars) + (bars.size() == 1 ? " reaches" : " reach") +
         " out of the section.";
}

std::string BarsOverlap(int component, int bar, int otherComponent, int otherBar) {
  if (component == otherComponent)
    return Component(component) + ", " + Bars({bar, otherBar}) + " overlap.";
  return Bar(component, bar) + " overlaps with component " + std::to_string(otherComponent + 1) +
         ", bar " + std::to_string(otherBar + 1) + ".";
}

std::string MoreOverlaps(std::size_t pairs) {
  return std::to_string(pairs) +
         (pairs == 1 ? " more pair of bars overlaps." : " more pairs of bars overlap.");
}

std::string TooMuchBarArea(int component, double area, double concrete) {
  return Component(component) + " has more bars (" + StringFrom(area * 1e6) +
         " mm²) than concrete (" + StringFrom(concrete * 1e6) + " mm²).";
}

std::string BadDescription(int component, int description, const std::string& problem) {
  return Description(component, description) + ": " + problem + ".";
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
