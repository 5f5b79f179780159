// Answers on a terminal of the test's own.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

class CliAsk : public testing::Test {
 protected:
  CliAsk() { folder_.Write("ONE.MID", "one"); }

  // The exit status; what the program wrote is in shown_.
  int Run(std::vector<std::string> words, const std::string& answer) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_EQ(grantpt(terminal), 0);
    EXPECT_EQ(unlockpt(terminal), 0);
    const std::string name = ptsname(terminal);
    EXPECT_EQ(write(terminal, answer.data(), answer.size()), static_cast<ssize_t>(answer.size()));
    words.insert(words.begin(), CliPath());
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const std::string out = output_.Write("out");
    const pid_t child = fork();
    if (child == 0) {
      dup2(open(name.c_str(), O_RDWR), STDIN_FILENO);
      const int file = open(out.c_str(), O_WRONLY | O_TRUNC);
      dup2(file, STDOUT_FILENO);
      dup2(file, STDERR_FILENO);
      execv(pointers[0], pointers.data());
      _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    close(terminal);
    shown_ = output_.Read("out");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TempFolder folder_;
  TempFolder output_;
  std::string shown_;
};

TEST_F(CliAsk, GoesNotTogetherWithApply) {
  EXPECT_EQ(Run({"rename", "--ask", "--apply", folder_.Path()}, "y\n"), 2) << shown_;
  EXPECT_TRUE(folder_.Exists("ONE.MID"));
}

TEST_F(CliAsk, YesRenamesWhatWasShown) {
  EXPECT_EQ(Run({"rename", "--ask", folder_.Path()}, "y\n"), 0) << shown_;
  EXPECT_EQ(shown_.find(folder_.At("ONE.MID") + " -> " + folder_.At("ONE.mid") + "\n"), 0U) << shown_;
  EXPECT_NE(shown_.find("[y/N]"), std::string::npos);
  EXPECT_TRUE(folder_.Exists("ONE.mid"));
}

TEST_F(CliAsk, EveryOtherAnswerChangesNothing) {
  for (const char* const answer : {"n\n", "\n", "\x04", "yessir\n"}) {
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"rename"}, {"delete"}, {"move", "--to", output_.Path()}}) {
      std::vector<std::string> words = command;
      words.insert(words.end(), {"--ask", folder_.Path()});
      EXPECT_EQ(Run(words, answer), 1) << shown_;
      EXPECT_TRUE(folder_.Exists("ONE.MID"));
    }
  }
}

TEST_F(CliAsk, WithoutAYesNoLogIsMade) {
  EXPECT_EQ(Run({"rename", "--ask", "--log", output_.At("log"), folder_.Path()}, "n\n"), 1) << shown_;
  EXPECT_FALSE(output_.Exists("log"));
}

TEST_F(CliAsk, YesMovesAndLogs) {
  EXPECT_EQ(Run({"move", "--ask", "--log", output_.At("log"), "--to", output_.Path(), folder_.Path()}, "YES\n"), 0);
  EXPECT_TRUE(output_.Exists("ONE.MID"));
  EXPECT_EQ(JsonLines(output_.Read("log")).size(), 1U);
}

TEST_F(CliAsk, YesDeletes) {
  EXPECT_EQ(Run({"delete", "--for-good", "--ask", folder_.Path()}, "y\n"), 0) << shown_;
  EXPECT_FALSE(folder_.Exists("ONE.MID"));
}

TEST_F(CliAsk, APlanIsAskedFor) {
  const std::string plan = output_.Write("plan", Json{{"old", folder_.At("ONE.MID")}, {"new", "2"}}.dump());
  EXPECT_EQ(Run({"rename", "--plan", plan, "--ask"}, "n\n"), 1);
  EXPECT_TRUE(folder_.Exists("ONE.MID"));
  EXPECT_EQ(Run({"rename", "--plan", plan, "--ask"}, "y\n"), 0) << shown_;
  EXPECT_TRUE(folder_.Exists("2"));
}

TEST_F(CliAsk, NothingToDoIsNotAsked) {
  EXPECT_EQ(Run({"rename", "--ask", folder_.Path(), "--all"}, "y\n"), 0);
  EXPECT_EQ(Run({"rename", "--ask", folder_.Path()}, "y\n"), 0) << shown_;
  EXPECT_EQ(shown_.find("[y/N]"), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
