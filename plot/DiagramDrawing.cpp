#include "plot/DiagramDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "plot/drawing_text.h"
#include "plot/marks.h"
#include "plot/ticks.h"
#include "results/result_text.h"

namespace Orlix::Plot {

using VlSol::Diagram;
using VlSol::DiagramKind;
using VlSol::DiagramLoad;
using VlSol::DiagramMark;
using VlSol::DiagramPoint;

namespace {

constexpr TextStyle kNameStyle{2.2};
constexpr double kNear = 6.0;  // named points that may be taken for each other [mm]
constexpr TextStyle kLoadStyle{1.9};
constexpr double kBeyond = 1.5;          // of the curves' size: loads further off are not drawn
constexpr double kOneScale = 4.0;        // of two moments, unless one is so many times the other
constexpr std::size_t kMostLabels = 60;  // of loads

bool IsDrawable(Vec2<double> p) { return std::isfinite(p.x) && std::isfinite(p.y); }

std::string MomentName(double angle) {
  const auto is = [angle](double direction) { return std::abs(angle - direction) < 1e-9; };
  constexpr double kQuarter = 1.5707963267948966;
  return is(0.0) ? "Myy" : is(kQuarter) ? "Mzz" : "M";
}

// A little more than the values between two, so that nothing lies on the frame.
void AddMargin(double& low, double& high) {
  constexpr double kMargin = 0.07;
  double by = kMargin * (high - low);
  if (!(by > 0.0)) by = std::max(std::abs(low), 1e-12);
  if (low < 0.0) low -= by;
  if (high > 0.0) high += by;
}

}  // namespace

std::vector<NamedPoint> NamedPointsOf(const Diagram& diagram) {
  std::vector<NamedPoint> named;
  for (const auto* points : {&diagram.design, &diagram.nominal}) {
    for (const DiagramPoint& point : *points) {
      if (point.mark == DiagramMark::none || !IsDrawable(point.at)) continue;
      named.push_back({&point, points == &diagram.design, static_cast<int>(named.size()) + 1});
    }
  }
  return named;
}

DiagramAxis AcrossAxisOf(const Diagram& diagram) {
  if (diagram.kind == DiagramKind::axialMoment) {
    return {MomentName(diagram.angle), Dimension::moment};
  }
  if (diagram.kind == DiagramKind::biaxialMoment) return {"Myy", Dimension::moment};
  return {"curvature", Dimension::curvature};
}

DiagramAxis UpAxisOf(const Diagram& diagram) {
  if (diagram.kind == DiagramKind::axialMoment) return {"N", Dimension::force};
  if (diagram.kind == DiagramKind::biaxialMoment) return {"Mzz", Dimension::moment};
  return {MomentName(diagram.angle), Dimension::moment};
}

DiagramDrawing::DiagramDrawing(const Diagram& diagram, const Data::CUnit& units, const Box& box)
    : diagram_(diagram),
      units_(units),
      plot_{box.left + 20.0, box.top + 8.0, box.right - 4.0, box.bottom - 12.0} {
  const auto widen = [this](Vec2<double> p) {
    low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y)};
    high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y)};
  };
  for (const auto* points : {&diagram.nominal, &diagram.design}) {
    for (const DiagramPoint& point : *points) {
      if (IsDrawable(point.at)) widen(point.at);
    }
  }
  const Vec2<double> least = low_ - kBeyond * (high_ - low_);
  const Vec2<double> most = high_ + kBeyond * (high_ - low_);
  for (const DiagramLoad& load : diagram.loads) {
    const bool isNear = IsDrawable(load.at) && load.at.x >= least.x && load.at.x <= most.x &&
                        load.at.y >= least.y && load.at.y <= most.y;
    if (isNear) {
      widen(load.at);
    } else {
      ++beyond_;
    }
  }
  AddMargin(low_.x, high_.x);
  AddMargin(low_.y, high_.y);
  scale_ = {plot_.Width() / (high_.x - low_.x), plot_.Height() / (high_.y - low_.y)};
  const double ratio = scale_.x / scale_.y;
  if (diagram.kind == DiagramKind::biaxialMoment && ratio < kOneScale && ratio > 1.0 / kOneScale) {
    const double one = std::min(scale_.x, scale_.y);
    const Vec2<double> more{plot_.Width() / one - (high_.x - low_.x),
                            plot_.Height() / one - (high_.y - low_.y)};
    low_ = low_ - 0.5 * more;
    high_ = high_ + 0.5 * more;
    scale_ = {one, one};
  }
  const bool isCompressionUp = diagram.kind == DiagramKind::axialMoment;
  if (!isCompressionUp) scale_.y = -scale_.y;  // the sheet's y runs down
  zero_ = {plot_.left - scale_.x * low_.x,
           isCompressionUp ? plot_.top - scale_.y * low_.y : plot_.top - scale_.y * high_.y};
}

