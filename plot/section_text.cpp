#include "plot/section_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <numbers>
#include <string_view>
#include <utility>

#include "model/oxdata/section/section_properties.h"
#include "model/oxutil/text.h"
#include "plot/PlanDrawing.h"
#include "plot/drawing_text.h"
#include "results/result_text.h"

namespace Orlix::Plot {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::StressStrain;

namespace {

std::string Numbered(int index, const std::string& name) {
  return std::to_string(index + 1) + (name.empty() ? "" : "  " + name);
}

// Without what is rounding beside the largest member.
Vec3<double> Clean(const Vec3<double>& v) {
  const double limit = 1e-9 * std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)});
  const auto clean = [limit](double value) { return std::abs(value) < limit ? 0.0 : value; };
  return {clean(v.x), clean(v.y), clean(v.z)};
}

// As a sheet has room for it.
std::string ShortAnnex(const std::string& annex) {
  constexpr std::string_view kAnnexOf = "national annex of the ";
  if (annex == "national annex of the United Kingdom") return "UK annex";
  return annex.starts_with(kAnnexOf) ? "annex of the " + annex.substr(kAnnexOf.size()) : annex;
}

bool HasBlock(const SectionView& view) {
  return view.state && std::any_of(view.components.begin(), view.components.end(),
                                   [](const ComponentView& c) { return BlockStart(c) > 0.0; });
}

}  // namespace

std::string ScaleText(double denominator) {
  return denominator >= 1.0 ? "1:" + NumberText(denominator) : NumberText(1.0 / denominator) + ":1";
}

TitleBlock TitleOf(const VelmoApp& app, int iSec, std::optional<int> iTask,
                   std::optional<int> iCase) {
  const Data::CVelmoData& document = *app.pData();
  const Data::Velmo9::VelmoSection& section = document.Section(iSec);
  const Data::CTitles& titles = document.Titles();
  TitleBlock title;
  std::string project = titles.project;
  if (!titles.part.empty()) project += (project.empty() ? "" : ", ") + titles.part;
  title.names.emplace_back("Project", project.empty() ? "-" : project);
  title.names.emplace_back("Section", Numbered(iSec, to_string(section.Name())));
  if (iTask) {
    const AnalysisTask& task = section.Task(*iTask);
    title.names.emplace_back("Task", Numbered(*iTask, task.Name()));
    if (iCase) {
      title.names.emplace_back(
          "Case", Numbered(*iCase, task.Cases().at(static_cast<std::size_t>(*iCase)).name));
    }
  }
  const Data::Design::CConcCodeData& code = document.concreteCode().Data();
  title.conditions.emplace_back(
      "Code", code.annex.empty() ? code.name : code.name + ", " + ShortAnnex(code.annex));
  return title;
}

SectionText::SectionText(const VelmoApp& app, int iSec, const std::optional<PictureCase>& ofCase,
                         const SectionView& view)
    : app_(app), iSec_(iSec), case_(ofCase), view_(view), units_(app.pData()->Units()) {}

std::string SectionText::Length(double value) const {
  return ValueText(value, Dimension::sectionDimensions, units_);
}

TitleBlock SectionText::Title(const std::string& scale) const {
  const auto index = [this](int PictureCase::*member) {
    return case_ ? std::optional<int>((*case_).*member) : std::nullopt;
  };
  TitleBlock title = TitleOf(app_, iSec_, index(&PictureCase::iTask), index(&PictureCase::iCase));
  if (case_) {
    const AnalysisTask& task = app_.pData()->Section(iSec_).Task(case_->iTask);
    const bool isUls = view_.state ? IsUltimate(view_.state->state) : task.ComputesULS();
    title.conditions.emplace_back("Limit state", isUls ? "Ultimate (ULS)" : "Serviceability (SLS)");
    title.conditions.emplace_back("State", view_.state ? view_.state->name : "none to show");
    if (isUls) {
      const bool isLoad = task.Action() == LoadAction::load;
      title.utilisation =
          UtilisationText(isLoad ? view_.uls.loadUtilisation : view_.uls.deformationUtilisation);
      title.status = view_.uls.status ? "OK" : "FAILS";
    } else {
      const bool isSolved = view_.sls.resultKind != Data::Velmo9::SlsResultKind::noSolution;
      title.status = !isSolved ? "NO SOLUTION"
                     : view_.sls.resultKind == Data::Velmo9::SlsResultKind::notCalculated ? "-"
                     : view_.sls.cracked ? "cracked"
                                         : "uncracked";
      const double cracking =
          task.SLSResult(case_->iCase, false, true, false).CrackingUtilisation();
      title.utilisation = isSolved && std::isfinite(cracking) ? UtilisationText(cracking) : "-";
      title.utilisationName = "Cracking utilisation";
    }
  }
  title.conditions.emplace_back("Scale", scale + " on A4");
  return title;
}

