#include "model/oxutil/ForEachCase.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
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

TEST(ForEachCase, EndsEarlyWhenProgressWantsNoMore) {
  for (const bool throws : {false, true}) {
    std::atomic<int> calls{0};
    const auto caller = std::this_thread::get_id();
    std::ptrdiff_t last = 0;
    const auto progress = [&](std::ptrdiff_t done) {
      EXPECT_EQ(std::this_thread::get_id(), caller);
      EXPECT_GT(done, last);
      last = done;
      if (throws && done > 1000) throw std::runtime_error("progress");
      return done <= 1000;
    };
    const auto loop = [&] {
      return ForEachCase(
          1'000'000, [&](std::ptrdiff_t) { ++calls; }, progress);
    };
    if (throws) {
      EXPECT_THROW(loop(), std::runtime_error);
    } else {
      EXPECT_FALSE(loop());
    }
    EXPECT_GT(last, 1000);
    EXPECT_LT(calls, 1'000'000);
  }
  EXPECT_TRUE(ForEachCase(
      10, [](std::ptrdiff_t) {}, [](std::ptrdiff_t) { return true; }));
}

TEST(MakeInOrder, UsesEveryPieceInOrderUpToTheFirstFailure) {
  const auto made = [](std::ptrdiff_t fails, bool inUse) {
    std::string all;
    MakeInOrder(
        200,
        [&](std::ptrdiff_t i, std::string& piece) {
          EXPECT_TRUE(piece.empty());
          if (i >= fails && !inUse) throw std::out_of_range(std::to_string(i));
          piece = std::to_string(i) + ",";
        },
        [&](std::string_view piece) {
          if (inUse && piece == std::to_string(fails) + ",") throw std::out_of_range("use");
          all += piece;
        });
    return all;
  };
  std::string whole;
  for (int i = 0; i < 200; ++i) whole += std::to_string(i) + ",";
  EXPECT_EQ(made(200, false), whole);
  try {
    made(57, false);
    FAIL() << "nothing thrown";
  } catch (const std::out_of_range& failure) {
    EXPECT_STREQ(failure.what(), "57");
  }
  EXPECT_THROW(made(57, true), std::out_of_range);
  MakeInOrder(
      0, [](std::ptrdiff_t, std::string&) { FAIL(); }, [](std::string_view) { FAIL(); });
}

}  // namespace
}  // namespace Orlix
