#include "model/oxdata/geometry/CSecGeom.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "model/oxdata/geometry/shape_outlines.h"
#include "model/oxnumeric/polygon_validity.h"
#include "model/oxutil/StringFrom.h"

namespace Orlix::Data {
namespace {

using D = ShapeDimensions;

constexpr ShapeParameter kWidth{"width", &D::width, true};
constexpr ShapeParameter kDepth{"depth", &D::depth, true};
constexpr ShapeParameter kDiameter{"diameter", &D::diameter, true};
constexpr ShapeParameter kThickness{"thickness", &D::thickness, true};
constexpr ShapeParameter kFlange{"flangeThickness", &D::flangeThickness, true};
constexpr ShapeParameter kWeb{"webThickness", &D::webThickness, true};
constexpr ShapeParameter kBottomWidth{"bottomWidth", &D::bottomWidth, true};
constexpr ShapeParameter kOtherBottomWidth{"bottomWidth", &D::bottomWidth, false};
constexpr ShapeParameter kOtherBottom{"bottomThickness", &D::bottomThickness, false};

struct Shape {
  ShapeKind kind;
  const char* name;
  std::vector<ShapeParameter> parameters;
};

const std::vector<Shape>& Shapes() {
  static const std::vector<Shape> kShapes = {
      {ShapeKind::none, "", {}},
      {ShapeKind::polygon, "polygon", {}},
      {ShapeKind::rectangle, "rectangle", {kWidth, kDepth}},
      {ShapeKind::circle, "circle", {kDiameter}},
      {ShapeKind::ring, "ring", {kDiameter, kThickness}},
      {ShapeKind::tee, "T", {kWidth, kDepth, kFlange, kWeb}},
      {ShapeKind::ell, "L", {kWidth, kDepth, kFlange, kWeb}},
      {ShapeKind::iBeam, "I", {kWidth, kDepth, kFlange, kWeb, kOtherBottomWidth, kOtherBottom}},
      {ShapeKind::box, "box", {kWidth, kDepth, kFlange, kWeb, kOtherBottom}},
      {ShapeKind::trapezoid, "trapezoid", {kWidth, kDepth, kBottomWidth}},
      {ShapeKind::ellipse, "ellipse", {kWidth, kDepth}},
  };
  return kShapes;
}

const Shape& ShapeOf(ShapeKind kind) {
  const auto& shapes = Shapes();
  const auto found =
      std::find_if(shapes.begin(), shapes.end(), [kind](const Shape& s) { return s.kind == kind; });
  return found == shapes.end() ? shapes.front() : *found;
}

Numeric::PolygonView View(const SectionPolygon& polygon) {
  return {polygon.outline, polygon.holes};
}

std::string At(Vec2<double> place) {
  return " at y = " + StringFrom(place.x) + " m, z = " + StringFrom(place.y) + " m";
}

/// Bounding box of an outline, to skip pairs of polygons that lie apart.
struct Extent {
  explicit Extent(const std::vector<Vec2<double>>& outline) {
    low = high = outline.front();
    for (const auto& v : outline) {
      low = {std::min(low.x, v.x), std::min(low.y, v.y)};
      high = {std::max(high.x, v.x), std::max(high.y, v.y)};
    }
  }
  bool Meets(const Extent& b) const {
    return low.x < b.high.x && b.low.x < high.x && low.y < b.high.y && b.low.y < high.y;
  }
  Vec2<double> low, high;
};

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Whether a number ends before the rest of a text, and no unit follows it.
bool EndsNumber(std::wstring_view rest) {
  if (rest.size() > 1 && (rest[0] == L'.' || rest[0] == L',') && IsDigit(rest[1])) return false;
  if (!rest.empty() && IsDigit(rest[0])) return false;
  const std::size_t next = rest.find_first_not_of(L" \t");
  if (next == std::wstring_view::npos) return true;
  const std::wstring_view word = rest.substr(next);
  const bool isTimes = word[0] == L'x' || word[0] == L'X' || word[0] == L'\u00D7';
  if (isTimes) return word.size() == 1 || word[1] == L' ' || IsDigit(word[1]);
  return word[0] == L',' || word[0] == L';' || word[0] == L'/' || word[0] == L'+' ||
         IsDigit(word[0]);
}

std::string OverlapProblem(const std::vector<SectionPolygon>& polygons) {
  std::vector<Extent> extents;
  extents.reserve(polygons.size());
  for (const auto& polygon : polygons) extents.emplace_back(polygon.outline);
  for (std::size_t j = 1; j < polygons.size(); ++j) {
    for (std::size_t i = 0; i < j; ++i) {
      if (!extents[i].Meets(extents[j])) continue;
      if (!Numeric::InteriorsOverlap(View(polygons[i]), View(polygons[j]))) continue;
      return "polygons " + std::to_string(i + 1) + " and " + std::to_string(j + 1) + " overlap" +
             At(Numeric::OverlapOf(View(polygons[i]), View(polygons[j])).place);
    }
  }
  return {};
}

}  // namespace

const std::vector<ShapeParameter>& ShapeParameters(ShapeKind kind) {
  return ShapeOf(kind).parameters;
}

const char* ShapeName(ShapeKind kind) { return ShapeOf(kind).name; }

ShapeKind ShapeWithName(const std::string& name) {
  for (const Shape& shape : Shapes()) {
    if (name == shape.name) return shape.kind;
  }
  return ShapeKind::none;
}

CSecGeom::CSecGeom(std::vector<SectionPolygon> polygons)
    : kind_(ShapeKind::polygon), polygons_(std::move(polygons)) {}

CSecGeom::CSecGeom(ShapeKind kind, const ShapeDimensions& dimensions, Vec2<double> centre,
                   double rotation)
    : kind_(kind), dimensions_(dimensions), centre_(centre), rotation_(rotation) {}

std::string CSecGeom::PlacementProblem() const {
  if (kind_ == ShapeKind::none) return "there is no shape";
  if (kind_ == ShapeKind::polygon) return polygons_.empty() ? "there is no polygon" : "";
  if (!std::isfinite(centre_.x) || !std::isfinite(centre_.y)) return "the centre is not finite";
  if (!std::isfinite(rotation_)) return "the rotation is not finite";
  return DimensionProblem(kind_, dimensions_);
}

std::vector<SectionPolygon> CSecGeom::Polygons(double tolerance) const {
  if (kind_ == ShapeKind::polygon) return polygons_;
  if (!PlacementProblem().empty()) return {};
  SectionPolygon polygon = ShapeOutline(kind_, dimensions_, tolerance);
  const double c = std::cos(rotation_);
  const double s = std::sin(rotation_);
  const auto place = [&](std::vector<Vec2<double>>& ring) {
    for (auto& v : ring) v = centre_ + Vec2<double>{c * v.x - s * v.y, s * v.x + c * v.y};
  };
  place(polygon.outline);
  for (auto& hole : polygon.holes) place(hole);
  return {std::move(polygon)};
}

std::wstring CSecGeom::DescriptionWithUnitAppended(const std::wstring& unit, bool afterEach) const {
  const std::wstring_view text = description_.View();
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    result.push_back(text[i]);
    if (!IsDigit(text[i])) continue;
    const std::wstring_view rest = text.substr(i + 1);
    const bool ends = rest.find_first_not_of(L" \t") == std::wstring_view::npos;
    if (ends || (afterEach && EndsNumber(rest))) result += L" " + unit;
  }
  return result;
}

bool CSecGeom::hasValidPolygons() const { return PolygonProblem().empty(); }

std::string CSecGeom::PolygonProblem() const {
  if (std::string problem = PlacementProblem(); !problem.empty()) return problem;
  const std::vector<SectionPolygon> polygons = Polygons(0.0);
  for (std::size_t i = 0; i < polygons.size(); ++i) {
    const Numeric::PolygonValidity validity = Numeric::ValidityOf(View(polygons[i]));
    if (validity.IsValid()) continue;
    std::string text;
    if (polygons.size() > 1) text += "polygon " + std::to_string(i + 1) + ": ";
    text += validity.reason;
    const bool placed =
        validity.fault != Numeric::PolygonFault::notFinite && !polygons[i].outline.empty();
    return placed ? text + At(validity.place) : text;
  }
  return OverlapProblem(polygons);
}

}  // namespace Orlix::Data