std::vector<InfoColumn> SectionText::Columns() const {
  std::vector<InfoColumn> columns;
  if (case_) {
    columns = {Loads(), ExtremesColumn(), AxisColumn()};
  } else {
    columns = {BarsColumn(), PropertiesColumn()};
  }
  double left = SheetFrame::kInfo.Width();
  for (const InfoColumn& column : columns) left -= column.width;
  columns.push_back(Key());
  columns.back().width = left;
  return columns;
}

SectionText::Row SectionText::LoadRow(const std::string& name, const Vec3<double>& load) const {
  const Vec3<double> v = Clean(load);
  return {name, NumberText(v.x * units_.Conversion(Dimension::force)),
          NumberText(v.y * units_.Conversion(Dimension::moment)),
          NumberText(v.z * units_.Conversion(Dimension::moment))};
}

InfoColumn SectionText::Loads() const {
  const AnalysisTask& task = app_.pData()->Section(iSec_).Task(case_->iTask);
  const bool isLoad = task.Action() == LoadAction::load;
  const bool isUls = view_.state ? IsUltimate(view_.state->state) : task.ComputesULS();
  InfoColumn column{"Load and strain plane", 78.0};
  column.rows.push_back({"[" + UnitTextOf(Dimension::force, units_) + ", " +
                             UnitTextOf(Dimension::moment, units_) + "]",
                         "N", "Myy", "Mzz"});
  const Vec3<double>& input = task.Cases().at(static_cast<std::size_t>(case_->iCase)).input;
  if (isLoad) {
    column.rows.push_back(LoadRow("of the case", input));
  } else {
    column.rows.push_back(
        LoadRow("carried", isUls ? view_.uls.load.Vector() : view_.sls.uncrackedLoad.Vector()));
  }
  const Vec3<double>& failure = view_.uls.loadAtFailure.Vector();
  if (isUls && failure != Vec3<double>{}) column.rows.push_back(LoadRow("at failure", failure));
  if (view_.state) {
    const double size = SizeOf(view_);
    const Vec3<double>& plane = view_.state->plane.Vector();
    const double bent = std::max(std::abs(plane.y), std::abs(plane.z));
    const double largest = std::max(std::abs(plane.x), size * bent);
    const Vec3<double> v{Snapped(plane.x, largest), Snapped(plane.y * size, largest) / size,
                         Snapped(plane.z * size, largest) / size};
    column.rows.push_back({"[" + UnitTextOf(Dimension::strain, units_) + ", " +
                               UnitTextOf(Dimension::curvature, units_) + "]",
                           "eps0", "kyy", "kzz"});
    column.rows.push_back({"plane drawn", NumberText(v.x * units_.Conversion(Dimension::strain)),
                           NumberText(v.y * units_.Conversion(Dimension::curvature)),
                           NumberText(v.z * units_.Conversion(Dimension::curvature))});
    if (view_.state->isStaged) {
      column.rows.push_back({"The plane comes on top of an earlier stage;"});
      column.rows.push_back({"strains and stresses are those of all stages."});
    }
  }
  const bool hasFactor = app_.pData()->concreteCode().IsStrengthReduction();
  if (isUls && hasFactor && view_.state) {
    const bool isFailure = view_.state->state == SectionState::atFailure;
    column.rows.push_back(
        {isFailure ? "Stresses of the nominal strength, before phi"
                   : "Stresses of the load over phi = " + NumberText(view_.uls.reductionFactor)});
  }
  return column;
}

