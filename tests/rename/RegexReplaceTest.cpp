#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "platform/Ansi.h"
#include "rename/RegexReplace.h"

namespace quillon {
namespace {

/// Records its calls and answers with a given text.
class RecordingEngine final : public RegexEngine {
 public:
  explicit RecordingEngine(std::optional<std::string> answer) : answer_(std::move(answer)) {}

  std::optional<std::string> Replace(std::string_view command, std::string_view target) override {
    commands.emplace_back(command);
    targets.emplace_back(target);
    return answer_;
  }

  std::vector<std::string> commands;
  std::vector<std::string> targets;

 private:
  std::optional<std::string> answer_;
};

std::string Ansi(std::string_view text) {
  return Utf8ToAnsi(text).value_or("cannot be written in code page 932");
}

TEST(RegexReplace, BuildsTheCommandInCodePage932) {
  RecordingEngine engine("x");
  EXPECT_EQ(RegexReplace("東京", "東", "$&西", "gik", engine), "x");
  EXPECT_EQ(engine.commands, std::vector{Ansi("s/東/$&西/gik")});
  EXPECT_EQ(engine.targets, std::vector{Ansi("東京")});
}

TEST(RegexReplace, PassesTextsOnWithoutEscapingThem) {
  RecordingEngine engine("x");
  EXPECT_EQ(RegexReplace("a/b", "a/b", "\\", "gk", engine), "x");
  EXPECT_EQ(engine.commands, std::vector<std::string>{"s/a/b/\\/gk"});
}

TEST(RegexReplace, UsesUtf8ForTextsOutsideCodePage932) {
  struct Row {
    const char* name;
    std::string target, pattern, replacement, flags, command;
  };
  const Row rows[] = {
      {"target", "é東", "東", "x", "gk", "s/東/x/gu"},
      {"pattern", "東", "é", "x", "gik", "s/é/x/giu"},
      {"replacement", "東", "東", "😀", "gk", "s/東/😀/gu"},
      {"bytes that are not UTF-8", "a\xFF", "a", "x", "gk", "s/a/x/gu"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingEngine engine("é");
    EXPECT_EQ(RegexReplace(row.target, row.pattern, row.replacement, row.flags, engine), "é");
    EXPECT_EQ(engine.commands, std::vector{row.command});
    EXPECT_EQ(engine.targets, std::vector{row.target});
  }
}

TEST(RegexReplace, DecodesTheAnswer) {
  RecordingEngine engine(Ansi("東京ﾄ表"));
  EXPECT_EQ(RegexReplace("a", "a", "b", "gk", engine), "東京ﾄ表");
}

TEST(RegexReplace, RecognisesErrorTexts) {
  struct Row {
    const char* name;
    std::string answer;
    bool error;
  };
  const Row rows[] = {
      {"with blanks", "invalid target parameter", true},
      {"without blanks", "invalidtargetparameter", true},
      {"in capitals", "INVALID Target PARAMETER", true},
      {"in capitals without blanks", "InvalidTargetParameter", true},
      {"unmatched", "unmatched () in regexp", true},
      {"unmatched in capitals", "UNMATCHED [] in regexp", true},
      {"unmatched alone", "unmatched", true},
      {"a name that begins so is taken for an error", "Unmatched Love", true},
      {"eight characters of it", "unmatche", false},
      {"not at the start", " unmatched", false},
      {"with more behind it", "invalid target parameter.", false},
      {"with less", "invalid target", false},
      {"one blank missing", "invalidtarget parameter", false},
      {"full-width", "ｕｎｍａｔｃｈｅｄ", false},
      {"empty", "", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingEngine engine(Ansi(row.answer));
    const std::optional<std::string> expected = row.error ? std::nullopt : std::optional(row.answer);
    EXPECT_EQ(RegexReplace("name", "a", "b", "gk", engine), expected);
  }
}

TEST(RegexReplace, AnErrorInCodePage932IsTriedAgainInUtf8) {
  struct Engine final : RegexEngine {
    std::optional<std::string> Replace(std::string_view command, std::string_view) override {
      return command.ends_with("gu") ? "é" : "invalid target parameter";
    }
  } engine;
  EXPECT_EQ(RegexReplace("b", "b", "\\x{e9}", "gk", engine), "é");
}

TEST(RegexReplace, WithoutAnEngineThereIsNoAnswer) {
  RecordingEngine engine(std::nullopt);
  EXPECT_EQ(RegexReplace("a", "a", "b", "gk", engine), std::nullopt);
  EXPECT_EQ(RegexReplace("é", "a", "b", "gk", engine), std::nullopt);
}

TEST(RegexLibrary, IsFoundByNameAndReplaces) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available()) << "the library does not stand beside the test program";
  struct Row {
    const char* name;
    std::string target, pattern, replacement, flags;
    std::optional<std::string> expected;
  };
  const Row rows[] = {
      {"code page 932", "表示01", "(\\D+)(\\d+)", "$2 $1", "gk", "01 表示"},
      {"UTF-8", "é表示01", "(\\D+)(\\d+)", "$2 $1", "gk", "01 é表示"},
      {"ignoring case", "ＡａAa", "a", "x", "gik", "Ａａxx"},
      {"not ignoring case", "Aa", "a", "x", "gk", "Ax"},
      {"unmatched", "name", "(", "x", "gk", std::nullopt},
      {"unmatched in UTF-8", "é", "[", "x", "gk", std::nullopt},
      {"slash in the pattern", "a/b", "a/b", "x", "gk", std::nullopt},
      {"emptied", "abc", ".*", "", "gk", ""},
      {"bytes that are not UTF-8 stay", "a\xFF", "a", "あ", "gk", "あ\xFF"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(RegexReplace(row.target, row.pattern, row.replacement, row.flags, library), row.expected);
  }
}

TEST(RegexLibrary, ManyCommandsInTurnsAllWork) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available());
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 25; ++i) {
      const std::string number = std::to_string(i);
      EXPECT_EQ(RegexReplace("x", "x", number, "gk", library), number);
    }
  }
}

TEST(RegexLibrary, AnAnswerTooLongForANameStaysTooLong) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available());
  for (const char* character : {"a", "あ", "ｱ", "😀"}) {
    SCOPED_TRACE(character);
    std::string pattern;
    for (int i = 0; i < 20; ++i) pattern += "$&";
    std::string name;
    for (int i = 0; i < 2000; ++i) name += character;
    const auto answer = RegexReplace(name, "^.*$", pattern, "gk", library);
    ASSERT_TRUE(answer);
    EXPECT_GT(CharacterCount(*answer), 32767u);
  }
}

TEST(RegexLibrary, AnotherLibraryWithItsNameCountsAsAbsent) {
  for (const char* name : {"bregexp-without-version", "bregexp-of-other-version"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(FindLibrary(SharedLibraryFileName(name))) << "it does not stand beside the test program";
    RegexLibrary library(name);
    EXPECT_FALSE(library.Available());
    EXPECT_EQ(library.Replace("s/a/b/gk", "a"), std::nullopt);
  }
}

TEST(RegexLibrary, AnAbsentLibraryAnswersNothing) {
  RegexLibrary library("quillon-no-such-library");
  EXPECT_FALSE(library.Available());
  EXPECT_EQ(library.Replace("s/a/b/gk", "a"), std::nullopt);
}

}  // namespace
}  // namespace quillon
