#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"
#include "platform/Program.h"

namespace quillon::test {
namespace {

bool IsWindows() {
  return SystemPathStyle() == PathStyle::kWindows;
}

TEST(Program, ItsFolderAndNameLeadToTheProgram) {
  const std::string path = ProgramFolder() + ProgramBaseName() + (IsWindows() ? ".exe" : "");
  const auto status = MakeFileReads()->Status(path);
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kFile) << path;
}

TEST(Program, ItsFolderEndsWithOneSeparator) {
  const std::string folder = ProgramFolder();
  const char separator = IsWindows() ? '\\' : '/';
  ASSERT_GE(folder.size(), 2U);
  EXPECT_EQ(folder.back(), separator);
  EXPECT_NE(folder[folder.size() - 2], separator);
  EXPECT_EQ(FullPath(folder), folder);
}

TEST(Program, TheConfigurationFolderIsAFullPathWithATrailingSeparator) {
  const std::string folder = UserConfigurationFolder();
  EXPECT_EQ(FullPath(folder), folder);
  EXPECT_EQ(folder.back(), IsWindows() ? '\\' : '/');
}

TEST(Program, NothingHasInterruptedItYet) {
  EXPECT_FALSE(Interrupted());
}

}  // namespace
}  // namespace quillon::test
