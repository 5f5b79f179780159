// What only Linux has: names of any bytes, signals, pipes.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <string>

#include "support/MediaBuilders.h"
#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using Json = nlohmann::json;

TEST(CliBytesTest, ANameThatIsNotUtf8IsListedWithItsBytesAndRenamedWithoutDamage) {
  const TempFolder folder;
  folder.Write("a\xFF.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "Song"}));
  const ProcessResult listed = RunProcess(QUILLON_CLI, {"list", "--json", folder.Path()});
  const Json row = Json::parse(listed.output);
  EXPECT_EQ(row["rename_name"], "a\uFFFD");
  EXPECT_EQ(row["location"], folder.At("a\uFFFD.mp3"));
  const std::string bytes = row["location_bytes"];
  EXPECT_EQ(bytes.substr(bytes.size() - 12), "61ff2e6d7033");
  EXPECT_EQ(RunProcess(QUILLON_CLI, {"rename", "--apply", "--to-title", folder.Path()}).exitCode, 0);
  EXPECT_TRUE(folder.Exists("Song.mp3"));
}

TEST(CliBytesTest, EachFileHasOneLineWhateverItsTitleHolds) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "one\ntwo"}));
  EXPECT_EQ(RunProcess(QUILLON_CLI, {"rename", "--to-title", folder.Path()}).output,
            folder.At("1.mp3") + " -> " + folder.At("one\uFFFDtwo.mp3") + "\n");
}

TEST(CliBytesTest, ALinkThatLeadsNowhereIsInTheWayInTheDryRunToo) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "Song"}));
  ASSERT_EQ(symlink("nowhere", folder.At("Song.mp3").c_str()), 0);
  for (const char* option : {"--to-title", "--apply"}) {
    SCOPED_TRACE(option);
    const ProcessResult result = RunProcess(QUILLON_CLI, {"rename", "--to-title", option, folder.At("1.mp3")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.output.find("リネーム名と同名のファイルが存在します"), std::string::npos) << result.output;
  }
  EXPECT_TRUE(folder.Exists("1.mp3"));
}

TEST(CliPipeTest, AClosedPipeEndsTheProgramQuietly) {
  const TempFolder folder;
  for (int i = 0; i < 2000; ++i) folder.Write("a long enough file name " + std::to_string(i) + ".wav");
  const ProcessResult result = RunProcess(
      "/bin/sh", {"-c", std::string(QUILLON_CLI) + " list --json " + folder.Path() + " | head -n 1 | wc -l"});
  EXPECT_EQ(result.output, "1\n");
  EXPECT_EQ(result.errors, "");
}

TEST(CliPipeTest, OutputThatCannotBeWrittenIsNoSuccess) {
  const TempFolder folder;
  folder.Write("a.wav");
  const ProcessResult result =
      RunProcess("/bin/sh", {"-c", std::string(QUILLON_CLI) + " list " + folder.Path() + " >/dev/full"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "標準出力に書き込めません\n");
}

TEST(CliSignalTest, AnInterruptionStopsBetweenTwoFilesAndLosesNone) {
  const TempFolder folder;
  constexpr int kFiles = 20000;
  for (int i = 0; i < kFiles; ++i) folder.Write("f" + std::to_string(i) + ".WAV", std::to_string(i));
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execl(QUILLON_CLI, QUILLON_CLI, "rename", "--apply", folder.Path().c_str(), nullptr);
    _exit(127);
  }
  // The first renamed file shows that the batch has begun.
  while (access(folder.At("f0.wav").c_str(), F_OK) != 0 && waitpid(child, nullptr, WNOHANG) == 0) usleep(100);
  kill(child, SIGINT);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child) << "the batch was over before it could be interrupted";
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 1);
  int renamed = 0;
  for (int i = 0; i < kFiles; ++i) {
    const std::string name = "f" + std::to_string(i);
    const bool done = folder.Exists(name + ".wav");
    EXPECT_NE(done, folder.Exists(name + ".WAV")) << name;
    if (done) ++renamed;
  }
  EXPECT_GT(renamed, 0);
  EXPECT_LT(renamed, kFiles);
}

}  // namespace
}  // namespace quillon::test