bool DiagramDrawing::IsShown(const DiagramLoad& load) const {
  return IsDrawable(load.at) && load.at.x >= low_.x && load.at.x <= high_.x &&
         load.at.y >= low_.y && load.at.y <= high_.y;
}

void DiagramDrawing::Draw(Canvas& canvas) const {
  DrawGrid(canvas);
  LabelPlacer placer({plot_.left + 0.5, plot_.top + 0.5, plot_.right - 0.5, plot_.bottom - 0.5});
  for (const DiagramLoad& load : diagram_.loads) {
    if (!IsShown(load)) continue;
    const Spot at = At(load.at);
    const double r = load.isGoverning ? 2.2 : 1.0;
    placer.Block(Box{at.x - r, at.y - r, at.x + r, at.y + r});
  }
  const bool hasDesign = !diagram_.design.empty();
  const Pen dashed{0.35, kBlack, {2.0, 1.2}};
  const Pen solid{0.5};
  DrawCurve(canvas, diagram_.nominal, hasDesign ? dashed : solid, placer);
  DrawCurve(canvas, diagram_.design, solid, placer);
  DrawLoads(canvas);
  const std::vector<NamedPoint> named = NamedPointsOf(diagram_);
  for (const NamedPoint& point : named) {
    const Spot at = At(point.point->at);
    if (point.isDesign && diagram_.design.size() == 1) {
      DrawDesignPoint(canvas, at);
    } else {
      canvas.FillCircle(at, 0.8, kBlack);
    }
    placer.Block(Box{at.x - 0.8, at.y - 0.8, at.x + 0.8, at.y + 0.8});
  }
  // What is looked for first has the choice of the places.
  const std::vector<const DiagramLoad*> loads = LabelledLoads();
  const auto governing = std::partition_point(loads.begin(), loads.end(),
                                              [](const auto* load) { return load->isGoverning; });
  for (auto load = loads.begin(); load != governing; ++load) DrawLoadLabel(canvas, **load, placer);
  DrawNames(canvas, named, placer);
  for (auto load = governing; load != loads.end(); ++load) DrawLoadLabel(canvas, **load, placer);
}

void DiagramDrawing::DrawGrid(Canvas& canvas) const {
  DrawAxis(canvas, false);
  DrawAxis(canvas, true);
  canvas.Rectangle(plot_, {0.35});
}

void DiagramDrawing::DrawAxis(Canvas& canvas, bool isUp) const {
  const DiagramAxis axis = isUp ? UpAxisOf(diagram_) : AcrossAxisOf(diagram_);
  const double factor = units_.Conversion(axis.dimension);
  const Ticks ticks = isUp ? TicksOf(low_.y * factor, high_.y * factor, 10)
                           : TicksOf(low_.x * factor, high_.x * factor, 12);
  for (const double tick : ticks.values) {
    const Pen pen{tick == 0.0 ? 0.3 : 0.12, tick == 0.0 ? kBlack : 0.6};
    const Spot at = At(isUp ? Vec2<double>{0.0, tick / factor} : Vec2<double>{tick / factor, 0.0});
    const std::string text = TickText(tick, ticks);
    if (isUp) {
      canvas.Line({plot_.left, at.y}, {plot_.right, at.y}, pen);
      canvas.Text({plot_.left - 1.5, at.y + 0.8}, text, {2.2, Align::right});
    } else {
      canvas.Line({at.x, plot_.top}, {at.x, plot_.bottom}, pen);
      canvas.Text({at.x, plot_.bottom + 3.6}, text, {2.2, Align::centre});
    }
  }
  std::string title = axis.name + " [" + UnitTextOf(axis.dimension, units_) + "]";
  if (isUp) {
    if (diagram_.kind == DiagramKind::axialMoment) title += ", compression upwards";
    canvas.Text({plot_.left, plot_.top - 2.5}, title, {2.7, Align::left, true});
  } else {
    canvas.Text({plot_.right, plot_.bottom + 8.0}, title, {2.7, Align::right, true});
  }
}

