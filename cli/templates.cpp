#include "cli/templates.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numbers>

#include "model/oxutil/text.h"

namespace Orlix::Cli {

using Data::CBar;
using Data::CSecGeom;
using Data::ShapeDimensions;
using Data::ShapeKind;
using Data::Velmo9::TaskCase;

namespace {

/// Bars of one diameter, evenly on a line, both ends included.
struct BarLine {
  int count;
  double diameter;  ///< [m]
  Vec2<double> from;
  Vec2<double> to;
};

struct Template {
  const char* name;
  const char* title;
  ShapeKind shape;
  ShapeDimensions dimensions;
  std::vector<BarLine> lines;
  std::vector<TaskCase> cases;  ///< N [N], Myy and Mzz [Nm]
};

// A circle of bars as lines of one bar each.
std::vector<BarLine> Circle(int count, double diameter, double radius) {
  std::vector<BarLine> lines;
  for (int i = 0; i < count; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / count;
    const Vec2<double> point{radius * std::cos(angle), radius * std::sin(angle)};
    lines.push_back({1, diameter, point, point});
  }
  return lines;
}

const std::vector<Template>& Templates() {
  static const std::vector<Template> kTemplates = {
      {"rectangle",
       "Column 300 x 500",
       ShapeKind::rectangle,
       {.width = 0.3, .depth = 0.5},
       {{3, 0.02, {-0.1, 0.2}, {0.1, 0.2}},
        {3, 0.02, {-0.1, -0.2}, {0.1, -0.2}},
        {1, 0.02, {-0.1, 0.0}, {-0.1, 0.0}},
        {1, 0.02, {0.1, 0.0}, {0.1, 0.0}}},
       {{"compression", {-1.5e6, 0.0, 0.0}},
        {"compression and bending", {-1.0e6, 150e3, 0.0}},
        {"biaxial bending", {-800e3, 100e3, 50e3}},
        {"tension", {300e3, 20e3, 0.0}}}},
      {"circle",
       "Pile, diameter 600",
       ShapeKind::circle,
       {.diameter = 0.6},
       Circle(8, 0.025, 0.225),
       {{"compression", {-3.0e6, 50e3, 0.0}}, {"bending", {-500e3, 250e3, 0.0}}}},
      {"box",
       "Box girder 2000 x 1200",
       ShapeKind::box,
       {.width = 2.0,
        .depth = 1.2,
        .flangeThickness = 0.25,
        .webThickness = 0.3,
        .bottomThickness = 0.2},
       {{10, 0.025, {-0.93, 0.53}, {0.93, 0.53}}, {10, 0.025, {-0.93, -0.53}, {0.93, -0.53}}},
       {{"sagging", {0.0, -1.5e6, 0.0}}, {"hogging", {0.0, 1.5e6, 200e3}}}},
      {"beam",
       "T-beam 800 x 500",
       ShapeKind::tee,
       {.width = 0.8, .depth = 0.5, .flangeThickness = 0.12, .webThickness = 0.3},
       {{2, 0.016, {-0.1, 0.2}, {0.1, 0.2}}, {4, 0.025, {-0.1, -0.2}, {0.1, -0.2}}},
       {{"sagging", {0.0, -280e3, 0.0}}, {"hogging", {0.0, 60e3, 0.0}}}},
  };
  return kTemplates;
}

std::vector<CBar> Bars(const std::vector<BarLine>& lines, int grade) {
  std::vector<CBar> bars;
  for (const BarLine& line : lines) {
    const double area = std::numbers::pi * line.diameter * line.diameter / 4.0;
    for (int i = 0; i < line.count; ++i) {
      const double along = line.count == 1 ? 0.0 : static_cast<double>(i) / (line.count - 1);
      bars.emplace_back(line.from + along * (line.to - line.from), line.diameter, area, grade);
    }
  }
  return bars;
}

}  // namespace

std::vector<std::string> TemplateNames() {
  std::vector<std::string> names;
  for (const Template& t : Templates()) names.emplace_back(t.name);
  return names;
}

void AddTemplate(Data::CVelmoData& document, const std::string& name, int concrete,
                 int reinforcement) {
  const auto& all = Templates();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const Template& t) { return name == t.name; });
  assert(found != all.end());
  Data::CSecComp component(MatType::concrete, concrete, CSecGeom(found->shape, found->dimensions));
  component.SetName(L"Concrete");
  component.Concrete().SetReinforcement({Bars(found->lines, reinforcement)});
  Data::CSection geometry;
  geometry.SetName(cstr(found->title));
  geometry.Components().push_back(component);
  Data::Velmo9::AnalysisTask& task = document.AddSection(geometry).AddTask();
  task.SetName("Strength");
  for (const TaskCase& taskCase : found->cases) task.addCase(taskCase);
}

}  // namespace Orlix::Cli
