#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/PassedOver.h"
#include "support/Recorders.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PassedOverTest : public testing::Test {
 protected:
  test::Recorders recorders_;
  SelectionStatus status_{recorders_.panels};
  PassedOverPaths passedOver_{recorders_.search, status_};
};

TEST_F(PassedOverTest, TellsNothingWhenNothingWasPassedOver) {
  passedOver_.Tell(recorders_.boxes);
  EXPECT_THAT(recorders_.boxes.Shown(), IsEmpty());
}

TEST_F(PassedOverTest, TellsOnceAndNamesTheFirstOnes) {
  for (int i = 1; i <= 7; ++i) passedOver_.PassedOver("/secret/" + std::to_string(i));
  passedOver_.Tell(recorders_.boxes);
  passedOver_.Tell(recorders_.boxes);
  ASSERT_EQ(recorders_.boxes.Shown().size(), 1U);
  const Message& shown = recorders_.boxes.Shown()[0];
  EXPECT_EQ(shown.caption, "フォルダ参照");
  EXPECT_EQ(shown.icon, MessageIcon::kExclamation);
  EXPECT_THAT(shown.text, testing::StartsWith("7 個の"));
  EXPECT_THAT(shown.text, HasSubstr("\r\n/secret/5\r\n..."));
  EXPECT_THAT(shown.text, Not(HasSubstr("/secret/6")));
}

TEST_F(PassedOverTest, ShowsTheSearchInTheStatusBarAndThenWhatStoodThere) {
  status_.SetPlayerText("再生中： a.mp3");
  recorders_.log.Clear();
  passedOver_.Begin("フォルダ内を検索しています...", "検索対象 : /a/");
  passedOver_.End();
  EXPECT_THAT(recorders_.log.StartingWith("panel player"),
              ElementsAre("panel player: フォルダ内を検索しています...", "panel player: 再生中： a.mp3"));
}

}  // namespace
}  // namespace quillon
