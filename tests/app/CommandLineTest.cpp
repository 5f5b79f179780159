#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

using Paths = std::vector<std::string>;

TEST(CommandLinePaths, AreSplitByOurOwnRulesWhereTheSystemHandsTheLineOverWhole) {
  const std::string line = R"("a b\" c "d  e.mid")";
  EXPECT_EQ(CommandLinePaths(line, {"not looked at"}), (Paths{FullPath("a b\\"), FullPath("c"), FullPath("d  e.mid")}));
}

TEST(CommandLinePaths, AreTheArgumentsWhereTheSystemHasSplitThem) {
  EXPECT_EQ(CommandLinePaths(std::nullopt, {"a \"b\"", "日本 語"}), (Paths{FullPath("a \"b\""), FullPath("日本 語")}));
}

TEST(CommandLinePaths, AreNoneForAnEmptyLine) {
  EXPECT_TRUE(CommandLinePaths("", {}).empty());
  EXPECT_TRUE(CommandLinePaths(std::nullopt, {}).empty());
}

TEST(CommandLinePaths, AreFullPaths) {
  const Paths paths = CommandLinePaths(std::nullopt, {"song.mp3"});
  ASSERT_EQ(paths.size(), 1U);
  EXPECT_NE(paths[0], "song.mp3");
  EXPECT_TRUE(paths[0].ends_with("song.mp3"));
}

}  // namespace
}  // namespace quillon
