#include "model/oxutil/uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace Orlix {
namespace {

TEST(NewUuid, HasTheFormOfVersionFourAndNeverRepeats) {
  std::set<std::string> seen;
  for (int i = 0; i < 1000; ++i) {
    const std::string id = NewUuid();
    ASSERT_EQ(id.size(), 36u);
    for (std::size_t k = 0; k < id.size(); ++k) {
      const std::string allowed = k == 8 || k == 13 || k == 18 || k == 23 ? "-"
                                  : k == 14                               ? "4"
                                  : k == 19                               ? "89ab"
                                                                          : "0123456789abcdef";
      ASSERT_NE(allowed.find(id[k]), std::string::npos) << id;
    }
    EXPECT_TRUE(seen.insert(id).second);
  }
}

}  // namespace
}  // namespace Orlix
