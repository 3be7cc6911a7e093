#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>
#include <utility>

#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/StringFrom.h"

namespace Orlix {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(StringFrom, WritesSixSignificantDigits) {
  const std::pair<double, const char*> kCases[] = {
      {-0.0, "0"},          {-2.5, "-2.5"},       {-1e-4 / 3, "-3.33333e-05"},
      {123456.7, "123457"}, {999999.5, "1e+06"},  {-1.23456789e-300, "-1.23457e-300"},
      {100000, "100000"},   {-kInfinity, "-inf"}, {-kNan, "nan"},
  };
  for (const auto& [value, text] : kCases) EXPECT_EQ(StringFrom(value), text);
}

TEST(ParseDouble, ReadsNumbersThatFillTheText) {
  const std::string zeros(400, '0');
  const std::pair<std::string, double> kCases[] = {
      {" \t1.5", 1.5},
      {"+1.5", 1.5},
      {"-1.5e2", -150},
      {".5", 0.5},
      {"5.", 5},
      {"1e-320", 1e-320},  // subnormal
      {"-1e-999", -0.0},
      {"0e999999999999999999999", 0},
      {"1e-99999999999999999999", 0},
      {"0." + zeros + "1e401", 1},
      {"1" + zeros + "e-400", 1},
      {"1.7976931348623157e308", std::numeric_limits<double>::max()},
      {"-Infinity", -kInfinity},
  };
  for (const auto& [text, want] : kCases) {
    const std::optional<double> got = ParseDouble(text);
    ASSERT_TRUE(got) << text;
    EXPECT_EQ(*got, want) << text;
    EXPECT_EQ(std::signbit(*got), std::signbit(want)) << text;
  }
  EXPECT_TRUE(std::isnan(ParseDouble("-nan").value()));
}

TEST(ParseDouble, RefusesEverythingElse) {
  std::istringstream texts(
      "| |\n1|\r1|1 |1,5|1e|1e+|e5|.|-|--1|+-1|-+1|- 1|0x10|0x1p3|1f|1_0|1e5.|nan(1)|nan()|infinit|"
      "in|1e999|-1e309|1.8e308|1e99999999999999999999|\u00A01");
  for (std::string text; std::getline(texts, text, '|');) EXPECT_FALSE(ParseDouble(text)) << text;
  EXPECT_FALSE(ParseDouble(std::string("1\0", 2)));
  EXPECT_FALSE(ParseDouble("1" + std::string(400, '0') + "e-50"));
}

}  // namespace
}  // namespace Orlix
