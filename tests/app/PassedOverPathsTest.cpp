#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "app/PassedOverPaths.h"
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
  PassedOverPaths passedOver_;
};

TEST_F(PassedOverTest, ShowsNothingWhenNothingWasSkipped) {
  passedOver_.Tell(recorders_.boxes);
  EXPECT_THAT(recorders_.boxes.Shown(), IsEmpty());
}

TEST_F(PassedOverTest, ReportsOnceAndNamesTheFirstOnes) {
  for (int i = 1; i <= 7; ++i) passedOver_.Add({{"/secret/" + std::to_string(i), Obstacle::kNoAccess}});
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

TEST_F(PassedOverTest, ReportsEachObstacleSeparately) {
  passedOver_.Add({{"/secret/", Obstacle::kNoAccess}});
  passedOver_.Add({{"/a/deep/", Obstacle::kTooDeep}});
  passedOver_.Add({{"/b/deep/", Obstacle::kTooDeep}});
  passedOver_.Add({{"/b/gone", Obstacle::kGone}});
  passedOver_.Tell(recorders_.boxes);
  passedOver_.Tell(recorders_.boxes);
  ASSERT_EQ(recorders_.boxes.Shown().size(), 1U);
  EXPECT_EQ(recorders_.boxes.Shown()[0].text,
            "1 個のフォルダ または ファイルにアクセスできないため、読み込みませんでした\r\n\r\n/secret/\r\n\r\n"
            "2 個のフォルダは階層が深すぎるため、読み込みませんでした\r\n\r\n/a/deep/\r\n/b/deep/\r\n\r\n"
            "1 個のファイルは途中でなくなったため、読み込みませんでした\r\n\r\n/b/gone");
}

TEST_F(PassedOverTest, ShortensAPathOfAThousandFoldersInTheMiddle) {
  std::string path = "/";
  for (int i = 0; i < 1000; ++i) path += std::to_string(i) + '/';
  std::replace(path.begin(), path.end(), '/', SystemPathStyle() == PathStyle::kWindows ? '\\' : '/');
  passedOver_.Add({{path, Obstacle::kTooDeep}});
  passedOver_.Tell(recorders_.boxes);
  ASSERT_EQ(recorders_.boxes.Shown().size(), 1U);
  const std::string& text = recorders_.boxes.Shown()[0].text;
  EXPECT_LT(text.size(), 400U);
  EXPECT_THAT(text, testing::EndsWith(path.substr(path.size() - 8)));
}

}  // namespace
}  // namespace quillon
