#include "model/oxdata/reinforcement/CPositionRebar.h"

#include <algorithm>
#include <utility>

#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/bar_placement.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Velmo {
namespace {

using Data::BarDescription;
using Data::CBar;
using Data::CBarInput;
using Data::CSecComp;
using Data::Reinforcement;

std::string ShortOfCover(double missing) {
  return "the cover does not fit: a bar is " + StringFrom(missing * 1000.0) +
         " mm too near to a face";
}

/// Makes the bars of one component.
class ComponentBars {
 public:
  ComponentBars(const CSecComp& component, std::vector<RebarProblem>& problems, int index)
      : component_(component),
        reinforcement_(component.Concrete().GetReinforcement()),
        problems_(problems),
        index_(index) {
    std::erase_if(reinforcement_.bars, [](const CBar& bar) { return bar.Description() >= 0; });
  }

  /// @return whether the description could be read and placed
  bool Add(int number, const CBarInput& input) {
    BarDescription& description = reinforcement_.descriptions[static_cast<std::size_t>(number)];
    if (!input.IsDescriptionValid()) return Fail(number, to_string(input.Error()));
    Data::BarInfo info = input.Info();
    if (!info.cover) info.cover = description.cover;
    const Data::BarPlacement placement =
        Data::PlaceBars(info, component_.Geometry(), reinforcement_.LinkDepth());
    if (!placement.problem.empty()) return Fail(number, placement.problem);
    if (placement.missingCover > 0.0) Fail(number, ShortOfCover(placement.missingCover));
    const int grade = input.Grade(description.grade);
    const Data::Preload preload =
        info.preload ? *info.preload : description.preload.value_or(Data::Preload());
    for (const Data::PlacedBar& placed : placement.bars) {
      CBar bar(placed.position, placed.size.diameter, placed.size.area, grade, preload);
      bar.SetDescription(number);
      reinforcement_.bars.push_back(bar);
    }
    return true;
  }
  bool Fail(int number, std::string text) {
    problems_.push_back({index_, number, std::move(text)});
    return false;
  }
  void KeepGrade(int number, int grade) {
    reinforcement_.descriptions[static_cast<std::size_t>(number)].grade = grade;
  }
  const Reinforcement& Result() const { return reinforcement_; }

 private:
  const CSecComp& component_;
  Reinforcement reinforcement_;
  std::vector<RebarProblem>& problems_;
  int index_;
};

}  // namespace

CPositionRebar::CPositionRebar(const Util::CRebarHelper& grades, const Util::CBarHelper& sizes,
                               const Data::Design::CConcCode&, const Data::CUnit& units)
    : grades_(grades),
      sizes_(sizes),
      metresPerUnit_(1.0 / units.Conversion(Dimension::sectionDimensions)) {}

void CPositionRebar::GenerateRebar(Data::CSection& section) {
  problems_.clear();
  std::vector<Reinforcement> made(section.Components().size());
  bool isMade = true;
  std::size_t bars = 0;
  for (std::size_t i = 0; i < made.size(); ++i) {
    const CSecComp& component = section.Components()[i];
    if (!component.ConcreteExist()) continue;
    ComponentBars maker(component, problems_, static_cast<int>(i));
    const auto& descriptions = component.Concrete().GetReinforcement().descriptions;
    const bool hasOutline = descriptions.empty() || component.Geometry().hasValidPolygons();
    for (int k = 0; k < static_cast<int>(descriptions.size()); ++k) {
      const BarDescription& description = descriptions[static_cast<std::size_t>(k)];
      CBarInput input(description.text, grades_, sizes_, metresPerUnit_);
      input.SetUpdateGrade(updateGrade_);
      if (input.IsDescriptionValid() && !hasOutline) {
        isMade = maker.Fail(k, "the component has no valid outline");
        continue;
      }
      const std::size_t before = maker.Result().bars.size();
      if (!maker.Add(k, input)) isMade = false;
      bars += maker.Result().bars.size() - before;
      if (bars > static_cast<std::size_t>(CBarInput::kMostBars)) {
        maker.Fail(k, "the descriptions of the section make more than 10000 bars");
        return;
      }
      if (updateGrade_ && input.IsDescriptionValid()) {
        maker.KeepGrade(k, input.Grade(description.grade));
      }
    }
    made[i] = maker.Result();
  }
  if (!isMade) return;
  for (std::size_t i = 0; i < made.size(); ++i) {
    CSecComp& component = section.Components()[i];
    if (component.ConcreteExist()) component.Concrete().SetReinforcement(std::move(made[i]));
  }
}

}  // namespace Orlix::Velmo
