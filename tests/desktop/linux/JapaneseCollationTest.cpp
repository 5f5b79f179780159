#include <gtest/gtest.h>

#include "desktop/ExpectOrder.h"

/// Orders in which the two systems differ; the Windows test of this name has the same texts.
namespace quillon {
namespace {

using test::ExpectOrder;

TEST(JapaneseCollationOfIcu, SortsSoundAndRepetitionMarksBeforeTheirFullSpelling) {
  ExpectOrder({{"ｶｰ"}, {"かー", "カー"}, {"かあ"}, {"かい"}});
  ExpectOrder({{"すゝき"}, {"すすき"}});
  ExpectOrder({{"人々"}, {"人人"}});
}

TEST(JapaneseCollationOfIcu, PutsSeparateVoiceMarksBehindTheirLetter) {
  ExpectOrder({{"は"}, {"ば"}, {"ﾊﾞ"}, {"ぱ"}, {"ﾊﾟ"}});
}

TEST(JapaneseCollationOfIcu, PutsOtherAlphabetsBehindKanji) {
  ExpectOrder({{"z"}, {"あ"}, {"亜"}, {"α"}, {"я"}});
}

TEST(JapaneseCollationOfIcu, HasItsOwnOrderOfSymbols) {
  ExpectOrder(
      {{" ", "　"}, {"_"}, {"-"}, {"、"}, {"!"}, {"."}, {"'"}, {"("}, {"&"}, {"#"}, {"★"}, {"😀"}, {"々"}, {"1"}});
}

}  // namespace
}  // namespace quillon
