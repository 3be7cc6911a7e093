#include "plot/SectionView.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <utility>

#include "model/oxdata/section/component_overlay.h"
#include "model/oxnumeric/centroidal_properties.h"
#include "model/oxutil/text.h"
#include "model/vldata/response/TaskGeometry.h"
#include "plot/section_state.h"

namespace Orlix::Plot {

using Data::CSecComp;
using Data::CVelmoData;
using Data::ShapeKind;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::VelmoSection;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

// "A" to "Z", then "A2" and so on.
std::string TagOf(std::size_t component) {
  constexpr std::size_t kLetters = 26;
  std::string tag(1, static_cast<char>('A' + component % kLetters));
  if (component >= kLetters) tag += std::to_string(component / kLetters + 1);
  return tag;
}

std::string MaterialText(const CVelmoData& document, const CSecComp& component) {
  const auto materials = document.getMaterials();
  const MatType type = component.MaterialType();
  if (type == MatType::none) return "no material";
  const std::string name = type == MatType::concrete ? "concrete"
                           : type == MatType::steel  ? "steel"
                                                     : "FRP";
  if (!materials->IsValidGrade(type, component.MaterialGrade())) return name;
  return name + " " + to_string(materials->Grade(type, component.MaterialGrade()).Name());
}

std::vector<BarView> BarsOf(const CSecComp& component, const std::string& before) {
  std::vector<BarView> bars;
  if (!component.ConcreteExist()) return bars;
  for (const Data::CBar& bar : component.Concrete().Bars()) {
    const double radius =
        bar.Diameter() > 0.0 ? bar.Diameter() / 2.0 : std::sqrt(bar.Area() / std::numbers::pi);
    bars.push_back({bar.Position(), radius, before + std::to_string(bars.size() + 1),
                    bar.GetPreload().value != 0.0, kNone, kNone, kNone});
  }
  return bars;
}

// The outlines as they are given, as far as their vertices are numbers to draw.
std::vector<Numeric::OwnedPolygon> DrawableOutlines(const CSecComp& component) {
  std::vector<Numeric::OwnedPolygon> outlines;
  for (Data::SectionPolygon& polygon : component.Geometry().Polygons(0.0)) {
    const auto isDrawable = [](const std::vector<Vec2<double>>& ring) {
      return std::all_of(ring.begin(), ring.end(), [](Vec2<double> p) {
        return std::hypot(p.x, p.y) <= Data::kFurthestCoordinate;  // false for NaN
      });
    };
    if (isDrawable(polygon.outline) &&
        std::all_of(polygon.holes.begin(), polygon.holes.end(), isDrawable)) {
      outlines.push_back({std::move(polygon.outline), std::move(polygon.holes)});
    }
  }
  return outlines;
}

// The components with the outlines that are drawn of each.
std::vector<ComponentView> ComponentsOf(const CVelmoData& document, const VelmoSection& section,
                                        const AnalysisTask* task) {
  const auto& components = section.Components();
  const auto withBars = std::count_if(components.begin(), components.end(), [](const auto& c) {
    return c.ConcreteExist() && !c.Concrete().Bars().empty();
  });
  std::vector<ComponentView> views;
  std::vector<Data::ComponentOutlines> given;
  for (const CSecComp& component : components) {
    const std::size_t i = views.size();
    given.push_back(Data::GivenOutlines(component));
    ComponentView& view = views.emplace_back();
    view.tag = TagOf(i);
    view.name = to_string(component.Name());
    view.material = MaterialText(document, component);
    view.type = component.MaterialType();
    view.isIncluded =
        !given.back().empty() && (!task || task->IncludesComponent(static_cast<int>(i)));
    if (!view.isIncluded) given.back().clear();
    const ShapeKind kind = component.Geometry().Kind();
    if (kind == ShapeKind::circle || kind == ShapeKind::ring) {
      view.diameter = component.Geometry().Dimensions().diameter;
      view.centre = component.Geometry().Centre();
    }
    view.bars = BarsOf(component, withBars > 1 ? std::to_string(i + 1) + "." : "");
  }
  std::vector<Data::ComponentOutlines> left = Data::Overlaid(given);
  for (std::size_t i = 0; i < views.size(); ++i) {
    views[i].polygons = views[i].isIncluded ? std::move(left[i]) : DrawableOutlines(components[i]);
  }
  return views;
}

Vec2<double> ConcreteCentroid(const VelmoSection& section) {
  std::vector<Data::ComponentOutlines> concretes;
  for (const CSecComp& component : section.Components()) {
    if (component.ConcreteExist()) concretes.push_back(Data::GivenOutlines(component));
  }
  Numeric::AreaMoments sum;
  for (const Data::ComponentOutlines& left : Data::Overlaid(concretes)) {
    sum += Data::OutlineMoments(left);
  }
  return Numeric::CentroidalPropertiesOf(sum).centroid;
}

// The state that is drawn, by the one asked for.
SectionState Shown(SectionState asked, const AnalysisTask& task, const CaseSLSDetails& sls) {
  if (asked == SectionState::reported) {
    if (task.ComputesULS()) return SectionState::underLoad;
    return sls.cracked && sls.stressStrainSummary.cracked ? SectionState::cracked
                                                          : SectionState::uncracked;
  }
  if (IsUltimate(asked) ? !task.ComputesULS() : !task.ComputesSLS()) {
    throw std::invalid_argument(std::string("the task does not compute the ") +
                                (IsUltimate(asked) ? "ultimate" : "serviceability") +
                                " limit state, which has the state asked for");
  }
  return asked;
}

}  // namespace

