#include <gtest/gtest.h>

#include "base/NormalForm.h"

namespace quillon::test {
namespace {

TEST(NormalForm, LettersAndTheirMarksAreComposedOrTakenApart) {
  const std::string composed = "がプ é 한";
  const std::string decomposed = "か\u3099フ\u309A e\u0301 \u1112\u1161\u11AB";
  EXPECT_EQ(Normalized(decomposed, NormalForm::kComposed), composed);
  EXPECT_EQ(Normalized(composed, NormalForm::kDecomposed), decomposed);
  EXPECT_EQ(Normalized(composed, NormalForm::kComposed), composed);
}

TEST(NormalForm, CharactersOfOtherWidthStay) {
  EXPECT_EQ(Normalized("Ａｶﾞ①", NormalForm::kComposed), "Ａｶﾞ①");
}

TEST(NormalForm, BytesThatAreNotUtf8Stay) {
  EXPECT_EQ(Normalized("\xFF"
                       "e\u0301\xC3",
                       NormalForm::kComposed),
            "\xFF"
            "é\xC3");
  EXPECT_EQ(Normalized("", NormalForm::kDecomposed), "");
}

}  // namespace
}  // namespace quillon::test
