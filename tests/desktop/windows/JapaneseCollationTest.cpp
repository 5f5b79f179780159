#include <gtest/gtest.h>

#include "desktop/ExpectOrder.h"
#include "support/Wine.h"

/// Orders in which the two systems differ, with Wine as Windows; the Linux test of this name has the same texts.
namespace quillon {
namespace {

using test::ExpectOrder;

class JapaneseCollationOfWine : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::RunsUnderWine()) GTEST_SKIP() << "is about Wine's own answers";
  }
};

TEST_F(JapaneseCollationOfWine, SortsSoundAndRepetitionMarksBehindTheirFullSpelling) {
  ExpectOrder({{"かあ"}, {"かー", "カー", "ｶｰ"}, {"かい"}});
  ExpectOrder({{"すすき"}, {"すゝき"}});
  ExpectOrder({{"人々", "人人"}});
}

TEST_F(JapaneseCollationOfWine, PutsSeparateVoiceMarksBehindAllForms) {
  ExpectOrder({{"は"}, {"ば"}, {"ぱ"}, {"ﾊﾞ"}, {"ﾊﾟ"}});
}

TEST_F(JapaneseCollationOfWine, PutsOtherAlphabetsBetweenLatinLettersAndKana) {
  ExpectOrder({{"z"}, {"α"}, {"я"}, {"あ"}, {"亜"}});
}

TEST_F(JapaneseCollationOfWine, HasItsOwnOrderOfSymbols) {
  ExpectOrder(
      {{"'"}, {"-"}, {" ", "　"}, {"!"}, {"#"}, {"&"}, {"("}, {"、"}, {"."}, {"_"}, {"★"}, {"1"}, {"😀"}, {"々", "ー"}});
}

}  // namespace
}  // namespace quillon
