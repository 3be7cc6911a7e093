#include "model/oxdata/geometry/CSecGeom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "model/oxnumeric/area_moments.h"

namespace Orlix::Data {
namespace {

using Numeric::AreaMoments;
constexpr double kPi = std::numbers::pi;

AreaMoments Moments(const CSecGeom& geometry, double tolerance = 0.0) {
  AreaMoments m;
  for (const auto& polygon : geometry.Polygons(tolerance)) {
    m += Numeric::MomentsOf(polygon.outline);
    for (const auto& hole : polygon.holes) m += Numeric::MomentsOf(hole);
  }
  return m;
}

struct Case {
  ShapeKind kind;
  ShapeDimensions dimensions;
  double area, sz, syy, szz;
  double curveError = 0.0;  // relative error of the second moments that the outline's sides cause
};

/// Closed forms about the middle of width and depth, composed of rectangles by hand.
std::vector<Case> Cases() {
  using enum ShapeKind;
  const double cube = 1.0 / 12.0;
  const double ends = cube * (6 + 2 * 343) + 6 * 12.25 + 14 * 0.25;  // flange and web in depth
  // The second moment of a regular polygon of n sides and the circle's area grows by
  // (2 + cos a) / 3 * a / sin a - 1 = a^4 / 180, a = 2 pi / n; 3.2e-8 for 128 sides.
  const double turn = std::pow(2 * kPi / 128, 4) / 180;
  const double hollow = kPi / 4 * (1 - 0.0625);
  const ShapeDimensions flanged{.width = 6, .depth = 8, .flangeThickness = 1, .webThickness = 2};
  ShapeDimensions unequal = flanged;
  unequal.bottomWidth = 4;
  unequal.bottomThickness = 2;
  ShapeDimensions hollowBox = flanged;
  hollowBox.webThickness = 1;
  hollowBox.bottomThickness = 2;
  return {
      {rectangle, {.width = 6, .depth = 2}, 12, 0, cube * 432, cube * 48},
      {ring, {.diameter = 2, .thickness = 0.5}, 0.75 * kPi, 0, hollow, hollow, turn},
      {ellipse, {.width = 4, .depth = 2}, 2 * kPi, 0, 2 * kPi, kPi / 2, turn},
      // Flange 6 by 1 at z = 3.5, web 2 by 7 at z = -0.5.
      {tee, flanged, 20, 14, cube * (216 + 7 * 8), ends},
      // Bottom leg 6 by 1 at z = -3.5, left leg 2 by 7 at y = -2, z = 0.5.
      {ell, flanged, 20, -14, cube * (216 + 7 * 8) + 14 * 4, ends},
      // Equal flanges: 6 by 8 less two voids of 2 by 6.
      {iBeam, flanged, 24, 0, cube * (2 * 216 + 6 * 8), cube * (6 * 512 - 4 * 216)},
      // Bottom flange 4 by 2 at z = -3, web 2 by 5 at z = 0.5, top flange 6 by 1 at z = 3.5.
      {iBeam, unequal, 24, 2, cube * (2 * 64 + 5 * 8 + 216),
       cube * (4 * 8 + 2 * 125 + 6) + 8 * 9 + 10 * 0.25 + 6 * 12.25},
      // 6 by 8 less a void of 4 by 5 at z = 0.5.
      {box, hollowBox, 28, -10, cube * (8 * 216 - 5 * 64), cube * (6 * 512 - 4 * 125) - 20 * 0.25},
      // Width 4 + 2t at 0 <= t <= 1 from the bottom: a rectangle 4 by 1 and two triangles.
      {trapezoid,
       {.width = 6, .depth = 1, .bottomWidth = 4},
       5,
       1.0 / 6,
       cube * 64 + 2 * (1.0 / 36 + 0.5 * 49.0 / 9),
       cube * 4 + 2 * (1.0 / 36 + 0.5 / 36)},
  };
}

TEST(CSecGeom, ShapesHaveTheirClosedFormMoments) {
  for (const Case& c : Cases()) {
    SCOPED_TRACE(ShapeName(c.kind));
    const CSecGeom geometry(c.kind, c.dimensions);
    const AreaMoments m = Moments(geometry);
    const double rounding = 1e-14 * c.area * 64;
    EXPECT_NEAR(m.area, c.area, rounding);
    EXPECT_NEAR(m.sz, c.sz, rounding);
    // The next term of the series is a^6: a hundredth of the first at most.
    EXPECT_NEAR(m.syy, c.syy * (1 + c.curveError), rounding + 0.01 * c.curveError * c.syy);
    EXPECT_NEAR(m.szz, c.szz * (1 + c.curveError), rounding + 0.01 * c.curveError * c.szz);
    EXPECT_TRUE(geometry.hasValidPolygons()) << geometry.PolygonProblem();
    EXPECT_EQ(ShapeWithName(ShapeName(c.kind)), c.kind);
  }
}

TEST(CSecGeom, RotatesThenShifts) {
  const CSecGeom straight(ShapeKind::ell,
                          {.width = 6, .depth = 8, .flangeThickness = 1, .webThickness = 2});
  const CSecGeom turned(ShapeKind::ell, straight.Dimensions(), {10, -4}, kPi / 2);
  const AreaMoments a = Moments(straight);
  const AreaMoments b = Numeric::Shifted(Moments(turned), {-10, 4});
  // A quarter turn from y towards z: y' = -z, z' = y. Rounding of moments about a point 11 m away.
  EXPECT_NEAR(b.sy, -a.sz, 1e-11);
  EXPECT_NEAR(b.sz, a.sy, 1e-11);
  EXPECT_NEAR(b.syy, a.szz, 1e-11);
  EXPECT_NEAR(b.syz, -a.syz, 1e-11);
}

TEST(CSecGeom, ToleranceBoundsTheDistanceToTheCurve) {
  const double radius = 0.3;
  const CSecGeom circle(ShapeKind::circle, {.diameter = 2 * radius});
  for (const double tolerance : {1e-2, 1e-3, 1e-5}) {
    const auto ring = circle.Polygons(tolerance).at(0).outline;
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const auto middle = 0.5 * (ring[i] + ring[(i + 1) % ring.size()]);
      EXPECT_LE(std::abs(Length(ring[i]) - radius), tolerance);
      EXPECT_LE(std::abs(Length(middle) - radius), tolerance);
    }
    EXPECT_NEAR(Moments(circle, tolerance).area, kPi * radius * radius, 1e-14);
    // An ellipse needs the sides of the circle around it.
    EXPECT_EQ(CSecGeom(ShapeKind::ellipse, {.width = 0.6, .depth = 0.03})
                  .Polygons(tolerance)[0]
                  .outline.size(),
              ring.size());
  }
  EXPECT_EQ(circle.Polygons(1e-300)[0].outline.size(), 8192u);  // bounded all the same
}

TEST(CSecGeom, NamesTheDimensionThatMakesNoShape) {
  using enum ShapeKind;
  const struct {
    ShapeKind kind;
    ShapeDimensions dimensions;
    const char* want;
  } kCases[] = {
      {none, {}, "there is no shape"},
      {rectangle, {.width = 0.3}, "depth (0 m) must be a positive number"},
      {circle, {.diameter = NAN}, "diameter (nan m) must be a positive number"},
      {ring,
       {.diameter = 1, .thickness = 0.5},
       "thickness (0.5 m) leaves no room within diameter (1 m)"},
      {ell,
       {.width = 1, .depth = 1, .flangeThickness = 1, .webThickness = 0.2},
       "flangeThickness (1 m) leaves no room within depth (1 m)"},
      {iBeam,
       {.width = 1, .depth = 1, .flangeThickness = 0.1, .webThickness = 0.5, .bottomWidth = 0.4},
       "webThickness (0.5 m) is larger than bottomWidth (0.4 m)"},
      {box,
       {.width = 1, .depth = 1, .flangeThickness = 0.5, .webThickness = 0.1},
       "flangeThickness (0.5 m) leaves no room within depth (1 m)"},
      {trapezoid,
       {.width = 1, .depth = 1, .bottomWidth = -1},
       "bottomWidth (-1 m) must be a positive number"},
  };
  for (const auto& c : kCases) {
    const CSecGeom geometry(c.kind, c.dimensions);
    EXPECT_EQ(geometry.PolygonProblem(), c.want);
    EXPECT_TRUE(geometry.Polygons(0.0).empty());
    EXPECT_FALSE(geometry.hasValidPolygons());
  }
}

TEST(CSecGeom, FreeOutlinesAreCheckedAndKept) {
  const std::vector<Vec2<double>> square = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  const std::vector<Vec2<double>> right = {{1, 0}, {2, 0}, {2, 1}, {1, 1}};
  const std::vector<Vec2<double>> half = {{0.5, 0.25}, {2, 0.25}, {2, 0.75}, {0.5, 0.75}};
  const std::vector<Vec2<double>> bowTie = {{0, 0}, {2, 2}, {2, 0}, {0, 2}};
  const struct {
    std::vector<SectionPolygon> polygons;
    std::string want;  // beginning of the text
  } kCases[] = {
      {{}, "there is no polygon"},
      {{{square, {}}, {right, {}}}, ""},
      {{{bowTie, {}}}, "the outline crosses, touches or runs back on itself at y = 1 m, z = 1 m"},
      {{{square, {}}, {bowTie, {}}}, "polygon 2: the outline crosses"},
      {{{square, {half}}}, "a hole does not lie inside the outline at y = 1 m"},
      {{{square, {}}, {half, {}}}, "polygons 1 and 2 overlap at y = 0.75 m, z = 0.5 m"},
  };
  for (const auto& c : kCases) {
    const CSecGeom geometry(c.polygons);
    EXPECT_EQ(geometry.Polygons(0.0), c.polygons);
    const std::string problem = geometry.PolygonProblem();
    EXPECT_EQ(problem.substr(0, c.want.empty() ? problem.size() : c.want.size()), c.want);
  }
}

}  // namespace
}  // namespace Orlix::Data