void DiagramDrawing::DrawCurve(Canvas& canvas, const std::vector<DiagramPoint>& points,
                               const Pen& pen, LabelPlacer& placer) const {
  std::vector<Spot> curve;
  for (const DiagramPoint& point : points) {
    if (IsDrawable(point.at)) curve.push_back(At(point.at));
  }
  if (curve.size() < 2) return;
  if (diagram_.IsClosed()) {
    const std::vector<Ring> rings = {curve};
    canvas.Outline(rings, pen);
  } else {
    canvas.Polyline(curve, pen);
  }
  // Labels keep off the curve; of a dense one not every point is needed for that.
  std::vector<Spot> sparse;
  for (const Spot& spot : curve) {
    if (sparse.empty() || Length(spot - sparse.back()) > 1.0) sparse.push_back(spot);
  }
  if (!diagram_.IsClosed()) {  // a ring that goes there and back encloses nothing new
    sparse.insert(sparse.end(), sparse.rbegin(), sparse.rend());
  }
  placer.Block(std::vector<Ring>{sparse});
}

void DiagramDrawing::DrawNames(Canvas& canvas, const std::vector<NamedPoint>& named,
                               LabelPlacer& placer) const {
  const Spot middle = plot_.Centre();
  // Names of the design curve stand inside of it, those of a nominal or single one outside.
  std::vector<Spot> spots;
  for (const NamedPoint& point : named) spots.push_back(At(point.point->at));
  for (std::size_t i = 0; i < named.size(); ++i) {
    const NamedPoint& point = named[i];
    const Spot at = spots[i];
    Spot towards = point.isDesign ? middle - at : at - middle;
    const std::string number = std::to_string(point.number);
    // Among near ones a number on the far side of the others tells whose it is.
    const Spot* near = nullptr;
    for (const Spot& other : spots) {
      if (&other == &spots[i] || Length(other - at) > kNear) continue;
      if (!near || Length(other - at) < Length(*near - at)) near = &other;
    }
    if (near && Length(*near - at) > 0.05) towards = at - *near;
    // A design curve of one point is no curve that would tell what the point belongs to.
    const char* of = point.isDesign && diagram_.design.size() == 1 ? "design " : "";
    for (const std::string& text : {number + "  " + of + NameOf(point.point->mark),
                                    number}) {  // the number alone where it is tight
      const Spot size{canvas.TextWidth(text, kNameStyle) + 0.4, 2.2};
      if (near && text != number) continue;
      const auto box = placer.Place(at, near ? 1.6 : 1.1, size, towards);
      if (!box) continue;
      if (near) {
        const Stroke leader = Within(*box, {at, box->Centre()});
        canvas.Line(at, leader.from, {0.1});
      }
      canvas.FillRectangle(*box, kWhite);
      canvas.Text({box->left + 0.2, box->bottom - 0.4}, text, kNameStyle);
      break;
    }
  }
}

void DiagramDrawing::DrawLoads(Canvas& canvas) const {
  for (const DiagramLoad& load : diagram_.loads) {
    if (!IsShown(load)) continue;
    DrawLoad(canvas, At(load.at), load.isInPlane, load.isGoverning);
  }
}

std::vector<const DiagramLoad*> DiagramDrawing::LabelledLoads() const {
  std::vector<const DiagramLoad*> loads;
  for (const DiagramLoad& load : diagram_.loads) {
    if (IsShown(load)) loads.push_back(&load);
  }
  std::stable_sort(loads.begin(), loads.end(), [](const DiagramLoad* a, const DiagramLoad* b) {
    if (a->isGoverning != b->isGoverning) return a->isGoverning;
    return a->utilisation > b->utilisation;
  });
  if (loads.size() > kMostLabels) loads.resize(kMostLabels);
  return loads;
}

void DiagramDrawing::DrawLoadLabel(Canvas& canvas, const DiagramLoad& load,
                                   LabelPlacer& placer) const {
  const std::string number = std::to_string(load.iCase + 1);
  const std::string text =
      load.isGoverning ? "case " + number + ": " + UtilisationText(load.utilisation) : number;
  TextStyle style = kLoadStyle;
  if (load.isGoverning) style = {2.5, Align::left, true};
  const Spot size{canvas.TextWidth(text, style) + 0.4, 0.95 * style.size};
  const auto box = placer.Place(At(load.at), load.isGoverning ? 2.4 : 1.1, size, {1.0, -0.4});
  if (!box) return;
  canvas.FillRectangle(*box, kWhite);
  canvas.Text({box->left + 0.2, box->bottom - 0.12 * style.size}, text, style);
}

}  // namespace Orlix::Plot
