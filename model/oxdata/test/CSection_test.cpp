#include "model/oxdata/section/CSection.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Orlix::Data {
namespace {

TEST(CSection, RebarPercentageIsBarsOverConcreteOutlines) {
  CSection section;
  EXPECT_EQ(section.RebarPercentage(), 0.0);

  const CSecGeom box(ShapeKind::box,
                     {.width = 1.0, .depth = 1.0, .flangeThickness = 0.25, .webThickness = 0.25});
  CSecComp concrete(MatType::concrete, 0, box);  // 0.75 m²
  concrete.Concrete().SetReinforcement(
      {{CBar({0.1, 0.1}, 0.0, 0.003, 0), CBar({-0.4, 0.1}, 0.0, 0.0045, 0)}});
  section.Components() = {
      concrete, CSecComp(MatType::steel, 0, CSecGeom(ShapeKind::circle, {.diameter = 0.2}))};
  EXPECT_NEAR(section.RebarPercentage(), 1.0, 1e-13);

  section.Components()[0].SetMaterial(MatType::FRP, 0);
  EXPECT_EQ(section.RebarPercentage(), 0.0);
  EXPECT_THROW(section.Components()[0].Concrete(), std::logic_error);
}

}  // namespace
}  // namespace Orlix::Data
