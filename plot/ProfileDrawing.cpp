#include "plot/ProfileDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <tuple>
#include <utility>

#include "plot/LabelPlacer.h"
#include "plot/drawing_text.h"
#include "plot/marks.h"
#include "plot/ticks.h"
#include "results/StressStrainCalculator.h"

namespace Orlix::Plot {

namespace {

constexpr double kAxis = 12.0;         // below them
constexpr double kLevels = 14.0;       // left of them, for the distances
constexpr double kPanel = 31.0;        // width of a panel
constexpr double kGap = 5.0;           // between two
constexpr double kLeastHeight = 40.0;  // of them
constexpr Pen kCurvePen{0.4};
constexpr TextStyle kValueStyle{2.2};
constexpr TextStyle kTickStyle{1.9, Align::centre};

void Widen(std::pair<double, double>& range, double value) {
  if (!std::isfinite(value)) return;
  range.first = std::min(range.first, value);
  range.second = std::max(range.second, value);
}

}  // namespace

ProfileDrawing::ProfileDrawing(const SectionView& view, const Data::CUnit& units,
                               const PlanPlace& plan, const Box& box)
    : view_(view), units_(units), box_(box), across_(AcrossNeutralAxis(view)) {
  std::pair<double, double> range{std::numeric_limits<double>::infinity(),
                                  -std::numeric_limits<double>::infinity()};
  for (const ComponentView& component : view.components) {
    if (!component.isIncluded || component.polygons.empty()) continue;
    const Vec2<double> own = RangeOf(component);
    Widen(range, own.x);
    Widen(range, own.y);
  }
  std::tie(low_, high_) = range;
  const double room = box.Height() - kHeading - kAxis - 6.0;
  // To the section's own scale, unless it would be too small to read or too large for the sheet.
  const double height = plan.scale * (high_ - low_);
  scale_ = std::clamp(height, kLeastHeight, room) / (high_ - low_);
  if (across_.x == 0.0 && height >= kLeastHeight && height <= room) {
    scale_ = plan.scale;
    middle_ = plan.origin.y;
  } else {
    const double centre = (box.top + kHeading + box.bottom - kAxis) / 2.0;
    middle_ = centre + scale_ * (low_ + high_) / 2.0;
  }
}

Vec2<double> ProfileDrawing::RangeOf(const ComponentView& component) const {
  std::pair<double, double> range{std::numeric_limits<double>::infinity(),
                                  -std::numeric_limits<double>::infinity()};
  for (const auto& polygon : component.polygons) {
    for (const Vec2<double>& p : polygon.outline) Widen(range, DistanceOf(p));
  }
  return {range.first, range.second};
}

bool ProfileDrawing::IsAlong(const ComponentView& component) const {
  const Vec2<double> gradient{-component.plane.Vector().z, component.plane.Vector().y};
  return std::abs(Cross(gradient, across_)) <= 1e-5 * Length(gradient) || Length(gradient) < 1e-10;
}

double ProfileDrawing::StrainAt(const ComponentView& component, double distance) const {
  return component.plane.StrainAt(distance * across_);
}

std::vector<ProfileDrawing::StrainLine> ProfileDrawing::LinesOfStrain() const {
  std::vector<StrainLine> lines;
  for (const ComponentView& component : view_.components) {
    if (!component.isIncluded || component.polygons.empty()) continue;
    const Vec2<double> range = RangeOf(component);
    const auto same = std::find_if(lines.begin(), lines.end(), [&](const StrainLine& line) {
      return IsAlong(component) && line.component->plane == component.plane;
    });
    if (same == lines.end()) {
      lines.push_back({&component, range});
    } else {
      same->range = {std::min(same->range.x, range.x), std::max(same->range.y, range.y)};
    }
  }
  return lines;
}

void ProfileDrawing::Draw(Canvas& canvas) const {
  DrawLevels(canvas);
  Box panel{box_.left + kLevels, Y(high_), box_.left + kLevels + kPanel, Y(low_)};
  const auto next = [&panel] {
    panel.left = panel.right + kGap;
    panel.right = panel.left + kPanel;
  };
  DrawStrains(canvas, panel);
  if (!view_.state->hasStresses) {
    canvas.Text({panel.right + kGap, panel.Centre().y}, "Mean strains: no stresses belong to them.",
                {2.5});
    return;
  }
  next();
  DrawConcrete(canvas, panel);
  next();
  DrawSteel(canvas, panel);
}

ProfileDrawing::Panel ProfileDrawing::PanelOf(Box box, double low, double high) const {
  low = std::min(low, 0.0);
  high = std::max(high, 0.0);
  Panel panel{box, box.Centre().x, 0.0};
  if (!(high - low > 0.0)) return panel;
  constexpr double kRoom = 0.86;  // of the width; the rest keeps labels off the neighbours
  panel.scale = kRoom * box.Width() / (high - low);
  panel.zero = box.left + (1.0 - kRoom) / 2.0 * box.Width() - panel.scale * low;
  return panel;
}

void ProfileDrawing::DrawPanel(Canvas& canvas, const Panel& panel, const std::string& heading,
                               double factor) const {
  const Box& box = panel.box;
  const TextStyle style{2.5, Align::left, true};
  canvas.Text({box.left, box_.top + 5.0}, heading, style);
  canvas.Line({panel.zero, box.top - 1.0}, {panel.zero, box.bottom + 1.0}, {0.25});
  if (panel.scale == 0.0) return;
  const double y = box.bottom + 6.0;
  canvas.Line({box.left, y}, {box.right, y}, {0.15});
  const auto value = [&](double x) { return (x - panel.zero) / panel.scale * factor; };
  // As many as have room for their texts.
  Ticks ticks;
  for (int most = 6; most >= 2; --most) {
    ticks = TicksOf(value(box.left), value(box.right), most);
    double widest = 0.0;
    for (const double tick : ticks.values) {
      widest = std::max(widest, canvas.TextWidth(TickText(tick, ticks), kTickStyle));
    }
    if (widest + 1.5 < ticks.step / factor * panel.scale) break;
  }
  for (const double tick : ticks.values) {
    const double x = panel.X(tick / factor);
    canvas.Line({x, y}, {x, y + 1.0}, {0.15});
    canvas.Text({x, y + 3.2}, TickText(tick, ticks), kTickStyle);
  }
}

// The axis of the distances, and lines over all panels at the edges and at the neutral axis.
void ProfileDrawing::DrawLevels(Canvas& canvas) const {
  const double x = box_.left + kLevels - 3.0;
  const double factor = units_.Conversion(Dimension::sectionDimensions);
  const std::string name = across_.x == 0.0 ? "z" : across_.y == 0.0 ? "y" : "s";
  canvas.Text({box_.left + 2.0, box_.top + 5.0},
              name + " [" + UnitTextOf(Dimension::sectionDimensions, units_) + "]",
              {2.5, Align::left, true});
  canvas.Line({x, Y(high_)}, {x, Y(low_)}, kThinPen);
  const int most = std::clamp(static_cast<int>((Y(low_) - Y(high_)) / 8.0), 2, 12);
  const Ticks ticks = TicksOf(low_ * factor, high_ * factor, most);
  for (const double tick : ticks.values) {
    const double y = Y(tick / factor);
    canvas.Line({x - 1.0, y}, {x, y}, kThinPen);
    canvas.Text({x - 1.4, y + 0.7}, TickText(tick, ticks), {1.9, Align::right});
  }
  const double right =
      box_.left + kLevels + (view_.state->hasStresses ? 3.0 * kPanel + 2.0 * kGap : kPanel);
  for (const double distance : {low_, high_}) {
    canvas.Line({x, Y(distance)}, {right, Y(distance)}, {0.1, 0.4});
  }
  const Vec3<double>& v = view_.state->plane.Vector();
  const double rate = v.y * across_.y - v.z * across_.x;
  if (std::isnan(view_.state->axis.angle) || rate == 0.0) return;
  const double neutral = -v.x / rate;
  if (neutral <= low_ || neutral >= high_) return;
  canvas.Line({x, Y(neutral)}, {right, Y(neutral)}, {0.3, kBlack, kNeutralAxisPen.dashes});
}

void ProfileDrawing::DrawStrains(Canvas& canvas, const Box& box) const {
  const double factor = units_.Conversion(Dimension::strain);
  std::pair<double, double> range{0.0, 0.0};
  for (const Extremes& extremes : {view_.state->concrete, view_.state->others}) {
    if (!extremes) continue;
    Widen(range, extremes->minStrain);
    Widen(range, extremes->maxStrain);
  }
  const Panel panel = PanelOf(box, range.first, range.second);
  DrawPanel(canvas, panel, "Strain [" + UnitTextOf(Dimension::strain, units_) + "]", factor);
  std::vector<std::vector<Spot>> curves;
  std::vector<Value> values;
  bool hasPoints = false;
  for (const auto& [component, range_] : LinesOfStrain()) {
    if (!IsAlong(*component)) {
      hasPoints = true;
      for (const auto& polygon : component->polygons) {
        for (const Vec2<double>& p : polygon.outline) {
          canvas.FillCircle({panel.X(component->plane.StrainAt(p)), Y(DistanceOf(p))}, 0.4, kBlack);
        }
      }
      continue;
    }
    std::vector<Spot> line;
    for (const double distance : {range_.x, range_.y}) {
      const double strain = StrainAt(*component, distance);
      line.push_back({panel.X(strain), Y(distance)});
      const double shown = Snapped(strain, std::max(-range.first, range.second));
      values.push_back({line.back(), NumberText(shown * factor, 3)});
    }
    constexpr double kNear = 4.0;  // there is no room for a label at either end
    if (Length(line[1] - line[0]) < kNear) {
      const std::string last = values.back().text;
      values.pop_back();
      if (values.back().text != last) values.back().text += " to " + last;
    }
    DrawBlock(canvas, panel, line, 0.0);
    curves.push_back(std::move(line));
  }
  if (hasPoints) {
    canvas.Text({box.left, box_.top + kHeading - 0.5},
                "Dots: vertices; locked-in strains bend about another axis.", {1.9});
  }
  DrawValues(canvas, box, curves, values);
}

void ProfileDrawing::DrawValues(Canvas& canvas, const Box& panel,
                                const std::vector<std::vector<Spot>>& curves,
                                const std::vector<Value>& values) const {
  LabelPlacer placer({panel.left - 2.0, panel.top - 4.0, panel.right + 4.0, panel.bottom + 5.0});
  placer.Block(curves);
  for (const Value& value : values) {
    const Spot size{canvas.TextWidth(value.text, kValueStyle) + 0.4, 2.0};
    const Spot outwards{0.0, value.spot.y < panel.Centre().y ? -1.0 : 1.0};
    const auto place = placer.Place(value.spot, 0.6, size, outwards);
    if (!place) continue;
    canvas.FillRectangle(*place, kWhite);
    canvas.Text({place->left + 0.2, place->bottom - 0.2}, value.text, kValueStyle);
  }
}

void ProfileDrawing::DrawBlock(Canvas& canvas, const Panel& panel, const std::vector<Spot>& curve,
                               double hatchAngle) const {
  if (curve.empty()) return;
  Ring ring = {{panel.zero, curve.front().y}};
  ring.insert(ring.end(), curve.begin(), curve.end());
  ring.push_back({panel.zero, curve.back().y});
  const std::vector<Ring> rings = {ring};
  canvas.Lines(HatchLines(rings, hatchAngle, hatchAngle == 0.0 ? 2.5 : kHatchSpacing), kHatchPen);
  canvas.Polyline(ring, kCurvePen);
}

std::vector<Spot> ProfileDrawing::StressCurve(const ComponentView& component,
                                              const Panel& panel) const {
  const auto [first, last] = RangeOf(component);
  std::vector<double> strains;
  const double from = StrainAt(component, first);
  const double to = StrainAt(component, last);
  constexpr int kSteps = 64;
  for (int i = 0; i <= kSteps; ++i) strains.push_back(from + (to - from) * i / kSteps);
  // Both sides of where the curve changes its form, so that steps are drawn upright.
  constexpr double kBeside = 1e-9;
  for (const auto& segment : component.curve.Segments()) {
    for (const double at : {-segment.from - kBeside, -segment.from + kBeside}) {
      if ((at - from) * (at - to) < 0.0) strains.push_back(at);
    }
  }
  std::sort(strains.begin(), strains.end());
  if (to < from) std::reverse(strains.begin(), strains.end());
  std::vector<Spot> curve;
  for (const double strain : strains) {
    const double part =
        to == from ? static_cast<double>(curve.size()) / kSteps : (strain - from) / (to - from);
    curve.push_back({panel.X(StressStrainCalculator::Stress(component.curve, strain)),
                     Y(first + part * (last - first))});
  }
  return curve;
}

void ProfileDrawing::DrawConcrete(Canvas& canvas, const Box& box) const {
  const double factor = units_.Conversion(Dimension::stress);
  const Extremes& extremes = view_.state->concrete;
  Panel panel =
      PanelOf(box, extremes ? extremes->minStress : 0.0, extremes ? extremes->maxStress : 0.0);
  // A rounding of the solver is no stress to fill a panel with.
  if (extremes && std::max(-extremes->minStress, extremes->maxStress) < 1.0) panel.scale = 0.0;
  DrawPanel(canvas, panel, "Concrete [" + UnitTextOf(Dimension::stress, units_) + "]", factor);
  if (panel.scale == 0.0) return;
  std::vector<std::vector<Spot>> curves;
  std::vector<Value> values;
  double angle = 45.0;
  for (const ComponentView& component : view_.components) {
    if (!component.isIncluded || component.type != MatType::concrete || component.polygons.empty())
      continue;
    std::vector<Spot> curve;
    if (IsAlong(component)) {
      curve = StressCurve(component, panel);
      DrawBlock(canvas, panel, curve, angle);
    } else {
      for (const auto& polygon : component.polygons) {
        for (const Vec2<double>& p : polygon.outline) {
          const double stress =
              StressStrainCalculator::Stress(component.curve, component.plane.StrainAt(p));
          curve.push_back({panel.X(stress), Y(DistanceOf(p))});
          canvas.FillCircle(curve.back(), 0.4, kBlack);
        }
      }
    }
    angle = 180.0 - angle;
    const auto [least, most] = std::minmax_element(
        curve.begin(), curve.end(), [](const Spot& a, const Spot& b) { return a.x < b.x; });
    for (const auto& extreme : {least, most}) {
      const double stress = (extreme->x - panel.zero) / panel.scale;
      if (std::abs(extreme->x - panel.zero) < 0.3) continue;
      values.push_back({*extreme, NumberText(stress * factor, 3)});
    }
    if (IsAlong(component)) curves.push_back(std::move(curve));
  }
  DrawValues(canvas, box, curves, values);
}

}  // namespace Orlix::Plot
