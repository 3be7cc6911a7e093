#include "model/oxdata/geometry/shape_outlines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <numbers>

#include "model/oxnumeric/polygon.h"
#include "model/oxutil/StringFrom.h"

namespace Orlix::Data {
namespace {

using Ring = std::vector<Vec2<double>>;
using Member = double ShapeDimensions::*;

constexpr double kPi = std::numbers::pi;

Ring Box(double width, double low, double high) {
  return {{-width / 2, low}, {width / 2, low}, {width / 2, high}, {-width / 2, high}};
}

/// Polygon of the area of an ellipse with half axes a and b. The vertices are made a quarter at a
/// time, so that the polygon is symmetric to the last bit and its centroid is the centre.
Ring Ellipse(double a, double b, int sides) {
  const double angle = 2.0 * kPi / sides;
  const double grow = std::sqrt(angle / std::sin(angle));
  const auto quarter = static_cast<std::size_t>(sides) / 4;
  Ring ring;
  ring.reserve(4 * quarter);
  std::vector<double> cosines;
  for (std::size_t i = 0; i < quarter; ++i) {
    cosines.push_back(grow * std::cos(static_cast<double>(i) * angle));
  }
  const auto cosine = [&](std::size_t i) { return i == quarter ? 0.0 : cosines[i]; };
  for (std::size_t i = 0; i < quarter; ++i)
    ring.push_back({a * cosine(i), b * cosine(quarter - i)});
  for (std::size_t i = 0; i < quarter; ++i)
    ring.push_back({-a * cosine(quarter - i), b * cosine(i)});
  for (std::size_t i = 0; i < quarter; ++i)
    ring.push_back({-a * cosine(i), -b * cosine(quarter - i)});
  for (std::size_t i = 0; i < quarter; ++i)
    ring.push_back({a * cosine(quarter - i), -b * cosine(i)});
  return ring;
}

Ring Reversed(Ring ring) {
  std::reverse(ring.begin(), ring.end());
  return ring;
}

double ValueOr(double value, double otherwise) { return value > 0.0 ? value : otherwise; }

Ring Ell(const ShapeDimensions& d) {
  const double left = -d.width / 2;
  const double right = d.width / 2;
  const double low = -d.depth / 2;
  const double high = d.depth / 2;
  const double inner = left + d.webThickness;
  const double top = low + d.flangeThickness;
  return {{left, low}, {right, low}, {right, top}, {inner, top}, {inner, high}, {left, high}};
}

Ring Tee(const ShapeDimensions& d) {
  const double web = d.webThickness / 2;
  const double flange = d.width / 2;
  const double low = -d.depth / 2;
  const double high = d.depth / 2;
  const double under = high - d.flangeThickness;
  return {{-web, low},    {web, low},      {web, under},     {flange, under},
          {flange, high}, {-flange, high}, {-flange, under}, {-web, under}};
}

Ring IBeam(const ShapeDimensions& d) {
  const double web = d.webThickness / 2;
  const double top = d.width / 2;
  const double bottom = ValueOr(d.bottomWidth, d.width) / 2;
  const double low = -d.depth / 2;
  const double high = d.depth / 2;
  const double over = low + ValueOr(d.bottomThickness, d.flangeThickness);
  const double under = high - d.flangeThickness;
  return {{-bottom, low}, {bottom, low}, {bottom, over}, {web, over},
          {web, under},   {top, under},  {top, high},    {-top, high},
          {-top, under},  {-web, under}, {-web, over},   {-bottom, over}};
}

const char* NameOf(ShapeKind kind, Member member) {
  for (const ShapeParameter& p : ShapeParameters(kind)) {
    if (p.member == member) return p.name;
  }
  return "";
}

std::string Quantity(const char* name, double value) {
  return std::string(name) + " (" + StringFrom(value) + " m)";
}

/// Compares dimensions of one shape and words what is wrong.
class DimensionRules {
 public:
  DimensionRules(ShapeKind kind, const ShapeDimensions& d) : kind_(kind), d_(d) {}

  std::string Positive() const {
    for (const ShapeParameter& p : ShapeParameters(kind_)) {
      const double value = d_.*p.member;
      if (!std::isfinite(value) || value < 0.0 || (p.required && value == 0.0)) {
        return Quantity(p.name, value) + " must be a positive number";
      }
    }
    return {};
  }
  std::string NotWider(Member part, Member whole) const {
    if (d_.*part <= d_.*whole) return {};
    return Quantity(NameOf(kind_, part), d_.*part) + " is larger than " +
           Quantity(NameOf(kind_, whole), d_.*whole);
  }
  /// `total` is what the part, with its counterpart, takes from the whole.
  std::string LeavesRoom(Member part, double total, Member whole) const {
    if (total < d_.*whole) return {};
    return Quantity(NameOf(kind_, part), d_.*part) + " leaves no room within " +
           Quantity(NameOf(kind_, whole), d_.*whole);
  }

