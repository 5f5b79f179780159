#include <gtest/gtest.h>

#include "platform/Shell.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

TEST(OpenWithShell, AnswersTwoForAFileThatIsNotThere) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenWithShell(folder.At("missing.chm")), kShellFileNotFound);
  EXPECT_EQ(OpenWithShell(""), kShellFileNotFound);
}

TEST(OpenWithShell, AnswersThirtyOneForAFileThatNoProgramOpens) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenWithShell(folder.Write("a.no-program-knows-this", std::string("\0\1", 2))), kShellNoProgram);
}

}  // namespace
}  // namespace quillon
