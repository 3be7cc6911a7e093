#include "model/vldata/response/bar_problems.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

#include "model/oxdata/reinforcement/CPositionRebar.h"
#include "model/oxdata/reinforcement/FaceDistance.h"
#include "model/oxnumeric/polygon.h"
#include "model/vldata/response/CompileMessages.h"

namespace Orlix::Data::Velmo9 {
namespace {

namespace Messages = CompileMessages;

constexpr double kRounding = 1e-4;  // [m]

// A bar with its numbers.
struct Numbered {
  const CBar* bar;
  int component;
  int index;
};

// The descriptions are placed again, in a copy: what was wrong with them is not kept with the bars.
std::vector<Velmo::RebarProblem> Replaced(const CVelmoData& document, CSection section) {
  Velmo::CPositionRebar positioner(document.GetRebarHelper(), document.GetBarHelper(),
                                   document.concreteCode(), document.Units());
  positioner.GenerateRebar(section);
  return positioner.Problems();
}

double NetArea(const CSecGeom& geometry) {
  double area = 0.0;
  for (const SectionPolygon& polygon : geometry.Polygons(0.0)) {
    area += std::abs(Numeric::SignedArea(polygon.outline));
    for (const auto& hole : polygon.holes) area -= std::abs(Numeric::SignedArea(hole));
  }
  return area;
}

enum class Fit { inside, reachesOut, outside };

// Where a bar is, seen by all components, as parts that touch or overlap are one.
Fit FitOf(const CBar& bar, const std::vector<FaceDistance>& components) {
  const double radius = bar.Diameter() / 2;
  double best = -std::numeric_limits<double>::infinity();
  int touched = 0;
  for (const FaceDistance& faces : components) {
    const double distance = faces.To(bar.Position());
    best = std::max(best, distance);
    if (distance > -radius) ++touched;
    if (best >= radius - kRounding) return Fit::inside;
  }
  if (best < -kRounding) return Fit::outside;
  return touched > 1 ? Fit::inside : Fit::reachesOut;
}

class Checker {
 public:
  // A component whose outlines are in order; all come before the bars are checked.
  void AddOutlines(const CSecComp& component) { components_.emplace_back(component.Geometry()); }

  void CheckComponent(int index, const CSecComp& component) {
    const std::vector<CBar>& bars = component.Concrete().Bars();
    std::map<std::pair<Fit, int>, std::vector<int>> lists;  // by what is wrong and description
    double area = 0.0;  // of the bars that displace this concrete
    const FaceDistance own(component.Geometry());
    for (int i = 0; i < static_cast<int>(bars.size()); ++i) {
      const CBar& bar = bars[static_cast<std::size_t>(i)];
      if (!std::isfinite(bar.Position().x) || !std::isfinite(bar.Position().y)) continue;
      if (own.To(bar.Position()) >= 0.0) area += bar.Area();
      lists[{FitOf(bar, components_), bar.Description()}].push_back(i);
      all_.push_back({&bar, index, i});
    }
    for (const auto& [key, list] : lists) {
      const auto& [fit, description] = key;
      if (fit == Fit::outside) problems_.push_back(Messages::BarsOutside(index, description, list));
      if (fit == Fit::reachesOut) {
        problems_.push_back(Messages::BarsReachOut(index, description, list));
      }
    }
    const double concrete = NetArea(component.Geometry());
    if (area >= concrete) problems_.push_back(Messages::TooMuchBarArea(index, area, concrete));
  }

  // Bars in the order of y, so that only near ones are compared.
  void CheckOverlaps() {
    double widest = 0.0;
    for (const Numbered& n : all_) widest = std::max(widest, n.bar->Diameter());
    std::erase_if(all_, [](const Numbered& n) { return !(n.bar->Diameter() > 0.0); });
    std::stable_sort(all_.begin(), all_.end(), [](const Numbered& a, const Numbered& b) {
      return a.bar->Position().x < b.bar->Position().x;
    });
    constexpr std::size_t kMostTold = 10;
    std::vector<std::string> told;
    std::size_t pairs = 0;
    for (std::size_t i = 0; i < all_.size(); ++i) {
      for (std::size_t k = i + 1; k < all_.size(); ++k) {
        if (all_[k].bar->Position().x - all_[i].bar->Position().x >= widest) break;
        if (!Overlap(*all_[i].bar, *all_[k].bar)) continue;
        if (++pairs <= kMostTold) told.push_back(PairMessage(all_[i], all_[k]));
        if (pairs == kMostPairs) return Tell(told, pairs - kMostTold);
      }
    }
    Tell(told, pairs > kMostTold ? pairs - kMostTold : 0);
  }
  std::vector<std::string> Problems() && { return std::move(problems_); }

 private:
  static constexpr std::size_t kMostPairs = 100000;  // more are not counted

  static bool Overlap(const CBar& a, const CBar& b) {
    return Length(a.Position() - b.Position()) < (a.Diameter() + b.Diameter()) / 2 - kRounding;
  }
  static std::string PairMessage(Numbered a, Numbered b) {
    if (std::pair(b.component, b.index) < std::pair(a.component, a.index)) std::swap(a, b);
    return Messages::BarsOverlap(a.component, a.index, b.component, b.index);
  }
  void Tell(const std::vector<std::string>& told, std::size_t others) {
    problems_.insert(problems_.end(), told.begin(), told.end());
    if (others > 0) problems_.push_back(Messages::MoreOverlaps(others));
  }

  std::vector<FaceDistance> components_;
  std::vector<Numbered> all_;
  std::vector<std::string> problems_;
};

}  // namespace

std::vector<std::string> DescriptionProblems(const CVelmoData& document, const CSection& section) {
  std::vector<std::string> messages;
  for (const Velmo::RebarProblem& p : Replaced(document, section)) {
    messages.push_back(Messages::BadDescription(p.component, p.description, p.text));
  }
  return messages;
}

std::vector<std::string> BarProblems(const CVelmoData& document, const VelmoSection& section,
                                     int iTask) {
  const AnalysisTask& task = section.Task(iTask);
  const auto& components = section.Components();
  const bool areDescribed = std::any_of(components.begin(), components.end(), [](const auto& c) {
    return c.ConcreteExist() && !c.Concrete().GetReinforcement().descriptions.empty();
  });
  std::vector<std::string> messages;
  if (areDescribed) {
    for (const Velmo::RebarProblem& p : Replaced(document, section)) {
      if (!task.IncludesComponent(p.component)) continue;
      messages.push_back(Messages::BadDescription(p.component, p.description, p.text));
    }
  }
  std::vector<int> concretes;
  Checker checker;
  for (int i = 0; i < static_cast<int>(components.size()); ++i) {
    const CSecComp& component = components[static_cast<std::size_t>(i)];
    if (!task.IncludesComponent(i) || !component.Geometry().hasValidPolygons()) continue;
    checker.AddOutlines(component);
    if (component.ConcreteExist()) concretes.push_back(i);
  }
  for (const int i : concretes) checker.CheckComponent(i, components[static_cast<std::size_t>(i)]);
  checker.CheckOverlaps();
  const std::vector<std::string> places = std::move(checker).Problems();
  messages.insert(messages.end(), places.begin(), places.end());
  return messages;
}

}  // namespace Orlix::Data::Velmo9
