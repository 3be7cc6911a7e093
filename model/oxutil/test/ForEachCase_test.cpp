#include "model/oxutil/ForEachCase.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>

namespace Orlix {
namespace {

TEST(ForEachCase, CallsEveryIndexOnce) {
  std::vector<int> calls(1000);
  ForEachCase(1000, [&](std::ptrdiff_t i) { ++calls[static_cast<std::size_t>(i)]; });
  EXPECT_EQ(calls, std::vector<int>(1000, 1));
  ForEachCase(0, [](std::ptrdiff_t) { FAIL(); });
  ForEachCase(-1, [](std::ptrdiff_t) { FAIL(); });
}

TEST(ForEachCase, ThrowsTheLowestFailureAfterAllCalls) {
  std::atomic<int> calls = 0;
  try {
    ForEachCase(100, [&](std::ptrdiff_t i) {
      ++calls;
      if (i % 30 == 17) throw std::runtime_error(std::to_string(i));
    });
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(), "17");
  }
  EXPECT_EQ(calls, 100);
}

}  // namespace
}  // namespace Orlix