 private:
  ShapeKind kind_;
  const ShapeDimensions& d_;
};

/// The first text that says something.
std::string First(std::initializer_list<std::string> texts) {
  const auto found =
      std::find_if(texts.begin(), texts.end(), [](const auto& t) { return !t.empty(); });
  return found == texts.end() ? std::string() : *found;
}

}  // namespace

std::string DimensionProblem(ShapeKind kind, const ShapeDimensions& d) {
  using D = ShapeDimensions;
  const DimensionRules rules(kind, d);
  if (std::string problem = rules.Positive(); !problem.empty()) return problem;
  const double flanges = d.flangeThickness + ValueOr(d.bottomThickness, d.flangeThickness);
  switch (kind) {
    case ShapeKind::ring:
      return rules.LeavesRoom(&D::thickness, 2.0 * d.thickness, &D::diameter);
    case ShapeKind::tee:
      return First({rules.NotWider(&D::webThickness, &D::width),
                    rules.LeavesRoom(&D::flangeThickness, d.flangeThickness, &D::depth)});
    case ShapeKind::ell:
      return First({rules.LeavesRoom(&D::webThickness, d.webThickness, &D::width),
                    rules.LeavesRoom(&D::flangeThickness, d.flangeThickness, &D::depth)});
    case ShapeKind::iBeam:
      return First({rules.NotWider(&D::webThickness, &D::width),
                    d.bottomWidth > 0.0 ? rules.NotWider(&D::webThickness, &D::bottomWidth) : "",
                    rules.LeavesRoom(&D::flangeThickness, flanges, &D::depth)});
    case ShapeKind::box:
      return First({rules.LeavesRoom(&D::webThickness, 2.0 * d.webThickness, &D::width),
                    rules.LeavesRoom(&D::flangeThickness, flanges, &D::depth)});
    case ShapeKind::none:
    case ShapeKind::polygon:
    case ShapeKind::rectangle:
    case ShapeKind::circle:
    case ShapeKind::trapezoid:
    case ShapeKind::ellipse:
      break;
  }
  return {};
}

int SidesOfCircle(double radius, double tolerance) {
  constexpr int kDefault = 128;
  constexpr double kFewest = 8.0;
  constexpr double kMost = 8192.0;  // sagitta of 7e-8 of the radius: finer is no use, only memory
  if (!(tolerance > 0.0)) return kDefault;
  // The sagitta of a chord of the circle itself; the polygon of equal area lies nearer on both
  // sides.
  const double half = 2.0 * std::asin(std::sqrt(std::min(tolerance / (2.0 * radius), 1.0)));
  const double sides = std::clamp(kPi / half, kFewest, kMost);
  return 4 * static_cast<int>(std::ceil(sides / 4.0));
}

SectionPolygon ShapeOutline(ShapeKind kind, const ShapeDimensions& d, double tolerance) {
  const double high = d.depth / 2;
  switch (kind) {
    case ShapeKind::rectangle:
      return {Box(d.width, -high, high), {}};
    case ShapeKind::circle:
      return {Ellipse(d.diameter / 2, d.diameter / 2, SidesOfCircle(d.diameter / 2, tolerance)),
              {}};
    case ShapeKind::ring: {
      const double outer = d.diameter / 2;
      const double inner = outer - d.thickness;
      const int sides = SidesOfCircle(outer, tolerance);
      return {Ellipse(outer, outer, sides), {Reversed(Ellipse(inner, inner, sides))}};
    }
    case ShapeKind::tee:
      return {Numeric::WithoutDuplicates(Tee(d), 0.0), {}};
    case ShapeKind::ell:
      return {Ell(d), {}};
    case ShapeKind::iBeam:
      return {Numeric::WithoutDuplicates(IBeam(d), 0.0), {}};
    case ShapeKind::box: {
      const double bottom = ValueOr(d.bottomThickness, d.flangeThickness);
      return {
          Box(d.width, -high, high),
          {Reversed(Box(d.width - 2 * d.webThickness, bottom - high, high - d.flangeThickness))}};
    }
    case ShapeKind::trapezoid: {
      const double top = d.width / 2;
      const double bottom = d.bottomWidth / 2;
      return {{{-bottom, -high}, {bottom, -high}, {top, high}, {-top, high}}, {}};
    }
    case ShapeKind::ellipse: {
      const int sides = SidesOfCircle(std::max(d.width, d.depth) / 2, tolerance);
      return {Ellipse(d.width / 2, d.depth / 2, sides), {}};
    }
    case ShapeKind::none:
    case ShapeKind::polygon:
      break;
  }
  return {};
}

}  // namespace Orlix::Data
