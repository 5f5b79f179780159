#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using testing::HasSubstr;

class CliPlan : public testing::Test {
 protected:
  CliPlan() {
    for (const char* const name : {"a.mid", "b.mid", "c.mid"}) folder_.Write(name, name);
  }

  static std::string Line(const std::string& from, const std::string& to) {
    return Json{{"old", from}, {"new", to}}.dump() + "\n";
  }

  ProcessResult Run(const std::string& plan, const std::vector<std::string>& options) {
    std::vector<std::string> arguments = {"rename", "--plan", files_.Write("plan", plan)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Cli(arguments);
  }

  void ExpectUnchanged() {
    for (const char* const name : {"a.mid", "b.mid", "c.mid"}) EXPECT_EQ(folder_.Read(name), name);
  }

  TempFolder folder_;
  TempFolder files_;
  std::string swap_ = Line(folder_.At("a.mid"), "b.mid") + Line(folder_.At("b.mid"), folder_.At("a.mid")) +
                      Line(folder_.At("c.mid"), "d.MID");
};

TEST_F(CliPlan, NamesChangePlacesAndComeBack) {
  const ProcessResult shown = Run(swap_, {});
  EXPECT_EQ(shown.exitCode, 0) << shown.errors;
  EXPECT_EQ(shown.output, folder_.At("a.mid") + " -> " + folder_.At("b.mid") + "\n" + folder_.At("b.mid") + " -> " +
                              folder_.At("a.mid") + "\n" + folder_.At("c.mid") + " -> " + folder_.At("d.MID") + "\n");
  ExpectUnchanged();
  const ProcessResult done = Run(swap_, {"--apply", "--json", "--log", files_.At("log")});
  EXPECT_EQ(done.exitCode, 0) << done.errors;
  const std::vector<Json> lines = JsonLines(done.output);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[1], (Json{{"old", folder_.At("b.mid")}, {"new", folder_.At("a.mid")}}));
  EXPECT_EQ(lines[3]["applied"], 3);
  EXPECT_EQ(folder_.Read("a.mid") + folder_.Read("b.mid") + folder_.Read("d.MID"), "b.mida.midc.mid");
  EXPECT_EQ(JsonLines(files_.Read("log")).size(), 4U);
  EXPECT_EQ(Cli({"undo", "--apply", files_.At("log")}).exitCode, 0);
  ExpectUnchanged();
}

TEST_F(CliPlan, TakingASwapBackCountsItsFilesAndShowsNoTemporaryNames) {
  const std::string log = files_.At("log");
  EXPECT_EQ(Run(swap_, {"--apply", "--log", log}).exitCode, 0);
  const ProcessResult shown = Cli({"undo", log});
  EXPECT_EQ(Lines(shown.output).size(), 3U) << shown.output;
  EXPECT_EQ(shown.output.find(".quillon-"), std::string::npos) << shown.output;
  EXPECT_EQ(JsonLines(Cli({"undo", "--apply", "--json", log}).output).back()["undone"], 3);
  ExpectUnchanged();
}

