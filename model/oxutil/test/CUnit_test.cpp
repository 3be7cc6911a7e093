#include "model/oxutil/CUnit.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Orlix::Data {
namespace {

using enum Dimension;

// SI value of one display unit. Factors: NIST SP 811 (2008), appendix B.8, to the digits printed
// there, so the comparison is to 1e-6.
TEST(CUnit, ConvertsToTheChosenUnit) {
  const struct {
    Dimension dimension;
    const wchar_t* text;
    double si;
  } kCases[] = {
      {force, L"N", 1},          {force, L"kN", 1e3},
      {force, L"MN", 1e6},       {force, L"kgf", 9.80665},
      {force, L"tf", 9806.65},   {force, L"lbf", 4.448222},
      {force, L"kip", 4448.222}, {length, L"m", 1},
      {length, L"cm", 0.01},     {length, L"mm", 0.001},
      {length, L"ft", 0.3048},   {length, L"in", 0.0254},
      {stress, L"Pa", 1},        {stress, L"kPa", 1e3},
      {stress, L"MPa", 1e6},     {stress, L"N/mm²", 1e6},
      {stress, L"kN/m²", 1e3},   {stress, L"psi", 6894.757},
      {stress, L"ksi", 6894757}, {sectionDimensions, L"in", 0.0254},
      {strain, L"ε", 1},         {strain, L"‰", 1e-3},
      {strain, L"mε", 1e-3},     {strain, L"με", 1e-6},
      {strain, L"%", 1e-2},      {mass, L"kg", 1},
      {mass, L"t", 1e3},         {mass, L"lb", 0.4535924},
      {temperature, L"°C", 1},   {temperature, L"°F", 0.5555556},
      {temperature, L"K", 1},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    CUnit units;
    ASSERT_TRUE(units.SetUnitString(c.dimension, c.text));
    EXPECT_EQ(units.UnitString(c.dimension), c.text);
    EXPECT_NEAR(units.Conversion(c.dimension) * c.si, 1, 1e-6);
  }
}

TEST(CUnit, RefusesTextsOfNoUnitOfTheDimension) {
  CUnit units;
  for (const wchar_t* text : {L"m", L"", L"KN"}) EXPECT_FALSE(units.SetUnitString(force, text));
  EXPECT_FALSE(units.SetUnitString(moment, L"kNm"));
  EXPECT_FALSE(units.SetUnitString(static_cast<Dimension>(99), L"m"));
  EXPECT_EQ(units, CUnit());
  EXPECT_THROW(units.Conversion(static_cast<Dimension>(99)), std::invalid_argument);
}

TEST(CUnit, CompoundUnitsFollowForceLengthAndStrain) {
  CUnit units;
  EXPECT_EQ(units.UnitString(moment), L"kNm");
  EXPECT_EQ(units.UnitString(bendingStiffness), L"kNm²");
  ASSERT_TRUE(units.SetUnitString(force, L"MN"));
  ASSERT_TRUE(units.SetUnitString(length, L"mm"));
  ASSERT_TRUE(units.SetUnitString(strain, L"%"));
  EXPECT_DOUBLE_EQ(units.Conversion(moment), 1e-3);           // 1e-6 MN * 1e3 mm
  EXPECT_DOUBLE_EQ(units.Conversion(bendingStiffness), 1.0);  // 1e-6 MN * 1e6 mm2
  EXPECT_DOUBLE_EQ(units.Conversion(curvature), 0.1);         // 100 % / 1e3 mm
  EXPECT_EQ(units.UnitString(curvature), L"%/mm");
}

}  // namespace
}  // namespace Orlix::Data
