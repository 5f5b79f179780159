#include <gtest/gtest.h>

#include "paths/WideTwins.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

TEST(WideTwins, ReplaceEveryInvalidCharacter) {
  EXPECT_EQ(WithWideTwins("\"*/:<>?\\|\r"), "＂＊／：＜＞？＼｜");
  EXPECT_EQ(WithWideTwins("AC/DC あ?\xFF"), "AC／DC あ？\xFF");
  EXPECT_EQ(WithWideTwins(""), "");
  EXPECT_EQ(WithWideTwins("\r\n"), "\n");
}

TEST(WideTwins, LeaveNothingThatANameMayNotHold) {
  for (int c = 0; c < 256; ++c) {
    const std::string text(1, static_cast<char>(c));
    EXPECT_EQ(InvalidCharacterPosition(WithWideTwins(text)), 0) << c;
    if (InvalidCharacterPosition(text) == 0) {
      EXPECT_EQ(WithWideTwins(text), text) << c;
    }
  }
}

}  // namespace
}  // namespace quillon
