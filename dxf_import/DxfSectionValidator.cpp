#include "dxf_import/DxfSectionValidator.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "dxf_import/DxfImportMessages.h"
#include "dxf_import/point_in_polygon.h"
#include "model/oxutil/Format.h"

namespace Orlix::dxf_import {
namespace {

constexpr double kPlanarZ = 1e-6;  // in the unit of the section
constexpr std::size_t kFewestVertices = 3;

constexpr std::string_view kPolyline = "LWPOLYLINE";
constexpr std::string_view kCircle = "CIRCLE";
constexpr std::string_view kOuter = "OUTER";
constexpr std::string_view kHoles = "HOLES";
constexpr std::string_view kRebar = "REBAR";

/// What is said of a circle that is not inside.
struct OutsideTexts {
  std::string_view message;
  std::string_view hint;
};

Vec2<double> InPlane(const Vec3<double>& point) { return {point.x, point.y}; }

// All points that have to be inside, in the order in which they are looked at.
std::vector<Vec2<double>> PointsOf(const SectionGeometry& geometry) {
  std::vector<Vec2<double>> points;
  for (const Polygon& hole : geometry.holes) {
    for (const Vec3<double>& vertex : hole.vertices) points.push_back(InPlane(vertex));
  }
  points.reserve(points.size() + geometry.circularHoles.size() + geometry.rebars.size());
  for (const auto* circles : {&geometry.circularHoles, &geometry.rebars}) {
    for (const Circle& circle : *circles) points.push_back(InPlane(circle.center));
  }
  return points;
}

class Validation {
 public:
  explicit Validation(const SectionGeometry& geometry)
      : geometry_(geometry),
        isInside_(ArePointsInsidePolygon(PointsOf(geometry), geometry.outer)) {}

  std::vector<DxfDiagnostic> Run() {
    ValidatePolygonShape(geometry_.outer, kOuter);
    ValidateHolePolygons();
    ValidateCircles(geometry_.circularHoles, kHoles,
                    {Messages::kCircularHoleOutside, Messages::kCircularHoleOutsideHint});
    ValidateCircles(geometry_.rebars, kRebar,
                    {Messages::kRebarOutside, Messages::kRebarOutsideHint});
    return std::move(diagnostics_);
  }

 private:
  void Fail(std::string_view entityType, std::string_view layer, std::string message,
            std::string_view hint) {
    diagnostics_.push_back({DxfSeverity::Error, 0, std::string(entityType), std::string(layer),
                            std::move(message), std::string(hint)});
  }

  void ValidatePolygonShape(const Polygon& polygon, std::string_view layer) {
    double largestZ = 0;
    for (const Vec3<double>& vertex : polygon.vertices) {
      largestZ = std::max(largestZ, std::fabs(vertex.z));  // passes over a NaN
    }
    if (largestZ > kPlanarZ) {
      Fail(kPolyline, layer, Format(Messages::kPolygonNotPlanar, largestZ),
           Messages::kNotPlanarHint);
    }
    const std::size_t count = polygon.vertices.size();
    if (count < kFewestVertices) {
      Fail(kPolyline, layer, Format(Messages::kFewerThanThreeVertices, count),
           Messages::kFewerThanThreeVerticesHint);
    }
    if (!polygon.closed) {
      Fail(kPolyline, layer, std::string(Messages::kNotClosed), Messages::kNotClosedHint);
    }
  }

  void ValidateHolePolygons() {
    for (const Polygon& hole : geometry_.holes) {
      const auto begin = nextPoint_;
      nextPoint_ += static_cast<std::ptrdiff_t>(hole.vertices.size());
      if (hole.vertices.empty()) continue;
      ValidatePolygonShape(hole, kHoles);
      if (geometry_.outer.closed && std::find(begin, nextPoint_, false) != nextPoint_) {
        Fail(kPolyline, kHoles, std::string(Messages::kHoleOutside), Messages::kHoleOutsideHint);
      }
    }
  }

  void ValidateCircles(const std::vector<Circle>& circles, std::string_view layer,
                       const OutsideTexts& outside) {
    const bool testsContainment =
        geometry_.outer.closed && geometry_.outer.vertices.size() >= kFewestVertices;
    for (const Circle& circle : circles) {
      const double z = std::fabs(circle.center.z);
      if (z > kPlanarZ) {
        Fail(kCircle, layer, Format(Messages::kCircleNotPlanar, z), Messages::kNotPlanarHint);
      }
      const bool isInside = *nextPoint_++;
      if (testsContainment && !isInside) {
        Fail(kCircle, layer, std::string(outside.message), outside.hint);
      }
    }
  }

  const SectionGeometry& geometry_;
  std::vector<bool> isInside_;  ///< for PointsOf the section
  std::vector<bool>::const_iterator nextPoint_ = isInside_.begin();
  std::vector<DxfDiagnostic> diagnostics_;
};

}  // namespace

std::vector<DxfDiagnostic> DxfSectionValidator::Validate(const SectionGeometry& geometry) {
  if (geometry.outer.vertices.empty()) {
    return {{DxfSeverity::Error, 0, "", std::string(kOuter), std::string(Messages::kNoOuter),
             std::string(Messages::kNoOuterHint)}};
  }
  return Validation(geometry).Run();
}

}  // namespace Orlix::dxf_import
