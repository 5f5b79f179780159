#include <gtest/gtest.h>

#include <set>

#include "platform/TemporaryName.h"

namespace quillon::test {
namespace {

TEST(TemporaryName, IsHiddenShortAndDifferentEveryTime) {
  std::set<std::string> names;
  for (int i = 0; i < 1000; ++i) {
    const std::string name = TemporaryName();
    EXPECT_EQ(name.front(), '.');
    EXPECT_LE(name.size(), 32U);
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-."), std::string::npos) << name;
    EXPECT_TRUE(names.insert(name).second) << name;
  }
}

}  // namespace
}  // namespace quillon::test
