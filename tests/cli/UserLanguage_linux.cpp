#include <gtest/gtest.h>
#include <stdlib.h>

namespace quillon::test {
namespace {

/// The tests compare the program's Japanese texts. Those of the language itself choose their own.
class JapaneseUser final : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(setenv("LC_ALL", "ja_JP.UTF-8", 1), 0); }
};

testing::Environment* const kJapaneseUser = testing::AddGlobalTestEnvironment(new JapaneseUser);

}  // namespace
}  // namespace quillon::test
