#include "model/oxutil/Format.h"

#include <gtest/gtest.h>

#include <limits>

namespace Orlix {
namespace {

// The digits [format.string.std] asks for: those of to_chars without a format.
TEST(Format, PrintsTheFewestDigitsInTheShorterForm) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const struct {
    double value;
    const char* want;
  } kCases[] = {{0, "0"},
                {-0.0, "-0"},
                {-2.5, "-2.5"},
                {0.1, "0.1"},
                {0.30000000000000004, "0.30000000000000004"},
                {10000, "10000"},
                {100000, "1e+05"},
                {123456, "123456"},
                {1e15, "1e+15"},
                {1e22, "1e+22"},
                {0.001, "0.001"},
                {0.0001, "1e-04"},
                {0.00012, "0.00012"},
                {5e-324, "5e-324"},
                {-2.2250738585072014e-308, "-2.2250738585072014e-308"},
                {kInfinity, "inf"},
                {-kInfinity, "-inf"},
                {std::numeric_limits<double>::quiet_NaN(), "nan"}};
  for (const auto& c : kCases) EXPECT_EQ(Format("{}", c.value), c.want);
}

TEST(Format, FillsPlacesInOrderAndTakesBracesOfValuesAsTheyAre) {
  EXPECT_EQ(Format("none"), "none");
  EXPECT_EQ(Format("({}): {} of {}", -3, std::string("{}"), std::size_t{18446744073709551615U}),
            "(-3): {} of 18446744073709551615");
}

}  // namespace
}  // namespace Orlix
