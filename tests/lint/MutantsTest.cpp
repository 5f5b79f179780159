#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::lint {
namespace {

using test::ProcessResult;

ProcessResult RunMutants(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"-B", QUILLON_SOURCE_DIR "/scripts/mutants.py"});
  return test::RunProcess("/usr/bin/python3", arguments);
}

/// A tree of one source and one test program.
class OneSource : public testing::Test {
 protected:
  OneSource() {
    folder_.Write("src/rename/a.cpp", "int a = 1;\nint b = 2;\nint c = 2;\n");
    folder_.Write("tests/CMakeLists.txt", "quillon_test(rename quillon_rename)\n");
  }

  [[nodiscard]] ProcessResult Check(const std::string& mutants) const {
    folder_.Write("tests/mutants/rename.txt", mutants);
    return RunMutants({"--check", "--root", folder_.Path()});
  }

  void ExpectRefused(const std::string& mutants, const std::string& reason) const {
    SCOPED_TRACE(reason);
    const ProcessResult result = Check(mutants);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find(reason), std::string::npos) << result.errors;
  }

  test::TempFolder folder_;
};

TEST(Mutants, FitTheSources) {
  const ProcessResult result = RunMutants({"--check"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
}

TEST_F(OneSource, AMutantOfAnyNumberOfLinesFits) {
  const ProcessResult result = Check(
      "== one\nfile src/rename/a.cpp\ntest rename\n- a = 1;\n+ a = 3;\n\n"
      "== two\nfile src/rename/a.cpp\ntest rename Apply*\n- 1;\n- int b = 2;\n- int\n");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "2 mutants, 0 wrong\n");
}

TEST_F(OneSource, ATextThatDoesNotOccurOnceIsRefused) {
  const std::string start = "== one\nfile src/rename/a.cpp\ntest rename\n";
  ExpectRefused(start + "- int d\n", "the text to find occurs 0 times in src/rename/a.cpp");
  ExpectRefused(start + "- = 2;\n", "the text to find occurs 2 times in src/rename/a.cpp");
  ExpectRefused(start + "- int b = 2;\n- int d\n", "occurs 0 times");
  ExpectRefused(start + "+ int d\n", "it needs");
  ExpectRefused(start + "- int a\n+ int a\n", "it changes nothing");
}

TEST_F(OneSource, AProgramOrFileThatIsNotThereIsRefused) {
  ExpectRefused("== one\nfile src/rename/a.cpp\ntest renaming\n- a\n", "there is no test program renaming");
  ExpectRefused("== one\nfile src/rename/b.cpp\ntest rename\n- a\n", "there is no file src/rename/b.cpp");
  ExpectRefused("== one\nfile tests/CMakeLists.txt\ntest rename\n- quillon_test\n",
                "none of the program's own sources");
}

TEST_F(OneSource, ALineThatCannotBeReadIsRefused) {
  ExpectRefused("file src/rename/a.cpp\n", "rename.txt:1: this belongs to no mutant");
  ExpectRefused("== one\ntext\n", "rename.txt:2: a line of no known kind: text");
  const std::string whole = "== one\nfile src/rename/a.cpp\ntest rename\n- int a\n\n";
  ExpectRefused(whole + whole, "another one in the file has this name");
  ExpectRefused("", "there are no mutants");
}

TEST_F(OneSource, EachDayHasOthersUntilAllHaveHadTheirTurn) {
  std::string mutants;
  for (const char* name : {"one", "two", "three", "four"}) {
    mutants += std::string("== ") + name + "\nfile src/rename/a.cpp\ntest rename\n- int a\n\n";
  }
  folder_.Write("tests/mutants/rename.txt", mutants);
  const auto ofDay = [&](const char* date) {
    return RunMutants({"--root", folder_.Path(), "--list", "--day", "2", "--date", date}).output;
  };
  const std::string both = ofDay("2026-05-01") + ofDay("2026-05-02");
  for (const char* name : {"one", "two", "three", "four"}) {
    EXPECT_NE(both.find(std::string("rename: ") + name + "\n"), std::string::npos) << both;
  }
  EXPECT_EQ(ofDay("2026-05-03"), ofDay("2026-05-01"));
}

}  // namespace
}  // namespace quillon::lint
