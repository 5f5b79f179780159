#include <gtest/gtest.h>

#include "controls/DialogPattern.h"

namespace quillon {
namespace {

TEST(DialogPattern, MatchesLettersInEitherCaseOnly) {
  EXPECT_EQ(DialogPattern("*.mid;*.MP3"), "*.[mM][iI][dD];*.[mM][pP]3");
  EXPECT_EQ(DialogPattern("*.曲;*.é_1"), "*.曲;*.[éÉ]_1");
  EXPECT_EQ(DialogPattern(""), "");
}

TEST(DialogPattern, MatchesNamesWithoutADotForAllFiles) {
  EXPECT_EQ(DialogPattern("*.*"), "*");
}

}  // namespace
}  // namespace quillon
