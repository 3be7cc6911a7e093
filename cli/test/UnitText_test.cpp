#include "cli/UnitText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "cli/TextTable.h"

namespace Orlix::Cli {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(UnitText, ShowsValuesInTheUnitsOfTheDocument) {
  Data::CUnit units;
  ASSERT_TRUE(units.SetUnitString(Dimension::force, L"N"));
  const UnitText text(units);
  EXPECT_EQ(text.Value(1234.5, Dimension::force), "1234.5");
  EXPECT_EQ(text.Value(2e6, Dimension::stress), "2");
  EXPECT_EQ(text.Value(0.0035, Dimension::strain), "3.5");
  EXPECT_EQ(text.SquaredValue(0.15, Dimension::sectionDimensions), "150000");
  EXPECT_EQ(text.Value(std::nan(""), Dimension::force), "-");
  EXPECT_EQ(text.Value(kInf, Dimension::force), "-");
  EXPECT_EQ(text.SquaredValue(1e304, Dimension::sectionDimensions), "-");  // overflows in mm²
}

TEST(UnitText, RoundingIsShownAsZero) {
  const UnitText text((Data::CUnit()));
  EXPECT_EQ(text.Load(Data::Velmo9::VelmoLoad({-1e6, 2e3, 1e-4}))[2], "0");
  EXPECT_EQ(text.Load(Data::Velmo9::VelmoLoad({-1e6, 2e3, 1e-2}))[2], "1e-05");
  EXPECT_EQ(text.Load(Data::Velmo9::VelmoLoad())[0], "0");
  EXPECT_EQ(text.LoadAtFailure(Data::Velmo9::VelmoLoad())[0], "-");
}

TEST(TextTable, AlignsByCharactersAndKeepsLinesWhole) {
  TextTable table;
  table.AddColumn("name", "", TextTable::Align::left);
  table.AddColumn("strain", "‰");
  table.AddRow({"a\n\x1b[2J", "1.25"});
  table.AddRow({"größer", "-10"});
  std::ostringstream out;
  table.Print(out);
  EXPECT_EQ(out.str(),
            "name    strain\n"
            "             ‰\n"
            "a  [2J    1.25\n"
            "größer     -10\n");
}

}  // namespace
}  // namespace Orlix::Cli