InfoColumn SectionText::ExtremesColumn() const {
  InfoColumn column{"Extremes: stress [" + UnitTextOf(Dimension::stress, units_) + "], strain [" +
                        UnitTextOf(Dimension::strain, units_) + "]",
                    74.0};
  if (!view_.state) {
    column.rows.push_back({"none"});
    return column;
  }
  column.rows.push_back({"", "σ min", "σ max", "ε min", "ε max"});
  double stress = 0.0;  // the largest of all
  double strain = 0.0;
  for (const Extremes& e : {view_.state->concrete, view_.state->bars, view_.state->others}) {
    if (!e) continue;
    stress = std::fmax(stress, std::fmax(std::abs(e->minStress), std::abs(e->maxStress)));
    strain = std::fmax(strain, std::fmax(std::abs(e->minStrain), std::abs(e->maxStrain)));
  }
  const auto add = [&](const char* name, const Extremes& extremes) {
    if (!extremes) return;
    const auto text = [this](double value, double largest, Dimension dimension) {
      return NumberText(Snapped(value, largest) * units_.Conversion(dimension));
    };
    column.rows.push_back({name, text(extremes->minStress, stress, Dimension::stress),
                           text(extremes->maxStress, stress, Dimension::stress),
                           text(extremes->minStrain, strain, Dimension::strain),
                           text(extremes->maxStrain, strain, Dimension::strain)});
  };
  add("concrete", view_.state->concrete);
  add("bars", view_.state->bars);
  add("steel, FRP", view_.state->others);
  if (!IsUltimate(view_.state->state)) {
    if (std::isfinite(view_.sls.zeta)) {
      column.rows.push_back({"Interpolation factor zeta " + NumberText(view_.sls.zeta)});
    }
    if (view_.sls.hasCrackWidth && std::isfinite(view_.sls.crackWidth)) {
      column.rows.push_back({"Crack width " + Length(view_.sls.crackWidth)});
    }
  } else {
    column.rows.push_back({"Load of the case: M/Mu " + UtilisationText(view_.uls.momentRatio)});
    // The plane at failure is at a limit by what failure is.
    const bool isFailure = view_.state->state == SectionState::atFailure;
    column.rows.push_back({"Plane drawn: strain limits used " +
                           UtilisationText(isFailure ? 1.0 : view_.uls.deformationUtilisation)});
    if (!isFailure && HasBlock(view_)) {
      column.rows.push_back({"Rectangular block: stresses below capacity are those of"});
      column.rows.push_back({"the design block, not of the real material."});
    }
  }
  return column;
}

double SectionText::CompressionDepth() const {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  if (view_.state->isStaged) return kNone;  // each component has a depth of its own
  const Vec3<double>& v = view_.state->plane.Vector();
  double least = kNone;
  double largest = kNone;
  for (const ComponentView& component : view_.components) {
    if (!component.isIncluded || component.type != MatType::concrete) continue;
    for (const auto& polygon : component.polygons) {
      for (const Vec2<double>& p : polygon.outline) {
        const double strain = view_.state->plane.StrainAt(p);
        least = std::fmin(least, strain);
        largest = std::fmax(largest, strain);
      }
    }
  }
  if (!(least < 0.0)) return kNone;
  return (std::min(largest, 0.0) - least) / std::hypot(v.y, v.z);
}

InfoColumn SectionText::AxisColumn() const {
  InfoColumn column{"Neutral axis and axes", 54.0};
  if (view_.state && std::isnan(view_.state->axis.angle)) {
    column.rows.push_back({"No neutral axis: no curvature"});
  } else if (view_.state) {
    const double angle = view_.state->axis.angle * 180.0 / std::numbers::pi;
    column.rows.push_back(
        {"angle from the y axis", NumberText(std::abs(angle) < 1e-6 ? 0.0 : angle) + "°"});
    column.rows.push_back(
        {"distance from the origin", Length(Snapped(view_.state->axis.offset, SizeOf(view_)))});
    const double depth = CompressionDepth();
    if (std::isfinite(depth)) {
      column.rows.push_back({"depth in compression", Length(depth)});
    }
  }
  if (std::isfinite(view_.centroid.x)) {
    const double size = SizeOf(view_);
    column.rows.push_back({"gross concrete centroid"});
    column.rows.push_back(
        {"y, z", Length(Snapped(view_.centroid.x, size)), Length(Snapped(view_.centroid.y, size))});
  }
  if (view_.state && AcrossNeutralAxis(view_).x != 0.0) {
    column.rows.push_back({"s: from the origin, across it"});
  }
  return column;
}