double SizeOf(const SectionView& view) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  Vec2<double> low{kInfinity, kInfinity};
  Vec2<double> high{-kInfinity, -kInfinity};
  const auto add = [&](Vec2<double> p) {
    low = {std::fmin(low.x, p.x), std::fmin(low.y, p.y)};
    high = {std::fmax(high.x, p.x), std::fmax(high.y, p.y)};
  };
  for (const ComponentView& component : view.components) {
    for (const auto& polygon : component.polygons) std::ranges::for_each(polygon.outline, add);
  }
  return std::fmax(1e-12, std::fmax(high.x - low.x, high.y - low.y));
}

double BlockStart(const ComponentView& component) {
  if (!component.isIncluded || component.type != MatType::concrete) return 0.0;
  const Data::Design::CurveShape& shape = component.curve.Shape(LoadSign::compression);
  const bool isBlock = shape.kind == Data::Design::CurveKind::rectangularBlock;
  return isBlock ? shape.blockStart : 0.0;
}

bool IsUltimate(SectionState state) {
  return state == SectionState::underLoad || state == SectionState::atFailure;
}

SectionView ViewOf(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase) {
  const CVelmoData& document = *app.pData();
  const VelmoSection& section = document.Section(iSec);
  const AnalysisTask* task = ofCase ? &section.Task(ofCase->iTask) : nullptr;
  SectionView view;
  view.components = ComponentsOf(document, section, task);
  view.centroid = ConcreteCentroid(section);
  if (std::all_of(view.components.begin(), view.components.end(),
                  [](const ComponentView& c) { return c.polygons.empty(); })) {
    throw std::invalid_argument("the section has no outline that could be drawn");
  }
  if (!ofCase) return view;
  if (ofCase->iCase < 0 || ofCase->iCase >= task->NumCases()) {
    throw std::out_of_range("no such case");
  }
  if (!task->ComputesULS() && !task->ComputesSLS()) {
    throw std::invalid_argument("the task computes no limit state: its cases have no results");
  }
  view.uls = app.CaseULSDetails(iSec, ofCase->iTask, ofCase->iCase,
                                Data::Velmo9::UlsOutputOptions(true), false);
  view.sls = app.CaseSLSDetails(iSec, ofCase->iTask, ofCase->iCase,
                                Data::Velmo9::SlsOutputOptions(true), true);
  const SectionState state = Shown(ofCase->state, *task, view.sls);
  view.problem = FillState(document, section, *task, ofCase->iCase, state, view);
  return view;
}

}  // namespace Orlix::Plot
