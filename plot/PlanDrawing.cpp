#include "plot/PlanDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>

#include "plot/LabelPlacer.h"
#include "plot/drawing_text.h"
#include "plot/marks.h"
#include "plot/ticks.h"

namespace Orlix::Plot {

namespace {

constexpr double kListPitch = 3.4;
constexpr std::size_t kListLines = 4;
constexpr double kForDimensions = 15.0;  // left of the section and below it [mm]
constexpr double kAround = 9.0;          // free at the other sides, for the neutral axis' ends
constexpr double kLeastRadius = 0.35;    // of a bar [mm]
constexpr std::size_t kMostNumbers = 500;
constexpr TextStyle kNumberStyle{1.9};
constexpr TextStyle kLabelStyle{2.5};

/// The bounds of points, in any axes.
struct Bounds {
  Vec2<double> low{std::numeric_limits<double>::infinity(),
                   std::numeric_limits<double>::infinity()};
  Vec2<double> high{-low.x, -low.y};

  void Add(Vec2<double> p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  double Size() const { return std::max(high.x - low.x, high.y - low.y); }
};

Bounds BoundsOf(const SectionView& view) {
  Bounds bounds;
  for (const ComponentView& component : view.components) {
    for (const auto& polygon : component.polygons) {
      for (const Vec2<double>& p : polygon.outline) bounds.Add(p);
    }
    for (const BarView& bar : component.bars) {
      if (Length(bar.position) <= 1e6) bounds.Add(bar.position);  // false for what is no number
    }
  }
  return bounds;
}

// Width and height as they were given: those of a round outline are its diameter, not what the
// chords that stand for it measure.
Vec2<double> TrueSize(const SectionView& view) {
  Bounds all;
  for (const ComponentView& component : view.components) {
    Bounds own;
    for (const auto& polygon : component.polygons) {
      for (const Vec2<double>& p : polygon.outline) own.Add(p);
    }
    const double radius = component.diameter / 2.0;
    const Vec2<double> corner = component.centre - Vec2<double>{radius, radius};
    constexpr double kChords = 1e-3;  // of the diameter; more is missing where others lie over it
    if (Length(own.low - corner) +
            Length(own.high - corner - Vec2<double>{2 * radius, 2 * radius}) <
        kChords * component.diameter) {
      own.low = corner;
      own.high = corner + Vec2<double>{2 * radius, 2 * radius};
    }
    if (!component.polygons.empty()) {
      all.Add(own.low);
      all.Add(own.high);
    }
    for (const BarView& bar : component.bars) {
      if (Length(bar.position) <= 1e6) all.Add(bar.position);
    }
  }
  return all.high - all.low;
}

// The half of the sheet where the concrete of a component is compressed further than to where its
// stress begins; nothing where there is none.
std::optional<HalfPlane> Compressed(const ComponentView& component, const PlanPlace& place) {
  Vec3<double> v = component.plane.Vector();
  v.x += BlockStart(component);
  const Spot normal{-v.z / place.scale, -v.y / place.scale};
  if (Length(normal) == 0.0) {
    return v.x < 0.0 ? std::optional<HalfPlane>(HalfPlane{}) : std::nullopt;
  }
  // strain(p) = eps0 + kyy z - kzz y with y = (X - X0) / scale and z = (Y0 - Y) / scale
  return HalfPlane{normal, Dot(normal, place.origin) - v.x};
}

// A tick of a dimension line.
void DrawSlash(Canvas& canvas, Spot at) {
  canvas.Line({at.x - 1.0, at.y + 1.0}, {at.x + 1.0, at.y - 1.0}, {0.4});
}

}  // namespace

Vec2<double> AcrossNeutralAxis(const SectionView& view) {
  if (!view.state) return {0.0, 1.0};
  Vec2<double> gradient{-view.state->plane.Vector().z, view.state->plane.Vector().y};
  if (std::isnan(view.state->axis.angle)) {  // no curvature of its own; a stage before may have one
    gradient = {};
    for (const ComponentView& component : view.components) {
      const Vec3<double>& v = component.plane.Vector();
      if (std::hypot(v.y, v.z) > std::max(Length(gradient), 1e-10)) gradient = {-v.z, v.y};
    }
  }
  const double length = Length(gradient);
  if (!(length > 0.0)) return {0.0, 1.0};
  Vec2<double> across = 1.0 / length * gradient;
  constexpr double kLevel = 1e-7;  // of the direction; the solver's planes are not exact
  if (std::abs(across.x) < kLevel) across = {0.0, across.y};
  if (std::abs(across.y) < kLevel) across = {across.x, 0.0};
  const bool isDown = across.y < 0.0 || (across.y == 0.0 && across.x < 0.0);
  return (isDown ? -1.0 : 1.0) / Length(across) * across;
}

PlanDrawing::PlanDrawing(const SectionView& view, const Data::CUnit& units, const Box& box)
    : view_(view), units_(units), box_(box) {
  const double list =
      kListPitch * static_cast<double>(std::min(view.components.size(), kListLines)) + 2.0;
  drawing_ = {box.left + kForDimensions, box.top + list + kAround - 3.0, box.right - kAround,
              box.bottom - kForDimensions + 2.0};
  Bounds bounds = BoundsOf(view);
  const Bounds own = bounds;
  if (!(bounds.Size() > 0.0)) {
    throw std::invalid_argument("the section has no extent that could be drawn");
  }
  // The origin belongs to the picture unless it would make the section small.
  bounds.Add({0.0, 0.0});
  showsOrigin_ = bounds.Size() <= 1.6 * own.Size();
  if (!showsOrigin_) bounds = own;
  denominator_ = std::max(Plot::ScaleDenominator(bounds.high.x - bounds.low.x, drawing_.Width()),
                          Plot::ScaleDenominator(bounds.high.y - bounds.low.y, drawing_.Height()));
  if (bounds.high.x == bounds.low.x) {
    denominator_ = Plot::ScaleDenominator(bounds.high.y - bounds.low.y, drawing_.Height());
  } else if (bounds.high.y == bounds.low.y) {
    denominator_ = Plot::ScaleDenominator(bounds.high.x - bounds.low.x, drawing_.Width());
  }
  place_.scale = 1000.0 / denominator_;
  const Vec2<double> middle = 0.5 * (bounds.low + bounds.high);
  const Spot centre = drawing_.Centre();
  place_.origin = {centre.x - place_.scale * middle.x, centre.y + place_.scale * middle.y};
  const Spot upperLeft = place_.At({own.low.x, own.high.y});
  const Spot lowerRight = place_.At({own.high.x, own.low.y});
  extent_ = {upperLeft.x, upperLeft.y, lowerRight.x, lowerRight.y};
}

bool PlanDrawing::HasEnlargedBars() const {
  return std::any_of(
      view_.components.begin(), view_.components.end(), [this](const ComponentView& component) {
        return std::any_of(component.bars.begin(), component.bars.end(), [this](const auto& bar) {
          return bar.radius * place_.scale < kLeastRadius;
        });
      });
}

std::vector<Ring> PlanDrawing::RingsOf(const ComponentView& component) const {
  std::vector<Ring> rings;
  const auto add = [&](const std::vector<Vec2<double>>& vertices) {
    Ring& ring = rings.emplace_back();
    for (const Vec2<double>& p : vertices) ring.push_back(place_.At(p));
  };
  for (const auto& polygon : component.polygons) {
    add(polygon.outline);
    for (const auto& hole : polygon.holes) add(hole);
  }
  return rings;
}

double PlanDrawing::RadiusOf(const BarView& bar) const {
  return std::max(kLeastRadius, bar.radius * place_.scale);
}

bool PlanDrawing::Draw(Canvas& canvas) const {
  DrawComponents(canvas);
  const Box neutralAxis = view_.state ? DrawNeutralAxis(canvas) : Box{};
  std::vector<Box> blocked = DrawAxes(canvas);
  blocked.push_back(neutralAxis);
  DrawBars(canvas);
  DrawDimensions(canvas);
  DrawList(canvas);
  return DrawNumbers(canvas, blocked);
}

void PlanDrawing::DrawComponents(Canvas& canvas) const {
  double angle = 45.0;
  for (const ComponentView& component : view_.components) {
    const std::vector<Ring> rings = RingsOf(component);
    if (!component.isIncluded) {
      canvas.Outline(rings, {0.2, kBlack, {1.5, 1.0}});
      continue;
    }
    if (component.type == MatType::steel) DrawSteel(canvas, rings);
    if (component.type == MatType::FRP) DrawFrp(canvas, rings);
    if (component.type == MatType::concrete && view_.state) {
      if (const auto part = Compressed(component, place_)) {
        canvas.Lines(HatchLines(rings, angle, kHatchSpacing, *part), kHatchPen);
      }
      angle = 180.0 - angle;  // neighbours are told apart
    }
    canvas.Outline(rings, {0.5});
  }
}

void PlanDrawing::DrawBars(Canvas& canvas) const {
  for (const ComponentView& component : view_.components) {
    for (const BarView& bar : component.bars) {
      if (!(Length(bar.position) <= 1e6)) continue;
      const bool isOpen = std::isfinite(bar.stress)
                              ? bar.stress <= 0.0
                              : std::isfinite(bar.strain) && bar.strain <= 0.0;
      DrawBar(canvas, place_.At(bar.position), RadiusOf(bar), isOpen, bar.isPrestressed);
    }
  }
}

void PlanDrawing::DrawList(Canvas& canvas) const {
  const TextStyle style{2.3};
  double y = box_.top + 4.0;
  const std::size_t count = view_.components.size();
  for (std::size_t i = 0; i < std::min(count, kListLines); ++i) {
    const ComponentView& component = view_.components[i];
    std::string text = component.tag + "  " + component.name +
                       (component.name.empty() ? "" : ": ") + component.material;
    if (!component.isIncluded) text += " (not in the task)";
    if (i + 1 == kListLines && count > kListLines) {
      text = "… and " + std::to_string(count - i) + " more components";
    }
    canvas.Text({box_.left + 3.0, y}, canvas.Fitted(text, box_.Width() - 6.0, style), style);
    y += kListPitch;
  }
}

void PlanDrawing::DrawDimensions(Canvas& canvas) const {
  const Pen pen{0.18};
  const Vec2<double> size = TrueSize(view_);
  const auto text = [this](double length) {
    return ValueText(length, Dimension::sectionDimensions, units_);
  };
  const double y = extent_.bottom + 9.0;
  for (const double x : {extent_.left, extent_.right}) {
    canvas.Line({x, extent_.bottom + 3.0}, {x, y + 1.5}, pen);
    DrawSlash(canvas, {x, y});
  }
  canvas.Line({extent_.left - 1.5, y}, {extent_.right + 1.5, y}, pen);
  canvas.Text({extent_.Centre().x, y + 3.2}, text(size.x), {2.5, Align::centre});
  const double x = extent_.left - 9.0;
  for (const double level : {extent_.top, extent_.bottom}) {
    canvas.Line({extent_.left - 3.0, level}, {x - 1.5, level}, pen);
    DrawSlash(canvas, {x, level});
  }
  canvas.Line({x, extent_.top - 1.5}, {x, extent_.bottom + 1.5}, pen);
  const std::string height = text(size.y);
  const bool isTall = canvas.TextWidth(height) < extent_.Height();
  const Spot at = isTall ? Spot{x - 1.2, extent_.Centre().y} : Spot{x, extent_.top - 3.0};
  canvas.Text(at, height, {2.5, Align::centre, false, isTall});
}

std::vector<Box> PlanDrawing::DrawAxes(Canvas& canvas) const {
  constexpr double kLength = 10.0;
  const Pen pen{0.3};
  // Axes whose origin is off the drawing stand in its lower left corner, without the sign of it.
  const Spot at = showsOrigin_ ? place_.origin : Spot{box_.left + 4.0, box_.bottom - 4.0};
  std::vector<Box> blocked;
  const auto draw = [&](Spot tip, Spot label, const char* name) {
    canvas.Line(at, tip, {1.1, kWhite});  // to be seen on steel, too
    canvas.Arrow(at, tip, pen);
    canvas.TextOnWhite(label, name, kLabelStyle);
    blocked.push_back(canvas.TextBox(label, name, kLabelStyle));
  };
  const Vec2<double> across = AcrossNeutralAxis(view_);
  if (view_.state && across.x != 0.0 && showsOrigin_) {
    const bool isNearAxis = std::min(std::abs(across.x), std::abs(across.y)) < 0.3;
    const Spot direction{across.x, -across.y};
    const Spot tip = at + (kLength + (isNearAxis ? 8.0 : 3.0)) * direction;
    draw(tip, tip + 2.0 * direction + Spot{-0.7, 0.7}, "s");
  }
  draw({at.x + kLength, at.y}, {at.x + kLength + 0.7, at.y + 0.7}, "y");
  draw({at.x, at.y - kLength}, {at.x - 0.7, at.y - kLength - 0.9}, "z");
  blocked.push_back({at.x - 0.4, at.y - kLength, at.x + 0.4, at.y});
  blocked.push_back({at.x, at.y - 0.4, at.x + kLength, at.y + 0.4});
  if (showsOrigin_) {
    DrawOrigin(canvas, at);
    blocked.push_back({at.x - 2.0, at.y - 2.0, at.x + 2.0, at.y + 2.0});
  }
  return blocked;
}

Box PlanDrawing::DrawNeutralAxis(Canvas& canvas) const {
  const NeutralAxisData& axis = view_.state->axis;
  if (std::isnan(axis.angle) || std::isnan(axis.offset)) return {};
  const Spot along{std::cos(axis.angle), -std::sin(axis.angle)};
  const Spot foot =
      place_.At(axis.offset * Vec2<double>{-std::sin(axis.angle), std::cos(axis.angle)});
  const double reach = 2.0 * (extent_.Width() + extent_.Height() + Length(foot - extent_.Centre()));
  const Stroke line = Within(extent_.Grown(6.0), {foot - reach * along, foot + reach * along});
  if (std::isnan(line.from.x) || !Crosses(extent_, line)) return {};
  canvas.Line(line.from, line.to, kNeutralAxisPen);
  const Spot end = line.from.x > line.to.x ? line.from : line.to;
  // Inside of the line's end, above it where there is room.
  const Spot at{std::min(end.x + 0.8, box_.right - 6.0), end.y - 0.8};
  canvas.TextOnWhite(at, "NA", {2.5, Align::left, true});
  return canvas.TextBox(at, "NA", {2.5, Align::left, true});
}

bool PlanDrawing::DrawNumbers(Canvas& canvas, const std::vector<Box>& blocked) const {
  struct Numbered {
    const BarView* bar;
    double priority;
  };
  std::vector<Numbered> bars;
  LabelPlacer placer(
      {drawing_.left - 6.0, drawing_.top - 6.0, drawing_.right + 6.0, drawing_.bottom + 4.0});
  for (const Box& box : blocked) placer.Block(box);
  for (const ComponentView& component : view_.components) {
    placer.Block(RingsOf(component));
    int number = 0;
    for (const BarView& bar : component.bars) {
      ++number;
      if (!(Length(bar.position) <= 1e6)) continue;
      const Spot at = place_.At(bar.position);
      const double r = RadiusOf(bar) + (bar.isPrestressed ? 0.6 : 0.0);
      placer.Block(Box{at.x - r, at.y - r, at.x + r, at.y + r});
      // Where there is no room for all: the first, then those of the rounder numbers.
      const double priority = number == 1        ? 3.0
                              : number % 10 == 0 ? 2.0
                              : number % 5 == 0  ? 1.0
                                                 : 0.0;
      bars.push_back({&bar, priority});
    }
  }
  std::stable_sort(bars.begin(), bars.end(),
                   [](const Numbered& a, const Numbered& b) { return a.priority > b.priority; });
  bool isComplete = bars.size() <= kMostNumbers;
  bars.resize(std::min(bars.size(), kMostNumbers), {nullptr, 0.0});
  const Spot centre = extent_.Centre();
  for (const Numbered& numbered : bars) {
    const BarView& bar = *numbered.bar;
    const Spot at = place_.At(bar.position);
    const Spot size{canvas.TextWidth(bar.number, kNumberStyle) + 0.3,
                    0.76 * kNumberStyle.size + 0.3};
    const double gap = RadiusOf(bar) + (bar.isPrestressed ? 0.7 : 0.0) + 0.25;
    const auto box = placer.Place(at, gap, size, centre - at);
    if (!box) {
      isComplete = false;
      continue;
    }
    const Spot middle = box->Centre();
    const double distance = Length(middle - at);
    if (distance - size.x / 2.0 > gap + 1.0) {  // far off: a line tells whose number it is
      const Spot towards = 1.0 / distance * (middle - at);
      const Stroke inside = Within(*box, {at, middle});
      canvas.Line(at + (gap - 0.25) * towards, inside.from, {0.1});
    }
    canvas.FillRectangle(*box, kWhite);
    canvas.Text({box->left + 0.15, box->bottom - 0.2}, bar.number, kNumberStyle);
  }
  return isComplete;
}

}  // namespace Orlix::Plot
