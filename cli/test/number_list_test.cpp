#include "cli/number_list.h"

#include <gtest/gtest.h>

#include <string>

#include "cli/commands.h"

namespace Orlix::Cli {
namespace {

TEST(IndicesFrom, ReadsNumbersAndRanges) {
  EXPECT_EQ(IndicesFrom("1-3,7", 7, "case"), (std::vector<int>{0, 1, 2, 6}));
  EXPECT_EQ(IndicesFrom("5,2-3,2,5-5", 5, "case"), (std::vector<int>{4, 1, 2}));
}

TEST(IndicesFrom, RefusesWhatIsNoListWithinTheCount) {
  for (const std::string text :
       {"", ",", "1,", "a", "1-", "-1", "-", "1--2", "0", "6", "4-2", "1-6", " 1", "1.0", "+1",
        "99999999999999999999", "1-99999999999999999999", "1;2"}) {
    EXPECT_THROW(IndicesFrom(text, 5, "case"), CommandError) << '"' << text << '"';
  }
  EXPECT_THROW(IndicesFrom("1", 0, "case"), CommandError);
}

}  // namespace
}  // namespace Orlix::Cli
