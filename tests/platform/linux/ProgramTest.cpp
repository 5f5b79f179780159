#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/Program.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/UserFolders.h"

namespace quillon::test {
namespace {

struct Pipe {
  Pipe() {
    std::array<int, 2> ends = {};
    EXPECT_EQ(::pipe(ends.data()), 0);
    reading = ends[0];
    writing = ends[1];
  }

  int reading = -1;
  int writing = -1;
};

TEST(StandardStreams, OutputArrivesByteForByte) {
  const Pipe pipe;
  const std::string bytes("曲\r\n\0\xFF", 7);
  const int result = RunInChild([&] {
    ::dup2(pipe.writing, STDOUT_FILENO);
    return WriteStandardOutput(bytes) == StreamResult::kWritten ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
  ::close(pipe.writing);
  std::array<char, 100> read = {};
  const ssize_t count = ::read(pipe.reading, read.data(), read.size());
  ::close(pipe.reading);
  ASSERT_EQ(count, 7);
  EXPECT_EQ(std::string(read.data(), 7), bytes);
}

TEST(StandardStreams, AClosedPipeIsReported) {
  const Pipe pipe;
  ::close(pipe.reading);
  const int result = RunInChild([&] {
    ::dup2(pipe.writing, STDOUT_FILENO);
    ::dup2(pipe.writing, STDERR_FILENO);
    const bool closed = WriteStandardOutput("text") == StreamResult::kClosed;
    return closed && WriteStandardError("text") == StreamResult::kClosed ? 0 : 1;
  });
  ::close(pipe.writing);
  EXPECT_EQ(result, 0) << "and not the end of the program";
}

TEST(StandardStreams, AFullDeviceIsReported) {
  const int result = RunInChild([] {
    ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO);
    return WriteStandardOutput("text") == StreamResult::kFailed ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
}

TEST(StandardStreams, InputIsReadToItsEnd) {
  const Pipe pipe;
  const std::string bytes(50'000, 'x');  // less than a pipe holds
  ASSERT_EQ(::write(pipe.writing, bytes.data(), bytes.size()), 50'000);
  ::close(pipe.writing);
  const int result = RunInChild([&] {
    ::dup2(pipe.reading, STDIN_FILENO);
    return ReadStandardInput() == bytes ? 0 : 1;
  });
  ::close(pipe.reading);
  EXPECT_EQ(result, 0);
}

TEST(Interruption, IsRememberedInsteadOfEndingTheProgram) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const int result = RunInChild([signal] {
      ::signal(SIGHUP, SIG_DFL);
      CatchInterruption();
      if (Interrupted()) return 1;
      if (::raise(signal) != 0) return 3;
      return Interrupted() ? 0 : 2;
    });
    EXPECT_EQ(result, 0) << signal;
  }
}

TEST(Interruption, IsNoClosedTerminalThatIsToBeIgnored) {
  const int result = RunInChild([] {
    ::signal(SIGHUP, SIG_IGN);
    CatchInterruption();
    if (::raise(SIGHUP) != 0) return 3;
    return Interrupted() ? 1 : 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(Interruption, EndsTheWaitForInput) {
  const Pipe pipe;
  const int result = RunInChild([&] {
    ::dup2(pipe.reading, STDIN_FILENO);
    CatchInterruption();
    const pid_t waiting = ::getpid();
    const pid_t other = ::fork();
    if (other == 0) {
      ::usleep(50'000);
      ::kill(waiting, SIGINT);
      ::_exit(0);
    }
    return ReadStandardInput().empty() && Interrupted() ? 0 : 1;
  });
  ::close(pipe.reading);
  ::close(pipe.writing);
  EXPECT_EQ(result, 0);
}

TEST(ProgramArguments, AreAllButTheProgramsName) {
  std::string name = "program";
  std::string first = "曲.mid";
  std::string second = "\x8B\xC8";
  std::array<char*, 3> all = {name.data(), first.data(), second.data()};
  EXPECT_EQ(ProgramArguments(3, all.data()), (std::vector<std::string>{first, second}));
  EXPECT_EQ(ProgramArguments(1, all.data()), std::vector<std::string>{});
}

TEST(ProgramArguments, AreThoseOfTheProcessWithoutAnArgv) {
  const std::vector<std::string> own = testing::internal::GetArgvs();
  EXPECT_EQ(ProgramArguments(0, nullptr), (std::vector<std::string>{own.begin() + 1, own.end()}));
}

TEST(UserFolders, AreFromTheVariableOrUnderTheHome) {
  const int result = RunInChild([] {
    ::setenv("HOME", "/home/user", 1);
    ::setenv("QUILLON_TEST", "/elsewhere", 1);
    if (UserFolder("QUILLON_TEST", ".test/") != "/elsewhere/") return 1;
    ::setenv("QUILLON_TEST", "relative", 1);
    if (UserFolder("QUILLON_TEST", ".test/") != "/home/user/.test/") return 2;
    ::unsetenv("QUILLON_TEST");
    if (UserFolder("QUILLON_TEST", ".test/") != "/home/user/.test/") return 3;
    ::setenv("XDG_CONFIG_HOME", "/config/", 1);
    return UserConfigurationFolder() == "/config/" ? 0 : 4;
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace quillon::test