TEST_F(CliPlan, APlanThatChangesNothingSaysSo) {
  const ProcessResult result = Run(Line(folder_.At("a.mid"), "a.mid"), {"--apply", "--json"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(JsonLines(result.output).back()["applied"], 0) << result.output;
}

TEST_F(CliPlan, APlanIsReadFromStandardInputAndItsOwnJsonOutputIsOne) {
  const ProcessResult shown = Run(swap_, {"--json"});
  EXPECT_EQ(Cli({"rename", "--plan", "-", "--apply"}, "\xEF\xBB\xBF" + shown.output).exitCode, 0);
  EXPECT_EQ(folder_.Read("a.mid"), "b.mid");
}

TEST_F(CliPlan, EveryMistakeIsToldWithItsLineBeforeAnythingHappens) {
  const std::string plan = Line(folder_.At("a.mid"), "x.mid") + "\n" + Line(folder_.At("absent.mid"), "y.mid") +
                           Line(folder_.At("b.mid"), "c.mid") + Line(folder_.At("c.mid"), "z?.mid");
  for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--apply"}}) {
    const ProcessResult result = Run(plan, options);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    const std::vector<std::string> complaints = Lines(result.errors);
    ASSERT_EQ(complaints.size(), 2U);
    EXPECT_THAT(complaints[0], HasSubstr("plan:3: "));
    EXPECT_THAT(complaints[1], HasSubstr("plan:5: "));
    ExpectUnchanged();
  }
}

TEST_F(CliPlan, ADamagedPlanIsAnError) {
  const ProcessResult result = Run(swap_ + "damaged\n", {"--apply"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.errors, HasSubstr("plan:4: "));
  ExpectUnchanged();
  EXPECT_EQ(Cli({"rename", "--plan", files_.At("absent")}).exitCode, 2);
}

TEST_F(CliPlan, APlanStandsAlone) {
  const std::string plan = files_.Write("plan", swap_);
  const std::vector<std::vector<std::string>> together = {{folder_.Path()}, {"--to-title"},         {"--modify"},
                                                          {"--portable"},   {"--normalize", "nfc"}, {"--names", plan},
                                                          {"--all"},        {"--ext", "x"},         {"--subfolders"}};
  for (const std::vector<std::string>& others : together) {
    std::vector<std::string> arguments = {"rename", "--plan", plan};
    arguments.insert(arguments.end(), others.begin(), others.end());
    ExpectWrongUsage(arguments);
  }
  ExpectWrongUsage({"rename"});
  ExpectWrongUsage({"rename", "--plan", ""});
}

class CliNames : public CliPlan {
 protected:
  ProcessResult RunNames(const std::string& names, const std::vector<std::string>& options = {"--apply"}) {
    std::vector<std::string> arguments = {"rename", "--names", files_.Write("names", names), folder_.Path()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Cli(arguments);
  }
};

TEST_F(CliNames, EachRowGetsItsName) {
  EXPECT_EQ(RunNames("\xEF\xBB\xBF一\r\ntwo\r\nthree").exitCode, 0);
  EXPECT_EQ(folder_.Read("一.mid") + folder_.Read("two.mid") + folder_.Read("three.mid"), "a.midb.midc.mid");
}

TEST_F(CliNames, NamesComeFromStandardInputToo) {
  EXPECT_EQ(Cli({"rename", "--names", "-", "--apply", folder_.Path()}, "1\n2\n3\n").exitCode, 0);
  EXPECT_TRUE(folder_.Exists("3.mid"));
}

TEST_F(CliNames, AWrongCountIsAnErrorBeforeAnythingHappens) {
  for (const char* const names : {"", "1\n2\n", "1\n2\n3\n4\n"}) {
    const ProcessResult result = RunNames(names);
    EXPECT_EQ(result.exitCode, 2) << names;
    EXPECT_THAT(result.errors, HasSubstr("/ 3"));
  }
  ExpectUnchanged();
}

TEST_F(CliNames, ObjectsNameTheirFilesAndTheOthersKeepTheirNames) {
  const std::string names = Json{{"path", folder_.At("c.mid")}, {"name", "new"}}.dump() + "\n";
  EXPECT_EQ(RunNames(names).exitCode, 0);
  EXPECT_EQ(folder_.Read("new.mid"), "c.mid");
  EXPECT_TRUE(folder_.Exists("a.mid"));
}

TEST_F(CliNames, AFileThatIsNotListedOrNamedTwiceIsAnError) {
  const std::string good = Json{{"path", folder_.At("a.mid")}, {"name", "new"}}.dump() + "\n";
  const std::string absent = Json{{"path", folder_.At("x.mid")}, {"name", "other"}}.dump() + "\n";
  for (const std::string& names : {good + absent, good + good, good + "damaged\n"}) {
    const ProcessResult result = RunNames(names);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, HasSubstr("names:2: "));
  }
  ExpectUnchanged();
}

TEST_F(CliNames, NamesAndTitlesExcludeEachOther) {
  ExpectWrongUsage({"rename", "--to-title", "--names", files_.Write("names", "1\n2\n3\n"), folder_.Path()});
}

TEST_F(CliNames, PortableNamesAreMadeOfWhatTheOtherOptionsGive) {
  EXPECT_EQ(RunNames("con\nか\u3099: b?\nend...\n", {"--apply", "--portable", "--normalize", "nfc"}).exitCode, 0);
  EXPECT_EQ(folder_.Read("con_.mid"), "a.mid");
  EXPECT_EQ(folder_.Read("が： b？.mid"), "b.mid");
  EXPECT_EQ(folder_.Read("end.mid"), "c.mid");
}

TEST_F(CliNames, NamesAreTakenApartWhenAskedFor) {
  EXPECT_EQ(RunNames("が\nb\nc\n", {"--apply", "--normalize", "nfd"}).exitCode, 0);
  EXPECT_TRUE(folder_.Exists("か\u3099.mid"));
  ExpectWrongUsage({"rename", "--normalize", "nfkc", folder_.Path()});
}

TEST_F(CliNames, AskingNeedsATerminal) {
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"rename"}, {"move", "--to", files_.Path()}, {"delete"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"--ask", folder_.Path()});
    const ProcessResult result = Cli(arguments, "y\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
    arguments.push_back("--apply");
    ExpectWrongUsage(arguments);
  }
  ExpectUnchanged();
}

}  // namespace
}  // namespace quillon::test
