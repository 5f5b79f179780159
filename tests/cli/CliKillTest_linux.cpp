// The program, killed while it renames, and what undo makes of it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using std::chrono::microseconds;
using Clock = std::chrono::steady_clock;

constexpr int kFiles = 400;

std::string NameOf(int number) {
  return std::to_string(number) + ".mid";
}

// Cycles of three, and one chain at the end.
std::string PlanFor(const TempFolder& folder) {
  std::string plan;
  for (int i = 0; i < kFiles; ++i) {
    const bool inCycle = i < kFiles - kFiles % 3 - 30;
    const int next = inCycle && i % 3 == 2 ? i - 2 : i + 1;
    plan += Json{{"old", folder.At(NameOf(i))}, {"new", NameOf(next)}}.dump() + "\n";
  }
  return plan;
}

/// Runs the program and kills it once `isDue`; true when it was still running.
bool Killed(const std::function<bool()>& isDue, std::vector<std::string> words) {
  words.insert(words.begin(), CliPath());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execv(pointers[0], pointers.data());
    _exit(127);
  }
  int status = 0;
  while (!isDue()) {
    if (waitpid(child, &status, WNOHANG) == child) return false;
    std::this_thread::sleep_for(microseconds(50));
  }
  kill(child, SIGKILL);
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFSIGNALED(status);
}

bool KilledAfter(microseconds time, const std::vector<std::string>& words) {
  const auto end = Clock::now() + time;
  return Killed([end] { return Clock::now() >= end; }, words);
}

TEST(CliKill, APlanThatIsKilledAtAnyMomentIsTakenBackWhole) {
  const TempFolder folder;
  const TempFolder files;
  for (int i = 0; i < kFiles; ++i) folder.Write(NameOf(i), NameOf(i));
  const std::string plan = files.Write("plan", PlanFor(folder));
  const std::string log = files.At("log");
  const std::vector<std::string> words = {"rename", "--plan", plan, "--apply", "--log", log};
  const auto start = Clock::now();
  ASSERT_EQ(Cli(words).exitCode, 0);
  const auto whole = std::chrono::duration_cast<microseconds>(Clock::now() - start);
  const std::size_t steps = Lines(files.Read("log")).size();
  ASSERT_GT(steps, static_cast<std::size_t>(kFiles));

  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int killed = 0;
  int between = 0;
  for (int round = 0; round <= 60; ++round) {
    if (round > 0) {
      files.Write("log");
      const std::size_t moment = random() % steps;  // in lines of the log
      const auto logLines = [&] { return Lines(files.Read("log")).size(); };
      killed += Killed([&] { return logLines() >= moment; }, words) ? 1 : 0;
      const std::size_t logged = logLines();
      between += logged > 0 && logged < steps ? 1 : 0;
      // The way back is killed, too.
      KilledAfter(microseconds(random() % static_cast<unsigned>(whole.count())), {"undo", "--apply", log});
    }
    const ProcessResult undone = Cli({"undo", "--apply", log});
    EXPECT_EQ(undone.exitCode, 0) << undone.output << undone.errors;
    for (int i = 0; i < kFiles; ++i) ASSERT_EQ(folder.Read(NameOf(i)), NameOf(i)) << "round " << round;
    ASSERT_FALSE(folder.Exists(NameOf(kFiles)));
  }
  std::cout << "60 rounds, seed " << seed << ": " << killed << " killed, " << between << " in the middle of " << steps
            << " steps, which take " << whole.count() << " us\n";
  EXPECT_GT(killed, 10);
  EXPECT_GT(between, 3);
}

TEST(CliKill, AFullLogEndsTheRunBeforeTheNextRename) {
  const TempFolder folder;
  const TempFolder files;
  for (int i = 0; i < kFiles; ++i) folder.Write(std::to_string(i) + ".MID", NameOf(i));
  const std::string log = files.At("log");
  // A file of at most 8 blocks of 512 bytes; the signal is ignored, so that writing fails.
  const std::string limited = "trap '' XFSZ; ulimit -f 8; exec \"$@\"";
  for (const std::vector<std::string>& command : {std::vector<std::string>{"rename"}, {"move", "--to", files.Path()}}) {
    std::vector<std::string> words = {"-c", limited, "sh", CliPath()};
    words.insert(words.end(), command.begin(), command.end());
    words.insert(words.end(), {"--apply", "--log", log, folder.Path()});
    files.Write("log");
    const ProcessResult result = RunProcess("/bin/sh", words);
    EXPECT_EQ(result.exitCode, 1) << result.output << result.errors;
    EXPECT_EQ(Lines(result.errors).size(), 1U) << result.errors;
    const std::size_t logged = JsonLines(files.Read("log")).size();
    EXPECT_GT(logged, 3U);
    EXPECT_LT(logged, 40U);
    EXPECT_EQ(Cli({"undo", "--apply", log}).exitCode, 0);
    for (int i = 0; i < kFiles; ++i) EXPECT_TRUE(folder.Exists(std::to_string(i) + ".MID"));
  }
}

}  // namespace
}  // namespace quillon::test
