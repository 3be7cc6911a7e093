#include "model/oxutil/ForEachCase.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace Orlix {
namespace {

TEST(ForEachCase, CallsEveryIndexOnceAndThrowsTheLowestFailure) {
  std::vector<int> calls(1000);
  try {
    ForEachCase(1000, [&](std::ptrdiff_t i) {
      ++calls[static_cast<std::size_t>(i)];
      if (i % 300 == 17) throw std::runtime_error(std::to_string(i));
    });
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(), "17");
  }
  EXPECT_EQ(calls, std::vector<int>(1000, 1));
  for (const int none : {0, -1}) ForEachCase(none, [](std::ptrdiff_t) { FAIL(); });
}

}  // namespace
}  // namespace Orlix
