#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "base/Product.h"
#include "platform/FileSystem.h"
#include "support/MemoryFileSystem.h"

namespace quillon {
namespace {

using Kind = CommandLineRequest::Kind;
using Paths = std::vector<std::string>;

CommandLineRequest Read(const std::optional<std::string>& raw, const std::vector<std::string>& arguments) {
  test::MemoryFileSystem files;
  return ReadCommandLine(raw, arguments, files);
}

TEST(ReadCommandLine, SplitsALineThatTheSystemPassesAsOneText) {
  const std::string line = R"("a b\" c "d  e.mid")";
  EXPECT_EQ(Read(line, {"not looked at"}).paths, (Paths{FullPath("a b\\"), FullPath("c"), FullPath("d  e.mid")}));
}

TEST(ReadCommandLine, TakesArgumentsThatTheSystemHasSplit) {
  EXPECT_EQ(Read(std::nullopt, {"a \"b\"", "日本 語"}).paths, (Paths{FullPath("a \"b\""), FullPath("日本 語")}));
}

TEST(ReadCommandLine, GivesNoPathForAnEmptyLineOrAnEmptyWord) {
  EXPECT_TRUE(Read("", {}).paths.empty());
  EXPECT_TRUE(Read(std::nullopt, {}).paths.empty());
  EXPECT_TRUE(Read("\"\"", {}).paths.empty());
  EXPECT_TRUE(Read(std::nullopt, {""}).paths.empty());
  EXPECT_EQ(Read(std::nullopt, {"", "a", ""}).paths, Paths{FullPath("a")});
}

TEST(ReadCommandLine, GivesFullPaths) {
  const Paths paths = Read(std::nullopt, {"song.mp3"}).paths;
  ASSERT_EQ(paths.size(), 1U);
  EXPECT_NE(paths[0], "song.mp3");
  EXPECT_TRUE(paths[0].ends_with("song.mp3"));
}

TEST(ReadCommandLine, KnowsTheWordsThatOpenNoWindow) {
  struct Row {
    const char* word;
    Kind kind;
    int status;
  };
  for (const Row& row :
       {Row{"--help", Kind::kHelp, 0}, Row{"--version", Kind::kVersion, 0}, Row{"--helpless", Kind::kWrongUsage, 2},
        Row{"--", Kind::kWrongUsage, 2}, Row{"-help", Kind::kOpen, 0}, Row{"help", Kind::kOpen, 0}}) {
    const CommandLineRequest request = Read(std::nullopt, {"a", row.word, "--other"});
    const CommandLineRequest alone = Read(row.word, {});
    EXPECT_EQ(alone.kind, row.kind) << row.word;
    EXPECT_EQ(ExitStatusOf(alone), row.status) << row.word;
    EXPECT_EQ(request.kind, row.kind == Kind::kOpen ? Kind::kWrongUsage : row.kind) << "the first one decides";
    EXPECT_EQ(request.paths.empty(), request.kind != Kind::kOpen);
  }
}

TEST(ReadCommandLine, TakesAWordThatBeginsWithDashesAsAPathWhenItExists) {
  for (const char* const word : {"--help", "--version", "--other"}) {
    test::MemoryFileSystem files;
    files.AddFile(FullPath(word));
    const CommandLineRequest request = ReadCommandLine(std::nullopt, {word}, files);
    EXPECT_EQ(request.kind, Kind::kOpen);
    EXPECT_EQ(request.paths, Paths{FullPath(word)});
  }
}

TEST(ReadCommandLine, ShowsAMistakeAsAWarningAndTheRestAsInformation) {
  for (const auto& [word, icon] :
       {std::pair("--apply", MessageIcon::kExclamation), std::pair("--help", MessageIcon::kInformation),
        std::pair("--version", MessageIcon::kInformation)}) {
    const CommandLineRequest request = Read(word, {});
    EXPECT_EQ(BoxFor(request), (Message{"Quillon", AnswerTo(request), icon})) << word;
  }
}

TEST(ReadCommandLine, AnswersRequestsAndExplainsMistakes) {
  EXPECT_EQ(AnswerTo(Read("--version", {})), std::string("Quillon ") + kProductVersion + "\n");
  EXPECT_TRUE(AnswerTo(Read("--help", {})).starts_with("使い方: quillon"));
  EXPECT_TRUE(AnswerTo(Read("--apply", {})).starts_with("--apply: "));
  EXPECT_EQ(AnswerTo(Read("song.mp3", {})), "");
}

}  // namespace
}  // namespace quillon
