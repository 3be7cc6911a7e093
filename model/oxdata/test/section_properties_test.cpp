#include "model/oxdata/section/section_properties.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Orlix::Data {
namespace {

CSecComp Rectangle(MatType type, double width, double depth, Vec2<double> centre) {
  return {type, 0, CSecGeom(ShapeKind::rectangle, {.width = width, .depth = depth}, centre)};
}

// Sums of a dozen terms of the size of the results: each is good to a few of their last places.
constexpr double kTolerance = 1e-14;

TEST(SectionProperties, OverlapCountsOnceAndBarsDisplaceTheConcreteTheyLieIn) {
  // A block 0.4 x 0.6 m with its lower left corner in the origin; a steel plate 0.2 x 0.2 m over
  // its upper right corner, a quarter of it inside.
  CSection section;
  CSecComp block = Rectangle(MatType::concrete, 0.4, 0.6, {0.2, 0.3});
  block.Concrete().SetReinforcement(
      {{CBar({0.1, 0.1}, 0.0, 0.002, 0), CBar({0.35, 0.55}, 0.0, 0.001, 0),  // in the steel
        CBar({-0.1, 0.1}, 0.0, 0.001, 0)}});                                 // outside
  section.Components() = {block, Rectangle(MatType::steel, 0.2, 0.2, {0.4, 0.6})};
  const SectionProperties p = SectionPropertiesOf(section);

  const double area = 0.24 + 0.03;  // the plate's other three quarters: a square less a quarter
  const double sy = 0.24 * 0.2 + 0.04 * 0.4 - 0.01 * 0.35;
  const double sz = 0.24 * 0.3 + 0.04 * 0.6 - 0.01 * 0.55;
  EXPECT_NEAR(p.gross.area, area, kTolerance);
  EXPECT_NEAR(p.gross.centroid.x, sy / area, kTolerance);
  EXPECT_NEAR(p.gross.centroid.y, sz / area, kTolerance);
  const auto aboutOrigin = [](double b, double h, double z) {
    return b * h * (h * h / 12 + z * z);
  };
  const double szz =
      aboutOrigin(0.4, 0.6, 0.3) + aboutOrigin(0.2, 0.2, 0.6) - aboutOrigin(0.1, 0.1, 0.55);
  EXPECT_NEAR(p.gross.iyy, szz - sz * sz / area, kTolerance);
  const double syz = 0.24 * 0.2 * 0.3 + 0.04 * 0.4 * 0.6 - 0.01 * 0.35 * 0.55;
  EXPECT_NEAR(p.gross.iyz, syz - sy * sz / area, kTolerance);

  EXPECT_NEAR(p.net.area, area - 0.002, kTolerance);
  EXPECT_NEAR(p.net.centroid.x, (sy - 0.002 * 0.1) / (area - 0.002), kTolerance);
  EXPECT_NEAR(p.rebarArea, 0.004, kTolerance);
  EXPECT_NEAR(p.rebarPercentage, 100.0 * 0.004 / 0.23, 1e-12);
}

TEST(SectionProperties, WhatIsNoShapeDoesNotCount) {
  CSection section;
  section.Components() = {Rectangle(MatType::concrete, 1.0, 2.0, {}),
                          Rectangle(MatType::concrete, 1e200, 1.0, {}), CSecComp()};
  const SectionProperties p = SectionPropertiesOf(section);
  EXPECT_NEAR(p.gross.area, 2.0, kTolerance);
  section.Components().erase(section.Components().begin());
  EXPECT_EQ(SectionPropertiesOf(section).gross.area, 0.0);
  EXPECT_TRUE(std::isnan(SectionPropertiesOf(section).net.major));
}

}  // namespace
}  // namespace Orlix::Data
