#include "model/oxdata/materials/CMat.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "model/oxdata/materials/Materials.h"

namespace Orlix::Data {
namespace {

using Design::CMat;
using Design::CMatRebar;
using Design::CurveKind;
using Design::CurveShape;

CurveShape Shape(CurveKind kind) {
  CurveShape shape;
  shape.kind = kind;
  return shape;
}

TEST(CMat, CurvesFollowTheProperties) {
  CMat concrete(MatType::concrete);
  concrete.SetProperties({45e6, 36e9, 3.8e6, 0.85, 1.5});
  EXPECT_DOUBLE_EQ(concrete.Curve(LoadState::ULS).Stress(0.003), 25.5e6);
  CMatRebar bar;
  bar.SetProperties({460e6, 200e9, 0.0, 1.0, 1.15});
  EXPECT_DOUBLE_EQ(bar.Curve(LoadState::ULS).Stress(-0.01), -400e6);
  EXPECT_DOUBLE_EQ(bar.Curve(LoadState::SLS).Stress(-0.01), -460e6);
}

TEST(CMat, FrpHasACurveOnceItHasProperties) {
  CMat frp(MatType::FRP);
  EXPECT_TRUE(frp.Curve(LoadState::ULS).Segments().empty());
  frp.SetProperties({1000e6, 100e9, 0.0, 0.8, 1.25});
  EXPECT_DOUBLE_EQ(frp.Curve(LoadState::ULS).TensionLimit(), 0.0064);
  EXPECT_EQ(frp.Curve(LoadState::ULS).Stress(0.001), 0.0);
}

TEST(CMat, ServiceModelsStandUnderBothSigns) {
  using enum CurveKind;
  const struct {
    const char* what;
    CurveKind compression, tension;  // before
    LoadSign sign;
    CurveKind set;
    CurveKind wantCompression, wantTension;
  } kCases[] = {
      {"both become", linear, none, LoadSign::tension, interpolated, interpolated, interpolated},
      {"half replaced by explicit", interpolated, interpolated, LoadSign::compression,
       explicitPoints, explicitPoints, interpolated},
      {"tension replaced", interpolated, interpolated, LoadSign::tension, linear, linear, linear},
      {"compression replaced", bs8110Tension, bs8110Tension, LoadSign::compression, linear, linear,
       none},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    CMat concrete(MatType::concrete);
    concrete.SetShape(LoadState::SLS, LoadSign::compression, Shape(c.compression));
    concrete.SetShape(LoadState::SLS, LoadSign::tension, Shape(c.tension));
    concrete.SetShape(LoadState::SLS, c.sign, Shape(c.set));
    EXPECT_EQ(concrete.Model(LoadState::SLS, LoadSign::compression), c.wantCompression);
    EXPECT_EQ(concrete.Model(LoadState::SLS, LoadSign::tension), c.wantTension);
    EXPECT_EQ(concrete.Model(LoadState::ULS, LoadSign::compression), parabolaRectangle);
  }
}

TEST(Materials, TablesAreByTypeAndNamesUnique) {
  Materials materials;
  CMat concrete(MatType::concrete);
  concrete.SetName(L"C30");
  CMat bar(MatType::reinforcement);
  bar.SetName(L"C30");
  EXPECT_EQ(materials.Add(concrete), 0);
  EXPECT_EQ(materials.Add(bar), 0);
  EXPECT_THROW(materials.Add(concrete), std::invalid_argument);
  EXPECT_THROW(materials.Add(CMat(MatType::none)), std::invalid_argument);
  concrete.SetName(L"C40");
  EXPECT_EQ(materials.Add(concrete), 1);
  EXPECT_EQ(materials.Find(MatType::concrete, L"C40"), 1);
  EXPECT_EQ(materials.Find(MatType::steel, L"C40"), -1);
  EXPECT_EQ(materials.Reinforcement(0), bar);
  for (const int grade : {-1, 2}) {
    EXPECT_FALSE(materials.IsValidGrade(MatType::concrete, grade));
    EXPECT_THROW(materials.Grade(MatType::concrete, grade), std::out_of_range);
  }
  EXPECT_THROW(materials.Grade(MatType::none, 0), std::out_of_range);
}

}  // namespace
}  // namespace Orlix::Data
