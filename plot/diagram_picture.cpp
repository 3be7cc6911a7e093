#include "plot/diagram_picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

#include "plot/Canvas.h"
#include "plot/DiagramDrawing.h"
#include "plot/SheetFrame.h"
#include "plot/drawing_text.h"
#include "plot/problem_box.h"
#include "plot/section_text.h"
#include "results/result_text.h"

namespace Orlix::Plot {

using VlSol::Diagram;
using VlSol::DiagramKind;
using VlSol::DiagramLoad;
using VlSol::DiagramProblem;

namespace {

constexpr double kTableWidth = 72.0;

std::string Degrees(double angle) { return NumberText(angle * 180.0 / std::numbers::pi) + "°"; }

std::string KindText(const Diagram& diagram, const Data::CUnit& units) {
  const std::string axial = ValueText(diagram.axial, Dimension::force, units);
  switch (diagram.kind) {
    case DiagramKind::axialMoment:
      return "N and M, direction of M " + Degrees(diagram.angle);
    case DiagramKind::biaxialMoment:
      return "Myy and Mzz at N = " + axial;
    case DiagramKind::momentCurvature:
      break;
  }
  return "M and curvature, direction " + Degrees(diagram.angle) + ", N = " + axial;
}

const char* ProblemText(DiagramProblem problem) {
  switch (problem) {
    case DiagramProblem::axialForce:
      return "The section does not carry the axial force that the diagram is for.";
    case DiagramProblem::noCapacity:
      return "No load of the diagram is within the strain limits.";
    case DiagramProblem::notComputed:
      return "The task does not compute the limit state that the diagram is for.";
    default:
      return "The diagram has no points.";
  }
}

const DiagramLoad* GoverningOf(const Diagram& diagram) {
  const auto load = std::find_if(diagram.loads.begin(), diagram.loads.end(),
                                 [](const DiagramLoad& l) { return l.isGoverning; });
  return load == diagram.loads.end() ? nullptr : &*load;
}

TitleBlock Title(const VelmoApp& app, int iSec, int iTask, const Diagram& diagram) {
  const DiagramLoad* governing = GoverningOf(diagram);
  TitleBlock title =
      TitleOf(app, iSec, iTask, governing ? std::optional<int>(governing->iCase) : std::nullopt);
  if (governing) title.names.back().first = "Governing";
  title.conditions.emplace_back(
      "Limit state", diagram.state == LoadState::ULS ? "Ultimate (ULS)" : "Serviceability (SLS)");
  title.conditions.emplace_back("Diagram", KindText(diagram, app.pData()->Units()));
  if (governing) {
    title.utilisationName = "Utilisation, case " + std::to_string(governing->iCase + 1);
    title.utilisation = UtilisationText(governing->utilisation);
    title.status = governing->isCarried ? "OK" : "FAILS";
  }
  return title;
}

// The values of the named points, beside the drawing.
void DrawTable(Canvas& canvas, const Diagram& diagram, const Data::CUnit& units, const Box& box) {
  constexpr double kPitch = 3.6;
  constexpr double kSize = 2.2;
  const DiagramAxis across = AcrossAxisOf(diagram);
  const DiagramAxis up = UpAxisOf(diagram);
  const double first = box.right - 19.0;
  double y = box.top + 8.0;
  const auto row = [&](const std::string& name, const std::string& a, const std::string& b,
                       bool bold) {
    const TextStyle left{kSize, Align::left, bold};
    const TextStyle right{kSize, Align::right, bold};
    canvas.Text({box.left, y}, canvas.Fitted(name, first - 16.0 - box.left, left), left);
    canvas.Text({first, y}, FittedNumber(canvas, a, 18.0, right), right);
    canvas.Text({box.right, y}, FittedNumber(canvas, b, 18.0, right), right);
    y += kPitch;
  };
  const auto heading = [&](const char* title) {
    row(title, across.name == "curvature" ? "curv." : across.name, up.name, true);
    row("", UnitTextOf(across.dimension, units), UnitTextOf(up.dimension, units), false);
  };
  const bool hasDesign = !diagram.design.empty();
  Vec2<double> largest{};
  for (const auto* points : {&diagram.nominal, &diagram.design}) {
    for (const VlSol::DiagramPoint& point : *points) {
      largest = {std::fmax(largest.x, std::abs(point.at.x)),
                 std::fmax(largest.y, std::abs(point.at.y))};
    }
  }
  const char* curve = "";
  std::size_t left = NamedPointsOf(diagram).size();
  for (const NamedPoint& named : NamedPointsOf(diagram)) {
    const char* of = named.isDesign ? "Design" : hasDesign ? "Nominal" : "Named points";
    if (curve != of) {
      if (*curve) y += kPitch / 2.0;
      heading(of);
      curve = of;
    }
    if (y > box.bottom - 2.0 * kPitch && left > 1) {
      row("… and " + std::to_string(left) + " more", "", "", false);
      return;
    }
    --left;
    row(std::to_string(named.number) + "  " + NameOf(named.point->mark),
        NumberText(Snapped(named.point->at.x, largest.x) * units.Conversion(across.dimension)),
        NumberText(Snapped(named.point->at.y, largest.y) * units.Conversion(up.dimension)), false);
  }
}

InfoColumn Conditions(const Diagram& diagram, const Data::CUnit& units) {
  InfoColumn column{"Diagram", 92.0};
  if (diagram.kind != DiagramKind::biaxialMoment) {
    column.rows.push_back({"held direction of M, from Myy to Mzz", Degrees(diagram.angle)});
    column.rows.push_back({"Myy = M cos, Mzz = M sin of it"});
  }
  if (diagram.kind != DiagramKind::axialMoment) {
    column.rows.push_back({"held axial force", ValueText(diagram.axial, Dimension::force, units)});
  }
  if (diagram.kind == DiagramKind::momentCurvature && diagram.state == LoadState::SLS) {
    column.rows.push_back({"the planes reported in service"});
  }
  if (!diagram.design.empty()) {
    column.rows.push_back({"design: strength reduction and cap of the axial force"});
  } else if (diagram.state == LoadState::ULS) {
    column.rows.push_back({"design resistance, by partial factors"});
  }
  return column;
}

InfoColumn LoadColumn(const Diagram& diagram, const Data::CUnit& units) {
  InfoColumn column{"Governing load", 84.0};
  const DiagramLoad* load = GoverningOf(diagram);
  if (!load) {
    column.rows.push_back({"none"});
    return column;
  }
  column.rows.push_back({"case " + std::to_string(load->iCase + 1), "N", "Myy", "Mzz"});
  column.rows.push_back({"[" + UnitTextOf(Dimension::force, units) + ", " +
                             UnitTextOf(Dimension::moment, units) + "]",
                         NumberText(load->load.x * units.Conversion(Dimension::force)),
                         NumberText(load->load.y * units.Conversion(Dimension::moment)),
                         NumberText(load->load.z * units.Conversion(Dimension::moment))});
  column.rows.push_back({"utilisation", UtilisationText(load->utilisation)});
  if (!load->isInPlane) {
    const bool isMoment = diagram.kind == DiagramKind::axialMoment;
    column.rows.push_back(
        {isMoment ? "out of the diagram: moment across" : "out of the diagram: N",
         ValueText(load->outOfPlane, isMoment ? Dimension::moment : Dimension::force, units)});
  }
  const auto notCarried = std::count_if(diagram.loads.begin(), diagram.loads.end(),
                                        [](const DiagramLoad& l) { return !l.isCarried; });
  column.rows.push_back({"loads of the task", std::to_string(diagram.loads.size())});
  column.rows.push_back({"not carried", std::to_string(notCarried)});
  return column;
}

InfoColumn Key(const Diagram& diagram, double width) {
  InfoColumn column{"Key", width};
  if (diagram.design.size() > 1) {
    column.key = {{KeySign::solidCurve, "design"}, {KeySign::dashedCurve, "nominal"}};
  } else if (!diagram.design.empty()) {
    column.key = {{KeySign::dashedCurve, "nominal"}, {KeySign::designPoint, "design moment"}};
  } else {
    column.key = {{KeySign::solidCurve,
                   diagram.state == LoadState::ULS ? "design resistance" : "in service"}};
  }
  const std::vector<NamedPoint> named = NamedPointsOf(diagram);
  if (std::any_of(named.begin(), named.end(),
                  [&](const NamedPoint& n) { return !n.isDesign || diagram.design.size() > 1; })) {
    column.key.emplace_back(KeySign::point, "named point, with its number in the table");
  }
  const auto any = [&](auto is) {
    return std::any_of(diagram.loads.begin(), diagram.loads.end(), is);
  };
  if (any([](const DiagramLoad& l) { return l.isInPlane; })) {
    column.key.emplace_back(KeySign::load, "load, with the number of its case");
  }
  if (any([](const DiagramLoad& l) { return !l.isInPlane; })) {
    column.key.emplace_back(KeySign::projectedLoad, "load out of the diagram, projected on it");
  }
  if (GoverningOf(diagram)) {
    column.key.emplace_back(KeySign::governingLoad, "governing load, with its utilisation");
  }
  return column;
}

}  // namespace

std::string DiagramPicture(const VelmoApp& app, int iSec, int iTask, const Diagram& diagram,
                           const PictureOptions& options) {
  const Data::CUnit& units = app.pData()->Units();
  const TitleBlock title = Title(app, iSec, iTask, diagram);
  Canvas canvas(options);
  canvas.SetTitle(title.names.at(1).second);
  const Box& main = SheetFrame::kMain;
  const Box inside{main.left, main.top, main.right, main.bottom - SheetFrame::kRuleHeight};
  std::string remark;
  if (diagram.nominal.size() < 2) {
    DrawProblemBox(canvas, inside, ProblemText(diagram.problem));
  } else {
    const Box table{inside.right - kTableWidth, inside.top, inside.right - 3.0, inside.bottom};
    const DiagramDrawing drawing(diagram, units,
                                 {inside.left, inside.top, table.left - 4.0, inside.bottom});
    drawing.Draw(canvas);
    DrawTable(canvas, diagram, units, table);
    const int beyond = drawing.LoadsBeyond();
    if (beyond > 0) remark = "Loads far outside the picture: " + std::to_string(beyond) + ".";
  }
  std::vector<InfoColumn> columns = {Conditions(diagram, units), LoadColumn(diagram, units)};
  double left = SheetFrame::kInfo.Width();
  for (const InfoColumn& column : columns) left -= column.width;
  columns.push_back(Key(diagram, left));
  SheetFrame::Draw(canvas, title, columns, remark);
  return canvas.Finish();
}

}  // namespace Orlix::Plot