InfoColumn SectionText::BarsColumn() const {
  const Data::CVelmoData& document = *app_.pData();
  InfoColumn column{"Bars", 104.0};
  std::map<std::pair<std::string, std::string>, std::pair<int, double>> groups;
  for (const Data::CSecComp& component : document.Section(iSec_).Components()) {
    if (!component.ConcreteExist()) continue;
    for (const Data::CBar& bar : component.Concrete().Bars()) {
      const auto materials = document.getMaterials();
      const std::string grade = materials->IsValidGrade(MatType::reinforcement, bar.Grade())
                                    ? to_string(materials->Reinforcement(bar.Grade()).Name())
                                    : "no grade";
      const std::string size =
          bar.Diameter() > 0.0 ? "diameter " + Length(bar.Diameter()) : "points";
      auto& [count, area] = groups[{size, grade}];
      ++count;
      area += bar.Area();
    }
  }
  const double factor = units_.Conversion(Dimension::sectionDimensions);
  const std::string unit = UnitTextOf(Dimension::sectionDimensions, units_) + "²";
  for (const auto& [group, sum] : groups) {
    if (column.rows.size() + 2 > SheetFrame::kInfoRows - 1 &&
        groups.size() > SheetFrame::kInfoRows) {
      column.rows.push_back({"…"});
      break;
    }
    column.rows.push_back({std::to_string(sum.first) + " x " + group.first + ", " + group.second,
                           NumberText(sum.second * factor * factor) + " " + unit});
  }
  if (groups.empty()) column.rows.push_back({"none"});
  return column;
}

InfoColumn SectionText::PropertiesColumn() const {
  InfoColumn column{"Gross properties, all components", 92.0};
  const Data::SectionProperties properties =
      Data::SectionPropertiesOf(app_.pData()->Section(iSec_));
  const double factor = units_.Conversion(Dimension::sectionDimensions);
  const std::string unit = UnitTextOf(Dimension::sectionDimensions, units_);
  const auto power = [&](double value, int exponent) {
    return NumberText(value * std::pow(factor, exponent));
  };
  const auto& gross = properties.gross;
  if (gross.area > 0.0) {
    column.rows.push_back({"area", power(gross.area, 2) + " " + unit + "²"});
    const double size = SizeOf(view_);
    column.rows.push_back({"centroid y, z", Length(Snapped(gross.centroid.x, size)),
                           Length(Snapped(gross.centroid.y, size))});
    column.rows.push_back({"Iyy, Izz [" + unit + "⁴]", power(gross.iyy, 4), power(gross.izz, 4)});
  }
  column.rows.push_back({"bars", NumberText(properties.rebarPercentage) + " % of the concrete"});
  return column;
}

InfoColumn SectionText::Key() const {
  InfoColumn column{"Key", 0.0};
  bool hasBars = false;
  bool hasPrestress = false;
  bool hasSteel = false;
  bool hasFrp = false;
  bool isPartial = false;
  for (const ComponentView& component : view_.components) {
    hasBars |= !component.bars.empty();
    hasPrestress |= std::any_of(component.bars.begin(), component.bars.end(),
                                [](const BarView& bar) { return bar.isPrestressed; });
    hasSteel |= component.isIncluded && component.type == MatType::steel;
    hasFrp |= component.isIncluded && component.type == MatType::FRP;
    isPartial |= !component.isIncluded;
  }
  const auto add = [&](bool is, KeySign sign, const char* text) {
    if (is) column.key.emplace_back(sign, text);
  };
  if (view_.state) {
    column.key.emplace_back(KeySign::compressionZone, HasBlock(view_)
                                                          ? "concrete under the stress block"
                                                          : "concrete in compression");
    add(hasBars, KeySign::barInTension, "bar in tension (open: compression)");
    add(std::isfinite(view_.state->axis.offset), KeySign::neutralAxis,
        view_.state->isStaged ? "neutral axis of this stage" : "neutral axis (NA)");
  }
  add(hasPrestress, KeySign::prestressedBar, "prestressed bar");
  add(hasSteel, KeySign::steel, "structural steel");
  add(hasFrp, KeySign::frp, "FRP");
  add(isPartial, KeySign::notIncluded, case_ ? "not in the task" : "outline not valid");
  column.key.emplace_back(KeySign::origin, "origin of y and z, where loads act");
  return column;
}

}  // namespace Orlix::Plot
