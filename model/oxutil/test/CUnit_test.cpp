#include "model/oxutil/CUnit.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace Orlix::Data {
namespace {

// Display value of one SI unit. Factors: NIST SP 811 (2008), appendix B.8, to the digits printed
// there, so the comparison is to 1e-6.
TEST(CUnit, ConvertsToTheChosenUnit) {
  const struct {
    Dimension dimension;
    const wchar_t* text;
    double si;  // one of the unit in SI units
  } kCases[] = {
      {Dimension::force, L"N", 1},
      {Dimension::force, L"kN", 1e3},
      {Dimension::force, L"MN", 1e6},
      {Dimension::force, L"kgf", 9.80665},
      {Dimension::force, L"tf", 9806.65},
      {Dimension::force, L"lbf", 4.448222},
      {Dimension::force, L"kip", 4448.222},
      {Dimension::length, L"m", 1},
      {Dimension::length, L"cm", 0.01},
      {Dimension::length, L"mm", 0.001},
      {Dimension::length, L"ft", 0.3048},
      {Dimension::length, L"in", 0.0254},
      {Dimension::sectionDimensions, L"in", 0.0254},
      {Dimension::stress, L"Pa", 1},
      {Dimension::stress, L"kPa", 1e3},
      {Dimension::stress, L"MPa", 1e6},
      {Dimension::stress, L"N/mm\u00B2", 1e6},
      {Dimension::stress, L"kN/m\u00B2", 1e3},
      {Dimension::stress, L"psi", 6894.757},
      {Dimension::stress, L"ksi", 6894757},
      {Dimension::strain, L"\u03B5", 1},
      {Dimension::strain, L"\u2030", 1e-3},
      {Dimension::strain, L"m\u03B5", 1e-3},
      {Dimension::strain, L"\u03BC\u03B5", 1e-6},
      {Dimension::strain, L"%", 1e-2},
      {Dimension::mass, L"kg", 1},
      {Dimension::mass, L"t", 1e3},
      {Dimension::mass, L"lb", 0.4535924},
      {Dimension::temperature, L"\u00B0C", 1},
      {Dimension::temperature, L"\u00B0F", 0.5555556},
      {Dimension::temperature, L"K", 1},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(c.dimension) << " " << c.text);
    CUnit units;
    ASSERT_TRUE(units.SetUnitString(c.dimension, c.text));
    EXPECT_EQ(units.UnitString(c.dimension), c.text);
    EXPECT_NEAR(units.Conversion(c.dimension) * c.si, 1, 1e-6);
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
