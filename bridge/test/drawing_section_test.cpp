#include "bridge/drawing_section.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "model/oxnumeric/area_moments.h"

namespace Orlix::Bridge {
namespace {

using dxf_import::Circle;
using dxf_import::Polygon;
using dxf_import::SectionGeometry;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Polygon Rectangle(double x0, double y0, double x1, double y1) {
  return {{{x0, y0, 0}, {x1, y0, 0}, {x1, y1, 0}, {x0, y1, 0}}, "OUTER", true};
}

Circle Bar(double x, double y, double diameter) { return {{x, y, 0}, diameter / 2, "REBAR"}; }

DrawingSection Made(const SectionGeometry& geometry, DrawingSettings settings = {}) {
  return SectionFromDrawing(geometry, settings, Util::CBarHelper());
}

// 400 x 600 mm with a void of 200 x 200 mm whose centre is 100 mm above the middle: the centroid
// lies (240000 * 300 - 40000 * 400) / 200000 = 280 mm above the bottom.
SectionGeometry Hollow() {
  SectionGeometry geometry;
  geometry.outer = Rectangle(1000, 2000, 1400, 2600);
  geometry.holes = {Rectangle(1100, 2300, 1300, 2500)};
  geometry.rebars = {Bar(1050, 2050, 20), Bar(1350, 2050, 19.9)};
  return geometry;
}

TEST(SectionFromDrawing, MovesTheOriginToTheCentroidOfTheNetOutline) {
  const DrawingSection made = Made(Hollow(), {.name = "pier", .concreteGrade = 2, .rebarGrade = 1});
  ASSERT_TRUE(made.problems.empty());
  EXPECT_TRUE(made.warnings.empty());
  const Data::CSecComp& component = made.section.Components().at(0);
  EXPECT_EQ(component.MaterialGrade(), 2);
  const auto polygon = component.Geometry().Polygons(0.0).at(0);
  // Coordinates of some metres, rounded: 1e-15.
  EXPECT_NEAR(polygon.outline.at(0).x, -0.2, 1e-15);
  EXPECT_NEAR(polygon.outline.at(0).y, -0.28, 1e-15);
  ASSERT_EQ(polygon.holes.size(), 1U);
  const auto& bars = component.Concrete().Bars();
  ASSERT_EQ(bars.size(), 2U);
  EXPECT_NEAR(bars[1].Position().x, 0.15, 1e-15);
  EXPECT_NEAR(bars[1].Position().y, -0.23, 1e-15);
  EXPECT_EQ(bars[1].Grade(), 1);
  EXPECT_DOUBLE_EQ(bars[1].Diameter(), 0.02) << "19.9 mm is a bar of 20 mm";
}

TEST(SectionFromDrawing, KeepsTheOriginDrawnWhenAsked) {
  const DrawingSection made = Made(Hollow(), {.origin = DrawingOrigin::asDrawn});
  const auto polygon = made.section.Components().at(0).Geometry().Polygons(0.0).at(0);
  EXPECT_DOUBLE_EQ(polygon.outline.at(2).x, 1.4);
  EXPECT_DOUBLE_EQ(polygon.outline.at(2).y, 2.6);
}

TEST(SectionFromDrawing, TakesTheNominalSizeOfTheTableThatIsAskedFor) {
  SectionGeometry geometry = Hollow();
  geometry.rebars = {Bar(1050, 2050, 25.4), Bar(1350, 2050, 23), Bar(1350, 2150, 23)};
  const DrawingSection made = Made(geometry, {.barSizes = Util::BarSystem::us});
  const auto& bars = made.section.Components().at(0).Concrete().Bars();
  EXPECT_DOUBLE_EQ(bars.at(0).Area(), 510e-6);  // #8, ASTM A615/A615M, table 1
  EXPECT_DOUBLE_EQ(bars.at(1).Area(), std::numbers::pi / 4 * 0.023 * 0.023);
  ASSERT_EQ(made.warnings.size(), 1U);
  EXPECT_EQ(made.warnings[0],
            "Bars 2 and 3 of 23 mm are of no bar size and kept as drawn; the nearest size is #7.");
}

TEST(SectionFromDrawing, MakesACircularHoleAPolygonOfEqualArea) {
  SectionGeometry geometry = Hollow();
  geometry.circularHoles = {{{1200, 2150, 0}, 50, "HOLES"}};
  const DrawingSection made = Made(geometry);
  const auto polygon = made.section.Components().at(0).Geometry().Polygons(0.0).at(0);
  const double area = std::abs(Numeric::MomentsOf(polygon.holes.at(1)).area);
  EXPECT_NEAR(area, std::numbers::pi * 0.05 * 0.05, 1e-15);  // rounding of coordinates
}

TEST(SectionFromDrawing, CountsAVertexDrawnTwiceOnce) {
  SectionGeometry geometry = Hollow();
  auto& vertices = geometry.outer.vertices;
  vertices.insert(vertices.begin(), 2, vertices.front());
  vertices.push_back(vertices.front());
  const DrawingSection made = Made(geometry);
  const auto polygon = made.section.Components().at(0).Geometry().Polygons(0.0).at(0);
  EXPECT_EQ(polygon.outline.size(), 4U);
}

TEST(SectionFromDrawing, SaysWhatKeepsADrawingFromBeingASection) {
  SectionGeometry crossing = Hollow();
  std::swap(crossing.outer.vertices[1], crossing.outer.vertices[2]);
  SectionGeometry overlapping = Hollow();
  overlapping.holes.push_back(Rectangle(1250, 2450, 1350, 2550));
  SectionGeometry noNumber = Hollow();
  noNumber.outer.vertices[0].x = kNaN;
  SectionGeometry noRadius = Hollow();
  noRadius.circularHoles = {{{1200, 2150, 0}, kNaN, "HOLES"}};
  SectionGeometry noBar = Hollow();
  noBar.rebars[1].radius = kNaN;
  const struct {
    const char* what;
    SectionGeometry geometry;
    std::string begins;
  } kCases[] = {
      {"edges cross", crossing, "The outline and the holes make no section: "},
      {"holes overlap", overlapping, "The outline and the holes make no section: "},
      {"a vertex is no number", noNumber, "The outline and the holes make no section: "},
      {"a hole's radius is no number", noRadius, "Circular hole 1 has no radius"},
      {"a bar's radius is no number", noBar, "Bar 2 has no radius"},
      {"nothing is drawn", {}, "The outline and the holes make no section: "},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const DrawingSection made = Made(c.geometry);
    ASSERT_FALSE(made.problems.empty());
    EXPECT_EQ(made.problems[0].substr(0, c.begins.size()), c.begins) << made.problems[0];
    EXPECT_TRUE(made.section.Components().empty());
  }
}

}  // namespace
}  // namespace Orlix::Bridge
