#include "reports/html/inputs_part.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "model/oxdata/section/section_properties.h"
#include "model/oxutil/text.h"
#include "plot/drawing_text.h"
#include "reports/html/ReportText.h"
#include "reports/html/materials_part.h"

namespace Orlix::Velmo {

namespace {

using Data::CSecComp;
using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;
using Plot::NumberText;

constexpr std::size_t kBarRows = 120;  // of the table of bars

std::string LimitStates(const AnalysisTask& task) {
  if (task.ComputesULS()) {
    return task.ComputesSLS() ? "ultimate and serviceability" : "ultimate";
  }
  return task.ComputesSLS() ? "serviceability" : "none";
}

std::string LoadTermText(const Data::Velmo9::CreepSettings& creep) {
  const std::string coefficient = ", creep coefficient " + NumberText(creep.creepCoefficient);
  switch (creep.term) {
    case Data::Velmo9::LoadTerm::shortTerm:
      return "short";
    case Data::Velmo9::LoadTerm::longTerm:
      return "long" + coefficient;
    case Data::Velmo9::LoadTerm::intermediate:
      break;
  }
  return "intermediate, " + NumberText(100.0 * creep.longTermShare) + " % of the load acts long" +
         coefficient;
}

std::string PhiText(const Data::Velmo9::CustomPhi& phi) {
  return NumberText(phi.phiCompression) + " up to a net tensile strain of " +
         NumberText(phi.compressionStrain) + ", " + NumberText(phi.phiTension) + " from " +
         NumberText(phi.tensionStrain) + " on, straight between";
}

void AddSettings(const CVelmoData& document, const AnalysisTask& task, HtmlPage& page) {
  const auto code = document.CodePointer();
  std::string preload;
  if (const auto& from = task.PreloadFrom()) {
    preload = "the strains of task " + std::to_string(from->task) + ", case " +
              std::to_string(from->iCase) + ", are locked in";
  }
  std::string phi;
  if (document.concreteCode().IsStrengthReduction()) {
    phi = task.PhiFactors() ? PhiText(*task.PhiFactors()) : "the code's";
  }
  page.Facts(
      {{"Design code", code->name},
       {"National annex", code->annex},
       {"Limit states", LimitStates(task)},
       {"Cases",
        std::to_string(task.NumCases()) +
            (task.Action() == LoadAction::load ? ", given as loads" : ", given as strain planes")},
       {"Load term in service", task.ComputesSLS() ? LoadTermText(task.Creep()) : ""},
       {"Strength reduction phi", phi},
       {"Built on", preload},
       {"Concrete at bars",
        document.Options().deductDisplacedConcrete ? "displaced by the bars" : "not deducted"}});
}

std::string ShapeText(const Data::CSecGeom& geometry, const ReportText& text) {
  if (geometry.Kind() == Data::ShapeKind::none) return "none";
  std::string shape = Data::ShapeName(geometry.Kind());
  if (geometry.Kind() == Data::ShapeKind::polygon) {
    std::size_t vertices = 0;
    std::size_t holes = 0;
    for (const Data::SectionPolygon& polygon : geometry.Polygons(0.0)) {
      vertices += polygon.outline.size();
      holes += polygon.holes.size();
    }
    shape += " of " + std::to_string(vertices) + " vertices";
    if (holes > 0) shape += ", " + std::to_string(holes) + (holes == 1 ? " hole" : " holes");
  }
  for (const Data::ShapeParameter& p : Data::ShapeParameters(geometry.Kind())) {
    const double value = geometry.Dimensions().*p.member;
    if (!p.required && value == 0.0) continue;
    shape += std::string(", ") + p.name + " " + text.Value(value, Dimension::sectionDimensions);
  }
  if (!geometry.Description().empty()) shape += " (" + to_string(geometry.Description()) + ")";
  return shape;
}

void AddComponents(const CVelmoData& document, const VelmoSection& section,
                   const AnalysisTask& task, HtmlPage& page) {
  const ReportText text(document);
  HtmlTable table{"Components; lengths in " + text.Unit(Dimension::sectionDimensions),
                  {{"No."},
                   {"Name", "", false},
                   {"Material", "", false},
                   {"Grade", "", false},
                   {"Shape", "", false},
                   {"Bars"},
                   {"In the task", "", false}}};
  for (std::size_t i = 0; i < section.Components().size(); ++i) {
    const CSecComp& component = section.Components()[i];
    table.rows.push_back(
        {std::to_string(i + 1), to_string(component.Name()),
         ReportText::TypeName(component.MaterialType()),
         text.GradeName(component.MaterialType(), component.MaterialGrade()),
         ShapeText(component.Geometry(), text),
         component.ConcreteExist() ? std::to_string(component.Concrete().Bars().size()) : "-",
         task.IncludesComponent(static_cast<int>(i)) ? "yes" : "no"});
  }
  page.Table(table);
}

void AddProperties(const CVelmoData& document, const VelmoSection& section, HtmlPage& page) {
  const ReportText text(document);
  const std::string length = text.Unit(Dimension::sectionDimensions);
  const Data::SectionProperties properties = Data::SectionPropertiesOf(section);
  const auto& gross = properties.gross;
  const auto place = [&](double value) { return text.Place(value, gross.area); };
  const auto inertia = [&](double value) {
    return text.PowerValue(value, Dimension::sectionDimensions, 4);
  };
  page.Table(
      {"Gross section, all components, overlaps counted once",
       {{"Area", length + "²"},
        {"Centroid y", length},
        {"Centroid z", length},
        {"Iyy", length + "⁴"},
        {"Izz", length + "⁴"},
        {"Iyz", length + "⁴"},
        {"Area of bars", length + "²"},
        {"Bars over concrete", "%"}},
       {{text.PowerValue(gross.area, Dimension::sectionDimensions, 2), place(gross.centroid.x),
         place(gross.centroid.y), inertia(gross.iyy), inertia(gross.izz), inertia(gross.iyz),
         text.PowerValue(properties.rebarArea, Dimension::sectionDimensions, 2),
         NumberText(properties.rebarPercentage)}}});
}

std::string PreloadText(const Data::Preload& preload, const ReportText& text) {
  if (preload == Data::Preload{}) return "-";
  switch (preload.kind) {
    case PreloadKind::stress:
      return text.WithUnit(preload.value, Dimension::stress);
    case PreloadKind::force:
      return text.WithUnit(preload.value, Dimension::force);
    case PreloadKind::strain:
      break;
  }
  return text.WithUnit(preload.value, Dimension::strain);
}

void AddBars(const CVelmoData& document, const VelmoSection& section, HtmlPage& page) {
  const ReportText text(document);
  const std::string length = text.Unit(Dimension::sectionDimensions);
  HtmlTable table{"Bars, numbered within their component",
                  {{"Component"},
                   {"Bar"},
                   {"y", length},
                   {"z", length},
                   {"Diameter", length},
                   {"Area", length + "²"},
                   {"Grade", "", false},
                   {"Pre-stress", "", false}}};
  std::size_t count = 0;
  for (std::size_t i = 0; i < section.Components().size(); ++i) {
    const CSecComp& component = section.Components()[i];
    if (!component.ConcreteExist()) continue;
    const auto& bars = component.Concrete().Bars();
    count += bars.size();
    for (std::size_t j = 0; j < bars.size() && table.rows.size() < kBarRows; ++j) {
      const Data::CBar& bar = bars[j];
      table.rows.push_back(
          {std::to_string(i + 1), std::to_string(j + 1),
           text.Value(bar.Position().x, Dimension::sectionDimensions),
           text.Value(bar.Position().y, Dimension::sectionDimensions),
           bar.Diameter() > 0.0 ? text.Value(bar.Diameter(), Dimension::sectionDimensions) : "-",
           text.PowerValue(bar.Area(), Dimension::sectionDimensions, 2),
           text.GradeName(MatType::reinforcement, bar.Grade()),
           PreloadText(bar.GetPreload(), text)});
    }
  }
  if (table.rows.empty()) return;
  if (count > table.rows.size()) {
    table.caption +=
        "; the first " + std::to_string(table.rows.size()) + " of " + std::to_string(count);
  }
  page.Table(table);
}

void AddReinforcementNotes(const CVelmoData& document, const VelmoSection& section,
                           HtmlPage& page) {
  const ReportText text(document);
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < section.Components().size(); ++i) {
    const CSecComp& component = section.Components()[i];
    if (!component.ConcreteExist()) continue;
    const Data::Reinforcement& steel = component.Concrete().GetReinforcement();
    const std::string of = "Component " + std::to_string(i + 1) + ": ";
    for (const Data::BarDescription& description : steel.descriptions) {
      std::string line = of + "bars by “" + to_string(description.text) + "”";
      if (description.cover) {
        line += ", cover " + text.WithUnit(*description.cover, Dimension::sectionDimensions);
      }
      lines.push_back(std::move(line));
    }
    if (!(steel.links.size > 0.0)) continue;
    std::string line = of + "links of " +
                       text.WithUnit(steel.links.size, Dimension::sectionDimensions) + ", " +
                       std::to_string(steel.links.legs) + " legs";
    if (steel.links.spacing > 0.0) {
      line += " at " + text.WithUnit(steel.links.spacing, Dimension::sectionDimensions);
    }
    lines.push_back(line + (steel.links.perimeter ? ", closed around the outline" : ""));
  }
  if (!lines.empty()) page.List(lines);
}

}  // namespace

void AddInputs(const VelmoApp& app, int iSec, int iTask, HtmlPage& page) {
  const CVelmoData& document = *app.pData();
  const VelmoSection& section = document.Section(iSec);
  const AnalysisTask& task = section.Task(iTask);
  page.Heading("Inputs");
  AddSettings(document, task, page);
  page.Subheading("Section");
  AddComponents(document, section, task, page);
  AddProperties(document, section, page);
  AddReinforcementNotes(document, section, page);
  AddBars(document, section, page);
  page.Subheading("Materials");
  AddMaterials(document, section, task, page);
}

}  // namespace Orlix::Velmo
