#include "plot/marks.h"

#include <algorithm>
#include <vector>

namespace Orlix::Plot {

namespace {

Ring Corners(const Box& box) {
  return {
      {box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
}

// A patch of a filling, with its outline.
template <class Draw>
void DrawPatch(Canvas& canvas, const Box& box, const Pen& outline, Draw draw) {
  const std::vector<Ring> rings = {Corners(box)};
  draw(rings);
  canvas.Outline(rings, outline);
}

}  // namespace

void DrawBar(Canvas& canvas, Spot centre, double radius, bool isOpen, bool isPrestressed) {
  if (isOpen) {
    const double width = std::min(0.25, 0.5 * radius);
    canvas.FillCircle(centre, radius, kWhite);
    canvas.Circle(centre, radius - width / 2.0, {width});
  } else {
    canvas.FillCircle(centre, radius, kBlack);
  }
  if (isPrestressed) canvas.Circle(centre, radius + 0.5, {0.18});
}

void DrawOrigin(Canvas& canvas, Spot at) {
  constexpr double kRadius = 1.2;
  const Pen pen{0.25};
  canvas.Circle(at, kRadius, pen);
  canvas.Line({at.x - 1.6 * kRadius, at.y}, {at.x + 1.6 * kRadius, at.y}, pen);
  canvas.Line({at.x, at.y - 1.6 * kRadius}, {at.x, at.y + 1.6 * kRadius}, pen);
}

void DrawSteel(Canvas& canvas, std::span<const Ring> rings) {
  canvas.Fill(rings, 0.8);
  canvas.Lines(HatchLines(rings, 135.0, kSteelSpacing, {}), {0.13});
}

void DrawFrp(Canvas& canvas, std::span<const Ring> rings) { canvas.Fill(rings, 0.15); }

void DrawLoad(Canvas& canvas, Spot at, bool isInPlane, bool isGoverning) {
  const Pen pen{isGoverning ? 0.4 : 0.25};
  const Spot arm = isInPlane ? Spot{1.0, 1.0} : Spot{1.2, 0.0};
  canvas.Line(at - arm, at + arm, pen);
  canvas.Line(at - Spot{arm.y, -arm.x}, at + Spot{arm.y, -arm.x}, pen);
  if (isGoverning) canvas.Circle(at, 2.0, {0.4});
}

void DrawDesignPoint(Canvas& canvas, Spot at) {
  canvas.FillCircle(at, 1.2, kBlack);
  canvas.FillCircle(at, 0.7, kWhite);
}

void DrawKeySign(Canvas& canvas, const Box& box, KeySign sign) {
  const Spot centre = box.Centre();
  constexpr double kBarRadius = 0.9;
  const auto line = [&](const Pen& pen) {
    canvas.Line({box.left, centre.y}, {box.right, centre.y}, pen);
  };
  switch (sign) {
    case KeySign::barInTension:
    case KeySign::bar:
      return DrawBar(canvas, centre, kBarRadius, false, false);
    case KeySign::barInCompression:
      return DrawBar(canvas, centre, kBarRadius, true, false);
    case KeySign::prestressedBar:
      return DrawBar(canvas, centre, 0.7, false, true);
    case KeySign::compressionZone:
      return DrawPatch(canvas, box, {0.35}, [&](const auto& rings) {
        canvas.Lines(HatchLines(rings, 45.0, kHatchSpacing, {}), kHatchPen);
      });
    case KeySign::steel:
      return DrawPatch(canvas, box, {0.35}, [&](const auto& rings) { DrawSteel(canvas, rings); });
    case KeySign::frp:
      return DrawPatch(canvas, box, {0.35}, [&](const auto& rings) { DrawFrp(canvas, rings); });
    case KeySign::notIncluded:
      return canvas.Rectangle(box, {0.2, kBlack, {1.5, 1.0}});
    case KeySign::neutralAxis:
      return line({0.5, kBlack, {4.0, 1.0, 0.8, 1.0}});
    case KeySign::origin:
      return DrawOrigin(canvas, centre);
    case KeySign::solidCurve:
      return line({0.5});
    case KeySign::dashedCurve:
      return line({0.35, kBlack, {2.0, 1.2}});
    case KeySign::point:
      return canvas.FillCircle(centre, 0.8, kBlack);
    case KeySign::designPoint:
      return DrawDesignPoint(canvas, centre);
    case KeySign::load:
      return DrawLoad(canvas, centre, true, false);
    case KeySign::projectedLoad:
      return DrawLoad(canvas, centre, false, false);
    case KeySign::governingLoad:
      return DrawLoad(canvas, centre, true, true);
  }
}

}  // namespace Orlix::Plot
