#include "cli/diagram_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/case_table.h"
#include "cli/documents.h"
#include "cli/printable.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"
#include "results/result_text.h"

namespace Orlix::Cli {

using Data::Velmo9::Deformation;
using Data::Velmo9::VelmoLoad;
using VlSol::Diagram;
using VlSol::DiagramKind;
using VlSol::DiagramLoad;
using VlSol::DiagramMark;
using VlSol::DiagramPoint;

namespace {

constexpr std::size_t kLines = 40;

/// A column: heading and unit, and its cell of a point and of a load.
struct Heading {
  std::string name;
  std::string unit;
};

bool HasMoment(const Diagram& diagram) { return diagram.kind != DiagramKind::biaxialMoment; }

// What both kinds of lines begin with: the moment in the held direction, and the load.
std::vector<Heading> LoadHeadings(const Diagram& diagram, const UnitText& units) {
  std::vector<Heading> headings;
  const std::string moment = units.Unit(Dimension::moment);
  if (HasMoment(diagram)) headings.push_back({"M", moment});
  headings.push_back({"N", units.Unit(Dimension::force)});
  headings.push_back({"Myy", moment});
  headings.push_back({"Mzz", moment});
  return headings;
}

void AddLoadCells(const Diagram& diagram, double moment, const Vec3<double>& load,
                  const UnitText& units, Cells& cells) {
  if (HasMoment(diagram)) {
    // As the load's members: what is below 1e-9 of the others is rounding.
    const VelmoLoad shown({load.x, moment, Length(Vec2<double>{load.y, load.z})});
    cells.push_back(units.Load(shown)[1]);
  }
  AddThree(cells, units.Load(VelmoLoad(load)));
}

std::vector<Heading> PointHeadings(const Diagram& diagram, const UnitText& units) {
  std::vector<Heading> headings;
  const std::string curvature = units.Unit(Dimension::curvature);
  if (!diagram.IsClosed()) headings.push_back({"curvature", curvature});
  for (Heading& h : LoadHeadings(diagram, units)) headings.push_back(std::move(h));
  if (!diagram.design.empty()) headings.push_back({"phi", ""});
  headings.push_back({"eps0", units.Unit(Dimension::strain)});
  headings.push_back({"kyy", curvature});
  headings.push_back({"kzz", curvature});
  headings.push_back({"strain utilisation", ""});
  return headings;
}

Cells PointCells(const Diagram& diagram, const DiagramPoint& point, const UnitText& units) {
  Cells cells;
  if (!diagram.IsClosed()) cells.push_back(units.Value(point.at.x, Dimension::curvature));
  AddLoadCells(diagram, diagram.IsClosed() ? point.at.x : point.at.y, point.load, units, cells);
  if (!diagram.design.empty()) cells.push_back(StringFrom(point.reductionFactor));
  AddThree(cells, units.Plane(Deformation(point.plane)));
  const bool isKnown = std::isfinite(point.strainUtilisation);
  cells.push_back(isKnown ? StringFrom(point.strainUtilisation) + (point.limitIsCap ? "*" : "")
                          : "-");
  return cells;
}

const char* CurveName(const Diagram& diagram, bool isDesign) {
  if (isDesign) return "design";
  return diagram.design.empty() ? "resistance" : "nominal";
}

void AddColumns(TextTable& table, const std::vector<Heading>& headings) {
  for (const Heading& h : headings) table.AddColumn(h.name, h.unit);
}

void AddRows(const Diagram& diagram, bool isDesign, bool all, const UnitText& units,
             TextTable& table) {
  for (const DiagramPoint& point : isDesign ? diagram.design : diagram.nominal) {
    if (!all && point.mark == DiagramMark::none) continue;
    Cells cells{CurveName(diagram, isDesign), VlSol::NameOf(point.mark)};
    for (std::string& cell : PointCells(diagram, point, units)) cells.push_back(std::move(cell));
    table.AddRow(std::move(cells));
  }
}

void PrintPoints(const Diagram& diagram, bool all, const UnitText& units, std::ostream& out) {
  TextTable table;
  table.AddColumn("curve", "", TextTable::Align::left);
  table.AddColumn("point", "", TextTable::Align::left);
  AddColumns(table, PointHeadings(diagram, units));
  AddRows(diagram, false, all, units, table);
  AddRows(diagram, true, all, units, table);
  table.Print(out);
  const auto atCap = [](const DiagramPoint& p) { return p.limitIsCap; };
  if (std::any_of(diagram.nominal.begin(), diagram.nominal.end(), atCap)) {
    out << "* at a numerical cap on strain: no limit of a material governs there\n";
  }
}

// Worst first; cases without a result at the end.
std::vector<DiagramLoad> Ranked(std::vector<DiagramLoad> loads) {
  const auto rank = [](const DiagramLoad& load) {
    return std::isnan(load.utilisation) ? -1.0 : load.utilisation;
  };
  std::stable_sort(loads.begin(), loads.end(),
                   [&](const DiagramLoad& a, const DiagramLoad& b) { return rank(a) > rank(b); });
  return loads;
}

void PrintLoads(const VelmoApp& app, const DiagramPlace& place, const Diagram& diagram, bool all,
                const UnitText& units, std::ostream& out) {
  const auto& task = app.pData()->Section(place.iSec).Task(place.iTask);
  const std::vector<DiagramLoad> loads = Ranked(diagram.loads);
  if (loads.empty()) return;
  TextTable table;
  AddCaseColumns(table);
  AddColumns(table, LoadHeadings(diagram, units));
  const bool isOfMoments = diagram.kind == DiagramKind::axialMoment;
  const Dimension across = isOfMoments ? Dimension::moment : Dimension::force;
  table.AddColumn(isOfMoments ? "M across" : "N - held N", units.Unit(across));
  table.AddColumn("in plane", "", TextTable::Align::left);
  table.AddColumn("utilisation", "");
  table.AddColumn("status", "", TextTable::Align::left);
  const std::size_t shown = all ? loads.size() : std::min(kLines, loads.size());
  for (std::size_t i = 0; i < shown; ++i) {
    const DiagramLoad& load = loads[i];
    Cells cells = CaseCells(task, load.iCase);
    AddLoadCells(diagram, load.at.x, load.load, units, cells);
    cells.push_back(load.isInPlane ? "0" : units.Value(load.outOfPlane, across));
    cells.push_back(load.isInPlane ? "yes" : "no");
    cells.push_back(UtilisationText(load.utilisation));
    cells.push_back(load.isCarried ? "OK" : "FAILS");
    table.AddRow(std::move(cells));
  }
  out << "\nLoads of the task\n";
  table.Print(out);
  if (shown < loads.size()) {
    out << shown << " of " << loads.size() << " loads shown, the worst; --all shows every one\n";
  }
  for (const DiagramLoad& load : loads) {
    if (!load.isGoverning) continue;
    out << "Governing: case " << load.iCase + 1 << ", utilisation "
        << UtilisationText(load.utilisation)
        << (load.isInPlane ? "\n" : "; it lies outside the diagram's plane\n");
  }
}

std::string HeldText(const DiagramPlace& place, const Diagram& diagram, const UnitText& units) {
  const std::string direction = "moment held at " + AngleText(diagram.angle) +
                                "° from Myy towards Mzz, the neutral axis turns as it must";
  std::string axial = "axial force held at " + units.Value(diagram.axial, Dimension::force) + " " +
                      units.Unit(Dimension::force);
  if (place.axialOf) {
    axial += ", that of case " + std::to_string(*place.axialOf + 1) + ", which governs";
  }
  switch (diagram.kind) {
    case DiagramKind::axialMoment:
      return direction;
    case DiagramKind::biaxialMoment:
      return axial;
    case DiagramKind::momentCurvature:
      break;
  }
  return axial + ", " + direction;
}

const char* TitleOf(DiagramKind kind) {
  if (kind == DiagramKind::axialMoment) return "axial force and moment";
  return kind == DiagramKind::biaxialMoment ? "two moments" : "moment and curvature";
}

void WriteCsvLine(const Cells& cells, std::ostream& out) {
  for (std::size_t i = 0; i < cells.size(); ++i) out << (i > 0 ? "," : "") << cells[i];
  out << '\n';
}

void WriteCsvCurve(const Diagram& diagram, bool isDesign, const UnitText& units,
                   std::ostream& out) {
  const std::vector<DiagramPoint>& points = isDesign ? diagram.design : diagram.nominal;
  const auto write = [&](const DiagramPoint& point, const char* mark) {
    Cells cells{CurveName(diagram, isDesign), mark};
    for (std::string& cell : PointCells(diagram, point, units)) cells.push_back(std::move(cell));
    if (diagram.IsClosed()) cells.insert(cells.end(), 4, "");
    WriteCsvLine(cells, out);
  };
  for (const DiagramPoint& point : points) write(point, VlSol::NameOf(point.mark));
  if (diagram.IsClosed() && !points.empty()) write(points.front(), "");
}

}  // namespace

void PrintDiagram(const VelmoApp& app, const DiagramPlace& place, const Diagram& diagram, bool all,
                  std::ostream& out) {
  const UnitText units(app.pData()->Units());
  const auto& section = app.pData()->Section(place.iSec);
  const auto quoted = [](const std::string& name) {
    return name.empty() ? std::string() : " \"" + Printable(name) + "\"";
  };
  out << "Section " << place.iSec + 1 << quoted(to_string(section.Name())) << ", task "
      << place.iTask + 1 << quoted(section.Task(place.iTask).Name()) << ": diagram of "
      << TitleOf(diagram.kind) << ", " << (diagram.state == LoadState::ULS ? "ULS" : "SLS") << ", "
      << CodeText(*app.pData()) << '\n'
      << HeldText(place, diagram, units) << "\n\n";
  PrintPoints(diagram, all, units, out);
  if (!all) {
    out << diagram.nominal.size() << " points on the curve; --all shows every one\n";
  }
  PrintLoads(app, place, diagram, all, units, out);
  if (!diagram.design.empty()) {
    out << "phi: strength reduction factor; design values are phi times the nominal ones\n";
  }
  PrintReadingRules(app, place.iSec, out);
}

void WriteDiagramCsv(const VelmoApp& app, const Diagram& diagram, std::ostream& out) {
  const UnitText units(app.pData()->Units());
  Cells heading{"curve", "point"};
  for (const Heading& h : PointHeadings(diagram, units)) {
    heading.push_back(h.unit.empty() ? h.name : h.name + " [" + h.unit + "]");
  }
  const std::size_t before = LoadHeadings(diagram, units).size();
  const std::size_t between = heading.size() - 2 - before;  // columns that a load has nothing for
  if (diagram.IsClosed()) {
    for (const char* name : {"case", "in plane", "utilisation", "governing"}) {
      heading.push_back(name);
    }
  }
  WriteCsvLine(heading, out);
  WriteCsvCurve(diagram, false, units, out);
  if (!diagram.design.empty()) WriteCsvCurve(diagram, true, units, out);
  for (const DiagramLoad& load : diagram.loads) {
    Cells cells{"load", ""};
    AddLoadCells(diagram, load.at.x, load.load, units, cells);
    cells.insert(cells.end(), between, "");
    cells.push_back(std::to_string(load.iCase + 1));
    cells.push_back(load.isInPlane ? "yes" : "no");
    cells.push_back(UtilisationText(load.utilisation));
    cells.push_back(load.isGoverning ? "yes" : "");
    WriteCsvLine(cells, out);
  }
}

}  // namespace Orlix::Cli
