#pragma once

// Sections and curves that the tests of this folder share. Tension positive, metres, newtons.

#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "model/oxnumeric/section/CompiledSection.h"

namespace Orlix::Numeric::Testing {

/// EN 1992-1-1 parabola-rectangle, n = 2.
inline CurveInput ParabolaRectangle(double f = 20e6, double peak = 0.002, double limit = 0.0035) {
  const CSegment parabola =
      CSegment::Cubic(-peak, 0.0, 0.0, {0.0, 2.0 * f / peak, f / (peak * peak), 0.0});
  return {{CSegment::Constant(-limit, -peak, -f), parabola, CSegment::Zero(0.0, 1.0)},
          peak,
          false,
          true};
}

/// EN 1992-1-1 parabola-rectangle of a high-strength concrete.
inline CurveInput PowerCurve(double f, double peak, double limit, double n) {
  return {{CSegment::Constant(-limit, -peak, -f),
           CSegment::Power(-peak, 0.0, -peak, -f, f, 1.0 / peak, n), CSegment::Zero(0.0, 1.0)},
          peak,
          false,
          true};
}

inline CurveInput Block(double f = 17e6, double start = 0.0007, double limit = 0.0035) {
  return {{CSegment::Constant(-limit, -start, -f), CSegment::Zero(-start, 1.0)}, 0.0, false, true};
}

/// EN 1992-1-1 (3.14): peaks and falls.
inline CurveInput Rational(double f = 38e6, double peak = 0.0022, double limit = 0.0035,
                           double k = 1.9) {
  // s = -f (k h - h²) / (1 + (k - 2) h) with h = -e / peak
  return {{CSegment::Rational(-limit, 0.0, 0.0, f * k / peak, f / (peak * peak), -(k - 2.0) / peak),
           CSegment::Zero(0.0, 1.0)},
          0.0,
          false,
          true};
}

inline CurveInput Linear(double modulus, double limit = 1.0) {
  return {{CSegment::Line(-limit, limit, -modulus * limit, modulus * limit)}, 0.0, true, true};
}

inline CurveInput Steel(double fy = 435e6, double limit = 0.045, double modulus = 200e9) {
  const double ey = fy / modulus;
  return {{CSegment::Constant(-limit, -ey, -fy), CSegment::Line(-ey, ey, -fy, fy),
           CSegment::Constant(ey, limit, fy)},
          0.0,
          false,
          false};
}

using Points = std::vector<Vec2<double>>;

inline Points Rectangle(double width, double depth) {
  return {{-width / 2, -depth / 2},
          {width / 2, -depth / 2},
          {width / 2, depth / 2},
          {-width / 2, depth / 2}};
}

inline Points RegularPolygon(double radius, int sides) {
  Points ring;
  for (int i = 0; i < sides; ++i) {
    const double angle = 2.0 * 3.14159265358979323846 * (i + 0.5) / sides;
    ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
  }
  return ring;
}

/// One concrete region (curve 0) and equal bars (curve 1) that displace it.
inline SectionInput WithBars(Points outline, Points hole, CurveInput concrete, const Points& bars,
                             double barArea, CurveInput steel = Steel()) {
  SectionInput input;
  input.curves = {std::move(concrete), std::move(steel)};
  RegionInput region;
  region.rings.push_back({std::move(outline), false});
  if (!hole.empty()) region.rings.push_back({std::move(hole), true});
  input.regions.push_back(region);
  for (const Vec2<double>& p : bars) input.points.push_back({p, barArea, 1, 0.0, {}, 0});
  return input;
}

/// 300x500 with eight 20 mm bars.
inline SectionInput Column(CurveInput concrete = ParabolaRectangle()) {
  return WithBars(Rectangle(0.3, 0.5), {}, std::move(concrete),
                  {{-0.1, -0.2},
                   {0.0, -0.2},
                   {0.1, -0.2},
                   {-0.1, 0.0},
                   {0.1, 0.0},
                   {-0.1, 0.2},
                   {0.0, 0.2},
                   {0.1, 0.2}},
                  314e-6);
}

/// L-shaped wall, bars along both legs.
inline SectionInput Ell(CurveInput concrete = ParabolaRectangle()) {
  return WithBars({{0, 0}, {0.9, 0}, {0.9, 0.25}, {0.25, 0.25}, {0.25, 0.8}, {0, 0.8}}, {},
                  std::move(concrete),
                  {{0.05, 0.05},
                   {0.3, 0.05},
                   {0.6, 0.05},
                   {0.85, 0.05},
                   {0.85, 0.2},
                   {0.6, 0.2},
                   {0.2, 0.4},
                   {0.05, 0.4},
                   {0.05, 0.75},
                   {0.2, 0.75}},
                  491e-6);
}

/// Hollow box 2.0x1.6 m, walls 0.3 m, 36 bars.
inline SectionInput Box(CurveInput concrete = ParabolaRectangle()) {
  Points bars;
  for (int i = 0; i < 10; ++i) {
    const double y = -0.9 + 0.2 * i;
    bars.push_back({y, -0.72});
    bars.push_back({y, 0.72});
  }
  for (int i = 0; i < 8; ++i) {
    const double z = -0.56 + 0.16 * i;
    bars.push_back({-0.92, z});
    bars.push_back({0.92, z});
  }
  return WithBars(Rectangle(2.0, 1.6), Rectangle(1.4, 1.0), std::move(concrete), bars, 804e-6);
}

/// Random plane whose largest strain is about `size`.
inline Plane RandomPlane(const CompiledSection& section, std::mt19937& random, double size) {
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  return {size * unit(random), size * unit(random) / section.radius,
          size * unit(random) / section.radius};
}

}  // namespace Orlix::Numeric::Testing
