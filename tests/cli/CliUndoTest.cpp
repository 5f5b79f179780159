#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "cli/CliProgram.h"
#include "platform/FileSystem.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;

class CliUndo : public testing::Test {
 protected:
  CliUndo() {
    source_.Write("one.mid", "one");
    source_.Write("two.mid", "two");
  }

  ProcessResult Undo(const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"undo", Log()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Cli(arguments);
  }

  [[nodiscard]] std::string Log() const { return logs_.At("log"); }

  TempFolder source_;
  TempFolder target_;
  TempFolder logs_;
};

TEST_F(CliUndo, ALoggedMoveIsShownAndTakenBack) {
  EXPECT_EQ(Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()}).exitCode, 0);
  EXPECT_EQ(JsonLines(logs_.Read("log")).size(), 2U);
  const ProcessResult shown = Undo();
  EXPECT_EQ(shown.exitCode, 0) << shown.errors;
  EXPECT_EQ(shown.output, target_.At("two.mid") + " -> " + source_.At("two.mid") + "\n" + target_.At("one.mid") +
                              " -> " + source_.At("one.mid") + "\n");
  EXPECT_TRUE(target_.Exists("one.mid"));
  const ProcessResult undone = Undo({"--apply", "--json"});
  EXPECT_EQ(undone.exitCode, 0) << undone.errors;
  const std::vector<Json> lines = JsonLines(undone.output);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], (Json{{"old", target_.At("two.mid")}, {"new", source_.At("two.mid")}}));
  EXPECT_EQ(lines[2]["undone"], 2);
  EXPECT_EQ(source_.Read("one.mid"), "one");
  EXPECT_EQ(source_.Read("two.mid"), "two");
  const ProcessResult again = Undo({"--apply", "--json"});
  EXPECT_EQ(again.exitCode, 0);
  EXPECT_EQ(JsonLines(again.output).back()["undone"], 0);
}

TEST_F(CliUndo, ALoggedRenameIsTakenBackAlsoFromALogOfSeveralRuns) {
  const TempFolder folder;
  folder.Write("ONE.MID", SimpleMidiFile("Title", ""));
  folder.Write("two.mid", "two");
  EXPECT_EQ(Cli({"rename", "--apply", "--log", Log(), folder.At("ONE.MID")}).exitCode, 0);
  EXPECT_EQ(Cli({"rename", "--apply", "--log", Log(), "--to-title", folder.At("ONE.mid")}).exitCode, 0);
  EXPECT_EQ(JsonLines(logs_.Read("log")).size(), 2U);
  EXPECT_FALSE(folder.Exists("ONE.mid"));
  EXPECT_EQ(Undo({"--apply"}).exitCode, 0);
  EXPECT_EQ(folder.Read("ONE.MID"), SimpleMidiFile("Title", ""));
}

TEST_F(CliUndo, WhatCannotGoBackIsToldAndTheRestGoes) {
  EXPECT_EQ(Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()}).exitCode, 0);
  source_.Write("two.mid", "a new one");
  for (const bool apply : {false, true}) {
    const ProcessResult result = apply ? Undo({"--apply", "--json"}) : Undo({"--json"});
    EXPECT_EQ(result.exitCode, 1);
    const std::vector<Json> lines = JsonLines(result.output);
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0]["old"], target_.At("two.mid"));
    EXPECT_EQ(lines[0]["obstacle"], "refused");
    EXPECT_EQ(lines[0]["code"], file_error::kAlreadyExists);
    EXPECT_EQ(lines[1]["new"], source_.At("one.mid"));
  }
  EXPECT_EQ(source_.Read("one.mid"), "one");
  EXPECT_EQ(source_.Read("two.mid"), "a new one");
  EXPECT_EQ(target_.Read("two.mid"), "two");
}

TEST_F(CliUndo, ALogThatIsNoneIsRefusedBeforeAnythingHappens) {
  logs_.Write("log", "something else\n");
  const ProcessResult result = Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.errors, HasSubstr(Log()));
  EXPECT_EQ(logs_.Read("log"), "something else\n");
  EXPECT_TRUE(source_.Exists("one.mid"));
  EXPECT_EQ(Undo({"--apply"}).exitCode, 2);
}

TEST_F(CliUndo, ALogThatCannotBeWrittenIsAnErrorBeforeAnythingHappens) {
  source_.Write("THREE.MID", "");  // a rename puts its extension in small letters
  for (const std::string& log : {logs_.At("absent/log"), logs_.Path()}) {
    const ProcessResult moved = Cli({"move", "--apply", "--to", target_.Path(), "--log", log, source_.Path()});
    EXPECT_EQ(moved.exitCode, 2) << log;
    EXPECT_TRUE(source_.Exists("one.mid"));
    EXPECT_EQ(Cli({"rename", "--apply", "--log", log, source_.Path()}).exitCode, 2) << log;
    EXPECT_TRUE(source_.Exists("THREE.MID"));
  }
}

TEST_F(CliUndo, ALogThatIsOneOfTheFilesIsAnError) {
  source_.Write("log.mid", "");
  for (const char* const command : {"rename", "move"}) {
    std::vector<std::string> arguments = {command, "--apply", "--log", source_.At("log.mid"), source_.Path()};
    if (std::string(command) == "move") arguments.insert(arguments.end(), {"--to", target_.Path()});
    EXPECT_EQ(Cli(arguments).exitCode, 2);
    EXPECT_EQ(source_.Read("log.mid"), "");
  }
}

TEST_F(CliUndo, ATornLogIsReadToItsLastWholeLine) {
  EXPECT_EQ(Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()}).exitCode, 0);
  logs_.Write("log", logs_.Read("log") + "{\"old\":");
  const ProcessResult result = Undo({"--apply"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.errors, HasSubstr(Log()));
  EXPECT_TRUE(source_.Exists("one.mid"));
  EXPECT_TRUE(source_.Exists("two.mid"));
}

TEST_F(CliUndo, NothingIsAppendedToATornLog) {
  const std::string torn = "{\"old\":";
  logs_.Write("log", torn);
  const ProcessResult result = Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(logs_.Read("log"), torn);
  EXPECT_TRUE(source_.Exists("one.mid"));
}

TEST_F(CliUndo, ADamagedLineIsToldWithItsNumberBeforeAnythingHappens) {
  EXPECT_EQ(Cli({"move", "--apply", "--to", target_.Path(), "--log", Log(), source_.Path()}).exitCode, 0);
  logs_.Write("log", logs_.Read("log") + "{\"old\":\n");
  const ProcessResult result = Undo({"--apply"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.errors, HasSubstr(Log() + ":3"));
  EXPECT_TRUE(target_.Exists("one.mid"));
}

TEST_F(CliUndo, AnAbsentLogCannotBeUndone) {
  EXPECT_EQ(Undo().exitCode, 2);
}

TEST_F(CliUndo, ALogNeedsApply) {
  ExpectWrongUsage({"rename", "--log", Log(), source_.Path()});
  ExpectWrongUsage({"move", "--to", target_.Path(), "--log", Log(), source_.Path()});
  ExpectWrongUsage({"rename", "--apply", "--log", "", source_.Path()});
  ExpectWrongUsage({"undo"});
  ExpectWrongUsage({"undo", ""});
  ExpectWrongUsage({"undo", Log(), Log()});
}

}  // namespace
}  // namespace quillon::test
