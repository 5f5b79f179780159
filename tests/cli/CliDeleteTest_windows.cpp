#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"
#include "support/Wine.h"

namespace quillon::test {
namespace {

TEST(CliDeleteTest, TheFileStaysWhenNobodyCanAnswerTheSystemsQuestion) {
  if (!RunsUnderWine()) GTEST_SKIP() << "the files would go to the tester's own recycle bin";
  if (std::getenv("DISPLAY") != nullptr) GTEST_SKIP() << "Wine would ask in a dialog, and wait for an answer";
  const TempFolder folder;
  const std::string first = folder.Write("a.mid", "a");
  const std::string second = folder.Write("荒城の月 1.mp3", "moon");
  const ProcessResult result = Cli({"delete", "--apply", folder.Path()});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_EQ(Lines(result.output),
            (std::vector<std::string>{first + ": ファイルが削除できません", second + ": ファイルが削除できません",
                                      "0 個のファイルをごみ箱に移動しました", "2 個のファイルが削除できませんでした"}));
  EXPECT_EQ(folder.Read("a.mid"), "a");
  EXPECT_EQ(folder.Read("荒城の月 1.mp3"), "moon");
}

}  // namespace
}  // namespace quillon::test
