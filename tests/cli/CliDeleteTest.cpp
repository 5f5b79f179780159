#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

TEST(CliDeleteTest, TheDryRunShowsEachFileAndChangesNothing) {
  const TempFolder folder;
  const std::string first = folder.Write("a.mid", "a");
  const std::string second = folder.Write("荒城の月 1.mp3", "moon");
  folder.Write("notes.txt", "text");
  for (const std::vector<std::string>& options : {std::vector<std::string>{}, std::vector<std::string>{"--for-good"}}) {
    SCOPED_TRACE(testing::PrintToString(options));
    std::vector<std::string> arguments = {"delete", folder.Path()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const ProcessResult result = Cli(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(Lines(result.output), (std::vector<std::string>{first, second}));
    EXPECT_EQ(result.errors, "");
    arguments.emplace_back("--json");
    EXPECT_EQ(JsonLines(Cli(arguments).output), (std::vector<Json>{{{"path", first}}, {{"path", second}}}));
  }
  EXPECT_EQ(folder.Read("a.mid"), "a");
  EXPECT_EQ(folder.Read("荒城の月 1.mp3"), "moon");
  EXPECT_TRUE(folder.Exists("notes.txt"));
}

TEST(CliDeleteTest, ForGoodDeletesTheFilesAndNeverAFolder) {
  const TempFolder folder;
  folder.Write("a.mid", "a");
  folder.Write("荒城の月 1.mp3", "moon");
  folder.Write("notes.txt", "text");
  folder.Write("sub/b.mid", "b");
  const ProcessResult result = Cli({"delete", "--for-good", "--apply", folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "2 個のファイルを削除しました\n");
  EXPECT_FALSE(folder.Exists("a.mid"));
  EXPECT_FALSE(folder.Exists("荒城の月 1.mp3"));
  EXPECT_TRUE(folder.Exists("notes.txt"));
  EXPECT_TRUE(folder.Exists("sub/b.mid"));
  EXPECT_EQ(Cli({"delete", "--for-good", "--apply", "--all", "--subfolders", folder.Path()}).output,
            "2 個のファイルを削除しました\n");
  EXPECT_FALSE(folder.Exists("notes.txt"));
  EXPECT_FALSE(folder.Exists("sub/b.mid"));
  EXPECT_TRUE(folder.Exists("sub"));
}

TEST(CliDeleteTest, JsonGivesOneObjectPerFileAndTheSummary) {
  const TempFolder folder;
  const std::string first = folder.Write("a.mid", "a");
  const std::string second = folder.Write("さくら 1.mid", "s");
  const ProcessResult result = Cli({"delete", "--for-good", "--apply", "--json", first, second});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const Json summary = {{"deleted", 2},
                        {"failed", 0},
                        {"interrupted", false},
                        {"summary", Json::array({"2 個のファイルを削除しました"})}};
  EXPECT_EQ(JsonLines(result.output), (std::vector<Json>{{{"path", first}}, {{"path", second}}, summary}));
}

TEST(CliDeleteTest, AMissingPathIsReportedAndTheOthersAreDeleted) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  const ProcessResult result = Cli({"delete", "--for-good", "--apply", folder.At("missing"), path});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "1 個のファイルを削除しました\n");
  EXPECT_NE(result.errors.find(folder.At("missing")), std::string::npos) << result.errors;
  EXPECT_FALSE(folder.Exists("a.mid"));
}

TEST(CliDeleteTest, NothingLoadedIsStatusThree) {
  const TempFolder folder;
  folder.Write("sub/a.mid", "a");
  for (const char* option : {"--for-good", "--apply", "--json"}) {
    const ProcessResult result = Cli({"delete", option, folder.Path()});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "");
  }
  EXPECT_TRUE(folder.Exists("sub/a.mid"));
}

TEST(CliDeleteTest, WrongUsageIsStatusTwo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"delete", "--apply"},
                                                    {"delete", "--apply", "--to", folder.Path(), path},
                                                    {"delete", "--apply", "--all", "--ext", "mid", path}}) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    const ProcessResult result = Cli(arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
  }
  EXPECT_TRUE(folder.Exists("a.mid"));
}

TEST(CliDeleteTest, AnEmptyPathIsWrongUsageInEveryCommandAndNothingHappens) {
  const TempFolder folder;
  const std::string file = folder.Write("a.mid", "a");
  const std::vector<std::vector<std::string>> kCommands = {
      {"list"}, {"rename"}, {"move", "--to", folder.Path()}, {"delete", "--for-good"}};
  for (std::vector<std::string> command : kCommands) {
    command.insert(command.end(), {"--all", file, ""});
    ExpectWrongUsage(command);
  }
}

}  // namespace
}  // namespace quillon::test
