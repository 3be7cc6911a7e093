#include "cli/templates.h"

#include <algorithm>
#include <cassert>

#include "model/oxutil/text.h"

namespace Orlix::Cli {

using Data::CSecGeom;
using Data::ShapeDimensions;
using Data::ShapeKind;
using Data::Velmo9::TaskCase;

namespace {

struct Template {
  const char* name;
  const char* title;
  ShapeKind shape;
  ShapeDimensions dimensions;
  std::vector<const char*> bars;  ///< descriptions
  std::vector<TaskCase> cases;    ///< N [N], Myy and Mzz [Nm]
};

const std::vector<Template>& Templates() {
  static const std::vector<Template> kTemplates = {
      {"rectangle",
       "Column 300 x 500",
       ShapeKind::rectangle,
       {.width = 0.3, .depth = 0.5},
       {"3B20 top cover 40mm", "3B20 bottom cover 40mm", "2B20 line (-100mm, 0) (100mm, 0)"},
       {{"compression", {-1.5e6, 0.0, 0.0}},
        {"compression and bending", {-1.0e6, 150e3, 0.0}},
        {"biaxial bending", {-800e3, 100e3, 50e3}},
        {"tension", {300e3, 20e3, 0.0}}}},
      {"circle",
       "Pile, diameter 600",
       ShapeKind::circle,
       {.diameter = 0.6},
       {"8B25 cover 62.5mm"},
       {{"compression", {-3.0e6, 50e3, 0.0}}, {"bending", {-500e3, 250e3, 0.0}}}},
      {"box",
       "Box girder 2000 x 1200",
       ShapeKind::box,
       {.width = 2.0,
        .depth = 1.2,
        .flangeThickness = 0.25,
        .webThickness = 0.3,
        .bottomThickness = 0.2},
       {"10B25 top cover 57.5mm", "10B25 bottom cover 57.5mm"},
       {{"sagging", {0.0, -1.5e6, 0.0}}, {"hogging", {0.0, 1.5e6, 200e3}}}},
      {"beam",
       "T-beam 800 x 500",
       ShapeKind::tee,
       {.width = 0.8, .depth = 0.5, .flangeThickness = 0.12, .webThickness = 0.3},
       {"2B16 line (-100mm, 200mm) (100mm, 200mm)", "4B25 bottom cover 37.5mm"},
       {{"sagging", {0.0, -280e3, 0.0}}, {"hogging", {0.0, 60e3, 0.0}}}},
  };
  return kTemplates;
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
  Data::Reinforcement bars;
  for (const char* text : found->bars) bars.descriptions.push_back({cstr(text), reinforcement});
  component.Concrete().SetReinforcement(bars);
  Data::CSection geometry;
  geometry.SetName(cstr(found->title));
  geometry.Components().push_back(component);
  document.GenerateRebar(geometry);
  Data::Velmo9::AnalysisTask& task = document.AddSection(geometry).AddTask();
  task.SetName("Strength");
  for (const TaskCase& taskCase : found->cases) task.addCase(taskCase);
}

}  // namespace Orlix::Cli
