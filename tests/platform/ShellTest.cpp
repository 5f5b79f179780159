#include <gtest/gtest.h>

#include <string>

#include "platform/Shell.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

TEST(OpenWithShell, Returns2ForAMissingFile) {
  const test::TempFolder folder;
  EXPECT_EQ(OpenWithShell(folder.At("missing.chm")), kShellFileNotFound);
  EXPECT_EQ(OpenWithShell(""), kShellFileNotFound);
}

TEST(FileTypeDescription, IsTheDesktopsDescription) {
  EXPECT_EQ(FileTypeDescription("qzx"), "") << "nobody's extension";
  EXPECT_EQ(FileTypeDescription(""), "");
  const std::string words = FileTypeDescription("txt");
  if (words.empty()) GTEST_SKIP() << "this desktop knows no types of files";
  EXPECT_NE(words, FileTypeDescription("html"));
  EXPECT_EQ(words, FileTypeDescription("TXT"));
}

}  // namespace
}  // namespace quillon
