#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

constexpr const char* kNamesake = "移動先に同名のファイルがあります";

std::vector<std::string> MoveArguments(const std::string& to, const std::vector<std::string>& further) {
  std::vector<std::string> arguments = {"move", "--to", to};
  arguments.insert(arguments.end(), further.begin(), further.end());
  return arguments;
}

ProcessResult Move(const std::string& to, const std::vector<std::string>& further) {
  return Cli(MoveArguments(to, further));
}

std::string Arrow(const TempFolder& folder, const std::string& from, const std::string& to) {
  return folder.At(from) + " -> " + folder.At(to);
}

TEST(CliMoveTest, TheDryRunShowsEachFileAndChangesNothing) {
  const TempFolder folder;
  folder.Write("from/b.mid", "mine");
  folder.Write("from/荒城の月 1.mp3", "moon");
  folder.Write("to/b.mid", "theirs");
  const ProcessResult result = Move(folder.At("to"), {folder.At("from")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_EQ(Lines(result.output),
            (std::vector<std::string>{folder.At("from/b.mid") + ": " + kNamesake,
                                      Arrow(folder, "from/荒城の月 1.mp3", "to/荒城の月 1.mp3")}));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(folder.Read("from/b.mid"), "mine");
  EXPECT_EQ(folder.Read("from/荒城の月 1.mp3"), "moon");
  EXPECT_EQ(folder.Read("to/b.mid"), "theirs");
  EXPECT_FALSE(folder.Exists("to/荒城の月 1.mp3"));
}

TEST(CliMoveTest, AnExistingTargetIsReportedForItsFileAndTheOthersAreMoved) {
  const TempFolder folder;
  folder.Write("from/b.mid", "mine");
  folder.Write("from/荒城の月 1.mp3", "moon");
  folder.Write("to/b.mid", "theirs");
  const ProcessResult result = Move(folder.At("to"), {"--apply", folder.At("from")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_EQ(Lines(result.output),
            (std::vector<std::string>{folder.At("from/b.mid") + ": " + kNamesake, "1 個のファイルの移動が完了しました",
                                      "1 個のファイルが移動できませんでした"}));
  EXPECT_EQ(folder.Read("from/b.mid"), "mine");
  EXPECT_EQ(folder.Read("to/b.mid"), "theirs");
  EXPECT_FALSE(folder.Exists("from/荒城の月 1.mp3"));
  EXPECT_EQ(folder.Read("to/荒城の月 1.mp3"), "moon");
}

TEST(CliMoveTest, AllMovedIsStatusZero) {
  const TempFolder folder;
  const std::string to = folder.MakeFolder("行き 先");
  const std::string path = folder.Write("notes.txt", "text");
  const ProcessResult planned = Move(to, {path});
  EXPECT_EQ(planned.exitCode, 0) << planned.errors;
  EXPECT_EQ(planned.output, Arrow(folder, "notes.txt", "行き 先/notes.txt") + "\n");
  const ProcessResult result = Move(to, {"--apply", path});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "1 個のファイルの移動が完了しました\n");
  EXPECT_EQ(folder.Read("行き 先/notes.txt"), "text");
}

TEST(CliMoveTest, AFileIsItsOwnNamesakeInItsOwnFolder) {
  const TempFolder folder;
  folder.Write("music/a.mid", "a");
  folder.MakeFolder("music/sub");
  for (const char* spelling : {"music", "music/", "music/sub/..", "music//."}) {
    for (const std::vector<std::string>& option : {std::vector<std::string>{}, std::vector<std::string>{"--apply"}}) {
      SCOPED_TRACE(spelling + testing::PrintToString(option));
      std::vector<std::string> further = option;
      further.push_back(folder.At("music"));
      const ProcessResult result = Move(folder.At(spelling), further);
      EXPECT_EQ(result.exitCode, 1);
      EXPECT_EQ(Lines(result.output).at(0), folder.At("music/a.mid") + ": " + kNamesake);
      EXPECT_EQ(folder.Read("music/a.mid"), "a");
    }
  }
}

TEST(CliMoveTest, OfTwoFilesWithOneNameTheFirstIsMoved) {
  const TempFolder folder;
  folder.Write("1/a.mid", "first");
  folder.Write("2/a.mid", "second");
  folder.MakeFolder("to");
  const ProcessResult planned = Move(folder.At("to"), {folder.At("1"), folder.At("2")});
  EXPECT_EQ(planned.exitCode, 1);
  EXPECT_EQ(Lines(planned.output),
            (std::vector<std::string>{Arrow(folder, "1/a.mid", "to/a.mid"), folder.At("2/a.mid") + ": " + kNamesake}));
  const ProcessResult result = Move(folder.At("to"), {"--apply", folder.At("1"), folder.At("2")});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(Lines(result.output).at(0), folder.At("2/a.mid") + ": " + kNamesake);
  EXPECT_EQ(folder.Read("to/a.mid"), "first");
  EXPECT_EQ(folder.Read("2/a.mid"), "second");
}

TEST(CliMoveTest, ATargetThatIsNoFolderIsWrongUsageAndNothingHappens) {
  const TempFolder folder;
  folder.Write("from/a.mid", "a");
  folder.Write("file.txt", "text");
  const struct {
    const char* name;
    std::string to;
    std::string complaint;
  } kCases[] = {
      {"absent", folder.At("absent"), "移動先のフォルダがありません: " + folder.At("absent") + "\n"},
      {"file", folder.At("file.txt"), "移動先がフォルダではありません: " + folder.At("file.txt") + "\n"},
      {"empty", "", "移動先のフォルダを指定してください\n"},
  };
  for (const auto& row : kCases) {
    for (const char* option : {"--json", "--apply"}) {
      SCOPED_TRACE(std::string(row.name) + " " + option);
      const ProcessResult result = Move(row.to, {option, folder.At("from")});
      EXPECT_EQ(result.exitCode, 2);
      EXPECT_EQ(result.output, "");
      EXPECT_EQ(result.errors, row.complaint);
      EXPECT_EQ(folder.Read("from/a.mid"), "a");
      EXPECT_EQ(folder.Read("file.txt"), "text");
      EXPECT_FALSE(folder.Exists("absent"));
    }
  }
}

TEST(CliMoveTest, WrongUsageIsStatusTwo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  const std::vector<std::string> kCases[] = {{"move", path},
                                             {"move", "--to", folder.Path()},
                                             {"move", "--to", folder.Path(), "--for-good", path},
                                             {"move", "--to", folder.Path(), "--all", "--ext", "mid", path}};
  for (const std::vector<std::string>& arguments : kCases) ExpectWrongUsage(arguments);
}

TEST(CliMoveTest, NothingLoadedIsStatusThree) {
  const TempFolder folder;
  folder.MakeFolder("from");
  folder.MakeFolder("to");
  const ProcessResult result = Move(folder.At("to"), {"--apply", folder.At("from")});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("ファイルが見つかりませんでした"), std::string::npos) << result.errors;
}

TEST(CliMoveTest, AMissingPathIsReportedAndTheOthersAreMoved) {
  const TempFolder folder;
  folder.MakeFolder("to");
  const ProcessResult result = Move(folder.At("to"), {"--apply", folder.At("missing"), folder.Write("a.mid", "a")});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "1 個のファイルの移動が完了しました\n");
  EXPECT_NE(result.errors.find(folder.At("missing")), std::string::npos) << result.errors;
  EXPECT_TRUE(folder.Exists("to/a.mid"));
}

TEST(CliMoveTest, TheSelectionSaysWhichFilesGo) {
  const struct {
    const char* name;
    std::vector<std::string> options;
    std::vector<std::string> moved;
  } kCases[] = {{"media by default", {}, {"a.mid"}},
                {"subfolders", {"--subfolders"}, {"a.mid", "c.mp3"}},
                {"extensions of one's own", {"--ext", "txt mp3"}, {"b.txt"}},
                {"all", {"--all", "--subfolders"}, {"a.mid", "b.txt", "c.mp3", "noextension"}}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    const TempFolder folder;
    folder.Write("from/a.mid");
    folder.Write("from/b.txt");
    folder.Write("from/noextension");
    folder.Write("from/sub/c.mp3");
    folder.MakeFolder("to");
    std::vector<std::string> further = {"--apply", folder.At("from")};
    further.insert(further.end(), row.options.begin(), row.options.end());
    EXPECT_EQ(Move(folder.At("to"), further).exitCode, 0);
    std::vector<std::string> moved;
    for (const char* name : {"a.mid", "b.txt", "c.mp3", "noextension"}) {
      if (folder.Exists(std::string("to/") + name)) moved.emplace_back(name);
    }
    EXPECT_EQ(moved, row.moved);
  }
}

TEST(CliMoveTest, JsonGivesOneObjectPerFileAndTheSummary) {
  const TempFolder folder;
  folder.Write("from/a.mid", "a");
  folder.Write("from/さくら 1.mid", "s");
  folder.Write("to/a.mid", "theirs");
  const Json refused = {
      {"old", folder.At("from/a.mid")}, {"new", folder.At("to/a.mid")}, {"code", 58}, {"reason", kNamesake}};
  const Json moved = {{"old", folder.At("from/さくら 1.mid")}, {"new", folder.At("to/さくら 1.mid")}};
  const ProcessResult planned = Move(folder.At("to"), {"--json", folder.At("from")});
  EXPECT_EQ(planned.exitCode, 1) << planned.errors;
  EXPECT_EQ(JsonLines(planned.output), (std::vector<Json>{refused, moved}));
  const ProcessResult result = Move(folder.At("to"), {"--json", "--apply", folder.At("from")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  const Json summary = {{"moved", 1},
                        {"failed", 1},
                        {"interrupted", false},
                        {"not_kept", Json::array()},
                        {"summary", {"1 個のファイルの移動が完了しました", "1 個のファイルが移動できませんでした"}}};
  EXPECT_EQ(JsonLines(result.output), (std::vector<Json>{refused, moved, summary}));
}

}  // namespace
}  // namespace quillon::test
