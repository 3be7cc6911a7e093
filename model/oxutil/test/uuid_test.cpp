#include "model/oxutil/uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace Orlix {
namespace {

TEST(NewUuid, HasTheFormOfVersionFourAndNeverRepeats) {
  std::set<std::string> seen;
  for (int i = 0; i < 1000; ++i) {
    std::string id = NewUuid();
    EXPECT_TRUE(seen.insert(id).second);
    ASSERT_EQ(id.size(), 36u);
    EXPECT_NE(std::string("89ab").find(id[19]), std::string::npos) << id;
    for (char& c : id) {
      if (std::string("0123456789abcdef").find(c) != std::string::npos && &c != &id[14]) c = 'x';
    }
    EXPECT_EQ(id, "xxxxxxxx-xxxx-4xxx-xxxx-xxxxxxxxxxxx");
  }
}

}  // namespace
}  // namespace Orlix
