#include "results/result_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Orlix {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(UtilisationText, NeverRoundsAcrossOne) {
  const struct {
    double utilisation;
    const char* want;
  } kCases[] = {
      {0.0, "0.000"},
      {1.0, "1.000"},
      {1.000002, "1.000002"},
      {0.9996, "0.9996"},
      {1.0 + 1e-11, "1.00000000001"},
      {std::nextafter(1.0, 2.0), "1.000"},
      {123456.7, "123456.700"},
      {2.5e300, "2.5e+300"},
      {kInf, "no capacity"},
      {std::nan(""), "-"},
  };
  for (const auto& c : kCases) EXPECT_EQ(UtilisationText(c.utilisation), c.want);
}

}  // namespace
}  // namespace Orlix
