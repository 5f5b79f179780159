#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

class CliCompletion : public testing::Test {
 protected:
  // What bash would offer for the last of these words, one a line.
  std::string Completed(const std::vector<std::string>& words) {
    const std::string script = folder_.Write("script", Cli({"completion", "bash"}).output);
    std::string line = ". " + script + "\nCOMP_WORDS=(quillon-cli";
    for (const std::string& word : words) line += " '" + word + "'";
    line += ")\nCOMP_CWORD=" + std::to_string(words.size()) + "\n_quillon_cli\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
    const ProcessResult result = RunProcess("/bin/bash", {"-u", folder_.Write("run", line)});
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
    return result.output;
  }

  // A shell that is installed reads the script without running it.
  void ExpectRead(const std::string& shell, const std::string& program) {
    const std::string script = folder_.Write(shell, Cli({"completion", shell}).output);
    const ProcessResult result = RunProcess(program, {"-n", script});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
  }

  TempFolder folder_;
};

TEST_F(CliCompletion, CommandsAreCompleted) {
  EXPECT_EQ(Completed({"ren"}), "rename\n");
  EXPECT_EQ(Completed({"m"}), "modify\nmove\nmci\n");
  EXPECT_EQ(Completed({"--v"}), "--version\n");
}

TEST_F(CliCompletion, TheOptionsOfACommandAreCompleted) {
  EXPECT_EQ(Completed({"rename", "--to"}), "--to-title\n");
  EXPECT_EQ(Completed({"rename", "--pl"}), "--plan\n");
  EXPECT_EQ(Completed({"delete", "x.mid", "--f"}), "--for-good\n");
  EXPECT_EQ(Completed({"delete", "--pl"}), "\n");
  EXPECT_EQ(Completed({"delete", "--json", "--f"}), "--for-good\n") << "a flag has no value";
}

TEST_F(CliCompletion, TheValuesOfAnOptionAreCompleted) {
  EXPECT_EQ(Completed({"info", "--reader", "id"}), "id3v1\nid3v2\n");
  EXPECT_EQ(Completed({"rename", "--normalize", ""}), "nfc\nnfd\n");
  EXPECT_EQ(Completed({"completion", "b"}), "bash\n");
  EXPECT_EQ(Completed({"list", "--ext", ""}), "\n");
}

TEST_F(CliCompletion, FilesAndFoldersAreCompleted) {
  const std::string file = folder_.Write("music/a song.mid");
  const std::string folder = folder_.MakeFolder("music/more");
  EXPECT_EQ(Completed({"rename", folder_.At("music/a")}), file + "\n");
  EXPECT_EQ(Completed({"rename", "--log", folder_.At("music/a")}), file + "\n");
  EXPECT_EQ(Completed({"undo", folder_.At("music/a")}), file + "\n");
  EXPECT_EQ(Completed({"move", "--to", folder_.At("music/")}) + "/", folder_.At("music/more") + "\n/");
}

TEST_F(CliCompletion, EveryCommandIsInEveryScript) {
  for (const char* const shell : {"bash", "zsh", "fish"}) {
    const std::string script = Cli({"completion", shell}).output;
    for (const char* const command :
         {"list", "info", "modify", "rename", "move", "undo", "delete", "mci", "completion"}) {
      EXPECT_NE(script.find(command), std::string::npos) << shell << " " << command;
    }
  }
  ExpectWrongUsage({"completion"});
  ExpectWrongUsage({"completion", "csh"});
}

TEST_F(CliCompletion, BashReadsItsScript) {
  ExpectRead("bash", "/bin/bash");
}

TEST_F(CliCompletion, ZshReadsItsScript) {
  if (access("/usr/bin/zsh", X_OK) != 0) GTEST_SKIP() << "zsh is not installed";
  ExpectRead("zsh", "/usr/bin/zsh");
}

TEST_F(CliCompletion, FishReadsItsScriptAndCompletes) {
  if (access("/usr/bin/fish", X_OK) != 0) GTEST_SKIP() << "fish is not installed";
  ExpectRead("fish", "/usr/bin/fish");
  const ProcessResult result = RunProcess(
      "/usr/bin/fish", {"--no-config", "-c", "source " + folder_.At("fish") + "; complete -C 'quillon-cli ren'"});
  EXPECT_EQ(result.output.substr(0, 7), "rename\t") << result.errors;
}

}  // namespace
}  // namespace quillon::test
