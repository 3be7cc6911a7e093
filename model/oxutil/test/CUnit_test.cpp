#include "model/oxutil/CUnit.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Orlix::Data {
namespace {

// Display value of one SI unit. Factors: NIST SP 811 (2008), appendix B.8, to the digits printed
// there, so the comparison is to 1e-6.
TEST(CUnit, ConvertsToTheChosenUnit) {
  const std::map<Dimension, std::vector<std::pair<const wchar_t*, double>>> kInSi = {
      {Dimension::force,
       {{L"N", 1},
        {L"kN", 1e3},
        {L"MN", 1e6},
        {L"kgf", 9.80665},
        {L"tf", 9806.65},
        {L"lbf", 4.448222},
        {L"kip", 4448.222}}},
      {Dimension::length,
       {{L"m", 1}, {L"cm", 0.01}, {L"mm", 0.001}, {L"ft", 0.3048}, {L"in", 0.0254}}},
      {Dimension::sectionDimensions, {{L"m", 1}, {L"mm", 0.001}, {L"in", 0.0254}}},
      {Dimension::stress,
       {{L"Pa", 1},
        {L"kPa", 1e3},
        {L"MPa", 1e6},
        {L"N/mm²", 1e6},
        {L"kN/m²", 1e3},
        {L"psi", 6894.757},
        {L"ksi", 6894757}}},
      {Dimension::strain, {{L"ε", 1}, {L"‰", 1e-3}, {L"mε", 1e-3}, {L"με", 1e-6}, {L"%", 1e-2}}},
      {Dimension::mass, {{L"kg", 1}, {L"t", 1e3}, {L"lb", 0.4535924}}},
      {Dimension::temperature, {{L"°C", 1}, {L"°F", 0.5555556}, {L"K", 1}}},
  };
  for (const auto& [dimension, cases] : kInSi) {
    for (const auto& [text, si] : cases) {
      SCOPED_TRACE(text);
      CUnit units;
      ASSERT_TRUE(units.SetUnitString(dimension, text));
      EXPECT_EQ(units.UnitString(dimension), text);
      EXPECT_NEAR(units.Conversion(dimension) * si, 1, 1e-6);
    }
  }
}

TEST(CUnit, NewSetHasTheDefaults) {
  const std::pair<Dimension, const wchar_t*> kDefaults[] = {
      {Dimension::force, L"kN"},
      {Dimension::length, L"m"},
      {Dimension::sectionDimensions, L"mm"},
      {Dimension::stress, L"MPa"},
      {Dimension::strain, L"\u2030"},
      {Dimension::mass, L"kg"},
      {Dimension::temperature, L"\u00B0C"},
      {Dimension::moment, L"kNm"},
      {Dimension::bendingStiffness, L"kNm\u00B2"},
      {Dimension::curvature, L"\u2030/m"},
  };
  for (const auto& [dimension, text] : kDefaults) EXPECT_EQ(CUnit().UnitString(dimension), text);
}

TEST(CUnit, RefusesTextsOfNoUnitOfTheDimension) {
  const std::pair<Dimension, const wchar_t*> kBad[] = {
      {Dimension::force, L"m"},           {Dimension::force, L""},
      {Dimension::force, L"KN"},          {Dimension::stress, L"no label found"},
      {Dimension::moment, L"kNm"},        {Dimension::curvature, L"N"},
      {static_cast<Dimension>(99), L"m"},
  };
  CUnit units;
  for (const auto& [dimension, text] : kBad) {
    EXPECT_FALSE(units.SetUnitString(dimension, text)) << text;
    EXPECT_EQ(units, CUnit());
  }
  EXPECT_THROW(units.UnitString(static_cast<Dimension>(99)), std::invalid_argument);
  EXPECT_THROW(units.Conversion(static_cast<Dimension>(99)), std::invalid_argument);
}

TEST(CUnit, CompoundUnitsFollowForceLengthAndStrain) {
  CUnit units;
  ASSERT_TRUE(units.SetUnitString(Dimension::force, L"MN"));
  ASSERT_TRUE(units.SetUnitString(Dimension::length, L"mm"));
  ASSERT_TRUE(units.SetUnitString(Dimension::strain, L"%"));
  EXPECT_DOUBLE_EQ(units.Conversion(Dimension::moment), 1e-3);           // 1e-6 MN * 1e3 mm
  EXPECT_DOUBLE_EQ(units.Conversion(Dimension::bendingStiffness), 1.0);  // 1e-6 MN * 1e6 mm2
  EXPECT_DOUBLE_EQ(units.Conversion(Dimension::curvature), 0.1);         // 100 % / 1e3 mm
  EXPECT_EQ(units.UnitString(Dimension::curvature), L"%/mm");
  EXPECT_FALSE(units == CUnit());
}

}  // namespace
}  // namespace Orlix::Data
