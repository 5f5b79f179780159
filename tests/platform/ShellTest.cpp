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

}  // namespace
}  // namespace quillon
