#include "model/oxdata/reinforcement/CBarInput.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "model/oxutil/text.h"

namespace Orlix::Data {
namespace {

Design::CMatRebar Grade(const wchar_t* name) {
  Design::CMatRebar rebar;
  rebar.SetName(name);
  return rebar;
}

// Grades 0 to 3.
Util::CRebarHelper Grades() {
  auto materials = std::make_shared<Materials>();
  for (const wchar_t* name : {L"Grade 60", L"B500A", L"B500B", L"Y1860S7"}) {
    materials->Add(Grade(name));
  }
  return Util::CRebarHelper(materials);
}

CBarInput Read(const std::string& text, double metresPerUnit = 0.001) {
  return {cstr(text), Grades(), Util::CBarHelper(), metresPerUnit};
}

// The canonical text says everything that was understood, so it stands for the layers and places.
TEST(CBarInput, ReadsWhatIsDescribed) {
  const struct {
    const char* text;
    const char* canonical;
  } kCases[] = {
      {"4B20 bottom cover 40", "4B20 bottom cover 40mm"},
      {"B16@150", "B16@150mm"},
      {"b16", nullptr},
      {"  2B25 + 2B20  TOP  Cover 4cm ", "2B25+2B20 top cover 40mm"},
      {"4B25/2B20 bottom cover 40 gap 30", "4B25/2B20 bottom cover 40mm gap 30mm"},
      {"4(2B25) left cover 1.5in", "4(2B25) left cover 38.1mm"},
      {"6x(3H32)@", nullptr},
      {"4#8 edge 3 cover 2 [in]", "4#8 edge 3 cover 50.8mm"},
      {"4-25M perimeter cover 40 mm", "4-25M cover 40mm"},
      {"25M@12in hole 2 cover 0", "25M@304.8mm hole 2 cover 0mm"},
      {"4N24 polygon 2 cover 40", "4N24 polygon 2 cover 40mm"},
      {"12S15.7 line (-0.2, -390mm)(200mm,-390) [mm]",
       "12S15.7 line (-0.2mm, -390mm) (200mm, -390mm)"},
      {"8\u00D825 circle 225 at (10,-20) from 22.5\u00B0",
       "8\u00D825 circle 225mm at (10mm, -20mm) from 22.5\u00B0"},
      {"5A12 arc .3m from -90 to 90deg", "5A12 arc 300mm from -90\u00B0 to 90\u00B0"},
      {"3C12 arc cover 30 from 0 to 1.5707963267948966rad",
       "3C12 arc cover 30mm from 0\u00B0 to 90\u00B0"},
      {"B20 at (0,0) (1m,0)", "2B20 at (0mm, 0mm) (1000mm, 0mm)"},
      {"1B25+1B20 at (0,0) (100,0)", "1B25+1B20 at (0mm, 0mm) (100mm, 0mm)"},
      {"2T20 grade \"Grade 60\" cover 40", "2T20 cover 40mm grade \"Grade 60\""},
      {"2B20 grade B500A prestress 120kN", "2B20 grade \"B500A\" prestress 120kN"},
      {"2S12.9 prestress 1080 N/mm2", "2S12.9 prestress 1080MPa"},
      {"2S12.9 prestress -0.5\u2030", "2S12.9 prestress -0.5\u2030"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    const CBarInput input = Read(c.text);
    if (c.canonical == nullptr) {
      EXPECT_FALSE(input.IsDescriptionValid());
      EXPECT_TRUE(input.GenerateLayers().empty());
      continue;
    }
    EXPECT_EQ(to_string(input.Error()), "");
    EXPECT_EQ(to_string(input.DescriptionFromInfo()), c.canonical);
    EXPECT_EQ(Read(c.canonical, 1.0).DescriptionFromInfo(), input.DescriptionFromInfo());
  }
}

TEST(CBarInput, SaysWhereItWentWrongAndWhatWasExpected) {
  const struct {
    const char* text;
    const char* error;  // the end of long lists is left out
  } kCases[] = {
      {"", "column 1: expected the size of a bar"},
      {"4", "column 2: expected the size of a bar, such as B20, #8, 25M, N24 or S15.7, found the"},
      {"4B21 top",
       "column 3: expected a metric size (6, 8, 10, 12, 14, 16, 20, 25, 28, 32, 36, 40, "
       "50), found \"21\""},
      {"4#12", "column 3: expected a US size (3, 4, 5, 6, 7, 8, 9, 10, 11, 14, 18), found \"12\""},
      {"4-26M",
       "column 3: expected a Canadian size (10, 15, 20, 25, 30, 35, 45, 55), found \"26\""},
      {"4-25m", "column 5: expected \"M\" after a Canadian size, found \"m\""},
      {"0B20", "column 1: expected a number of bars from 1 to 10000, found \"0\""},
      {"B20 top", "column 1: expected a number of bars before each size, or @ and a spacing"},
      {"4B20@150", "column 5: expected either a number of bars or a spacing, not both"},
      {"B20@0", "column 5: expected a positive length, found \"0\""},
      {"2B20+B16@150", "column 6: expected a number of bars: bars by spacing are alone"},
      {"4(5B20)", "column 3: expected the number of bars in a bundle, 1 to 4, found \"5\""},
      {"4(2B20 top", "column 8: expected \")\" after the bars of a bundle, found \"top\""},
      {"4B20 botom cover 40", "column 6: expected a place (perimeter, top"},
      {"4B20 top cover 40 bottom", "column 19: expected each of place and options once"},
      {"4B20 cover 40 cover 50", "column 15: expected each of place and options once"},
      {"4B20 top cover 40 furlong", "column 19: expected cover, gap, from, to, grade, prestress"},
      {"4B20 top cover -40", "column 16: expected a length that is not negative, found \"-\""},
      {"4B20 line (0,0)", "column 16: expected a point such as (0, -200), found the end"},
      {"4B20 line (0;0) (1,1)", "column 13: expected \",\" between y and z, found \";\""},
      {"4B20/2B16 line (0,0) (1,1)", "column 1: expected one layer for bars on a line"},
      {"4B20 arc 200 from 0", "column 20: expected \"from\" and \"to\" with the angles of an arc"},
      {"4B20 circle 200 to 90", "column 22: expected \"to\" for an arc alone"},
      {"3B20 at (0,0) (1,1)", "column 1: expected as many bars as points (2)"},
      {"4B20 cover 40 grade B600", "column 21: expected a reinforcement grade of the document"},
      {"4B20 grade \"B500B", "column 12: expected the name of a grade"},
      {"4B20 prestress 1080", "column 20: expected a unit of stress, force or strain"},
      {"4B20 cover 40 [furlong]", "column 16: expected a unit of length (m, cm, mm, ft or in)"},
      {"4B20 cover 40 [mm] top", "column 20: expected a place"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    const CBarInput input = Read(c.text);
    EXPECT_FALSE(input.IsDescriptionValid());
    EXPECT_EQ(to_string(input.Error()).substr(0, std::string(c.error).size()), c.error);
  }
}

TEST(CBarInput, GradeIsThatOfTheTextThenTheGivenOneThenThatOfTheLetter) {
  const struct {
    const char* text;
    int given;
    bool update;
    int want;
  } kCases[] = {
      {"2B20 grade \"Grade 60\"", 1, false, 0},
      {"2B20 grade \"Grade 60\"", 1, true, 0},
      {"2B20", 1, false, 1},
      {"2B20", 1, true, 2},
      {"2B20", -1, false, 2},
      {"2A20", -1, false, 1},
      {"2C20", -1, false, -1},
      {"2#8", -1, true, -1},
      {"2S15.7", -1, false, 3},
      {"2C20", 1, true, 1},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    CBarInput input = Read(c.text);
    input.SetUpdateGrade(c.update);
    EXPECT_EQ(input.Grade(c.given), c.want);
  }
}

TEST(CBarInput, AUnitIsAppendedWhereALengthNeedsOne) {
  const struct {
    const char* text;
    const char* want;
  } kCases[] = {
      {"B16@150", "B16@150 [in]"},
      {"B16@150mm cover 2", "B16@150mm cover 2 [in]"},
      {"B16@150mm cover 2 cm", "B16@150mm cover 2 cm"},
      {"B16@150 [mm]", "B16@150 [mm]"},
      {"2B16 at (0,0) (0,0)", "2B16 at (0,0) (0,0)"},
      {"B16@150 botom", "B16@150 botom"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(to_string(DescriptionWithUnit(to_wstring(std::string(c.text)), L"in", Grades(),
                                            Util::CBarHelper())),
              c.want);
  }
}

TEST(CBarHelper, FindsTheNearestSizeWithItsNominalArea) {
  const Util::CBarHelper sizes;
  EXPECT_EQ(Util::CBarHelper::Name(sizes.Nearest(0.0257, Util::BarSystem::us)), L"#8");
  EXPECT_EQ(sizes.Nearest(0.0257, Util::BarSystem::us).area, 510e-6);
  EXPECT_EQ(sizes.Nearest(0.0299).number, 28.0);
  EXPECT_EQ(sizes.Nearest(0.030).number, 28.0);  // as near to 32: the smaller
  EXPECT_EQ(sizes.Nearest(-1.0, Util::BarSystem::canadian).number, 10.0);
  EXPECT_EQ(sizes.Nearest(1.0, Util::BarSystem::australian).number, 40.0);
}

}  // namespace
}  // namespace Orlix::Data
