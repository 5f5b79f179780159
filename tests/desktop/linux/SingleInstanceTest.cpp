#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <string>

#include "desktop/OtherInstance.h"
#include "desktop/linux/Environment.h"
#include "desktop/linux/PrivateBus.h"
#include "platform/Program.h"
#include "platform/desktop/SingleInstance.h"
#include "support/Growth.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

constexpr const char* kTitle = "Quillon";

std::unique_ptr<SingleInstance> Start(const std::string& title = kTitle) {
  return MakeSingleInstance(title, "");
}

/// Runs the message loop while another instance starts.
test::ProcessResult RunOtherMeanwhile() {
  auto other = std::async(std::launch::async, [] { return test::RunOtherInstance(kTitle, ""); });
  while (other.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
    g_main_context_iteration(nullptr, FALSE);
  }
  return other.get();
}

/// The file with this ending; "" when there is none.
std::string FileWith(const std::string& folder, const std::string& ending) {
  std::string found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().string().ends_with(ending)) found = entry.path().string();
  }
  return found;
}

/// Processes everything that was sent to this process.
void HandleMessages() {
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
}

/// A session folder and a settings folder, with paths short enough for a socket.
class SingleInstanceTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  std::string runtime_ = folder_.MakeFolder("run");
  std::string settings_ = folder_.MakeFolder("config");
  test::ScopedVariable runtimeFolder_{"XDG_RUNTIME_DIR", runtime_};
  test::ScopedVariable settingsFolder_{"XDG_CONFIG_HOME", settings_};
  test::ScopedVariable display_{"DISPLAY", ":77"};
};

class SingleInstanceOnABus : public SingleInstanceTest {
 protected:
  void SetUp() override {
    if (bus_.Address().empty()) GTEST_SKIP() << "needs the program dbus-daemon";
  }

  test::PrivateBus bus_;
  test::ScopedVariable address_{"DBUS_SESSION_BUS_ADDRESS", bus_.Address()};
};

TEST_F(SingleInstanceOnABus, TheSecondIsNotTheFirst) {
  const auto first = Start();
  const auto second = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_FALSE(second->IsFirst());
}

TEST_F(SingleInstanceOnABus, AProcessFindsTheOtherOneAndEnds) {
  const auto first = Start();
  const test::ProcessResult other = RunOtherMeanwhile();
  EXPECT_EQ(other.exitCode, 0);
  EXPECT_EQ(other.output, test::kLater);
}

TEST_F(SingleInstanceOnABus, TheFirstIsRaisedOnce) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  const double seconds = test::Seconds([] { EXPECT_EQ(RunOtherMeanwhile().output, test::kLater); });
  EXPECT_EQ(raised, 1);
  EXPECT_LT(seconds, 1.5) << "the later instance waited in vain for the answer";
}

TEST_F(SingleInstanceOnABus, AFirstWithoutARaiseHandlerIsAllowed) {
  const auto first = Start();
  EXPECT_EQ(RunOtherMeanwhile().exitCode, 0);
}

TEST_F(SingleInstanceOnABus, ALaterInstanceDoesNotWaitForABusyOne) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  const double seconds = test::Seconds([] { EXPECT_EQ(test::RunOtherInstance(kTitle, "").output, test::kLater); });
  EXPECT_LT(seconds, 5.0);
  EXPECT_EQ(raised, 0);
  HandleMessages();
  EXPECT_EQ(raised, 1) << "the busy one learns of it afterwards";
}

TEST_F(SingleInstanceOnABus, TheFirstDoesNotAskItself) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  first->BringFirstForward();
  HandleMessages();
  EXPECT_EQ(raised, 0);
}

TEST_F(SingleInstanceOnABus, AnotherDisplayHasItsOwnFirst) {
  const auto first = Start();
  const test::ScopedVariable display("DISPLAY", ":78");
  EXPECT_TRUE(Start()->IsFirst());
}

TEST_F(SingleInstanceOnABus, AnotherProgramHasItsOwnFirst) {
  const auto first = Start();
  EXPECT_TRUE(Start("日本語 1")->IsFirst());
}

TEST_F(SingleInstanceOnABus, TheNextIsFirstAfterTheFirstHasEnded) {
  auto first = Start();
  EXPECT_FALSE(Start()->IsFirst());
  first.reset();
  EXPECT_TRUE(Start()->IsFirst());
}

TEST_F(SingleInstanceOnABus, IsDetectedAtOnce) {
  EXPECT_LT(test::Seconds([] { EXPECT_TRUE(Start()->IsFirst()); }), 0.5);
}

TEST_F(SingleInstanceOnABus, IsSeenByOneThatReachesNoBus) {
  auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  const test::ScopedVariable noBus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  EXPECT_EQ(test::RunOtherInstance(kTitle, "").output, test::kLater);
  HandleMessages();
  EXPECT_EQ(raised, 1);
  first.reset();
  EXPECT_TRUE(Start()->IsFirst());
}

TEST_F(SingleInstanceOnABus, SeesOneThatReachesNoBus) {
  std::unique_ptr<SingleInstance> first;
  {
    const test::ScopedVariable noBus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    first = Start();
  }
  ASSERT_TRUE(first->IsFirst());
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  const auto later = Start();
  EXPECT_FALSE(later->IsFirst());
  EXPECT_EQ(test::RunOtherInstance(kTitle, "").output, test::kLater);
  HandleMessages();
  EXPECT_EQ(raised, 1);
  first.reset();
  EXPECT_TRUE(Start()->IsFirst()) << "the later one has kept neither the name nor the lock";
}

TEST_F(SingleInstanceOnABus, AFileThatNobodyHoldsMeansNothing) {
  // The state that a killed process leaves.
  if (::fork() == 0) {
    const test::ScopedVariable noBus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const auto killed = Start();
    ::raise(SIGKILL);
  }
  int status = 0;
  ::wait(&status);
  EXPECT_TRUE(WIFSIGNALED(status));
  ASSERT_THAT(FileWith(runtime_, ".lock"), testing::Not(testing::IsEmpty()));
  EXPECT_TRUE(Start()->IsFirst());
  EXPECT_EQ(FileWith(runtime_, ".lock"), "") << "the next one took it over, and away at its end";
}

TEST_F(SingleInstanceOnABus, TheNameServesWhereNoFileCanBeMade) {
  const test::ScopedVariable runtime("XDG_RUNTIME_DIR", std::nullopt);
  const test::ScopedVariable settings("XDG_CONFIG_HOME", "/proc/none");
  const auto first = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_FALSE(Start()->IsFirst());
}

class SingleInstanceWithoutABus : public SingleInstanceTest {
 protected:
  test::ScopedVariable address_{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
};

TEST_F(SingleInstanceWithoutABus, TheSecondIsNotTheFirst) {
  const auto first = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_FALSE(Start()->IsFirst());
  EXPECT_EQ(RunOtherMeanwhile().output, test::kLater);
  EXPECT_FALSE(Start()->IsFirst()) << "a later instance that ended took nothing with it";
}

TEST_F(SingleInstanceWithoutABus, TheFirstIsRaisedOnceWithoutWaiting) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  EXPECT_EQ(test::RunOtherInstance(kTitle, "").exitCode, 0);
  EXPECT_EQ(raised, 0) << "it is busy";
  HandleMessages();
  EXPECT_EQ(raised, 1);
}

/// What a later instance sends; received in place of the first one.
std::string SentToTheFirst(const std::string& runtimeFolder) {
  const auto first = Start();
  const std::string path = FileWith(runtimeFolder, ".socket");
  ::unlink(path.c_str());
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof(address.sun_path) - 1);
  const int receiver = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
  EXPECT_EQ(::bind(receiver, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  Start()->BringFirstForward();
  std::string sent(100, '\0');
  const ssize_t length = ::recv(receiver, sent.data(), sent.size(), 0);
  ::close(receiver);
  EXPECT_GE(length, 0);
  sent.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return sent;
}

TEST_F(SingleInstanceWithoutABus, ALaterOnePassesOnItsPermissionToComeForward) {
  const test::ScopedVariable id("DESKTOP_STARTUP_ID", "id_TIME7");
  const test::ScopedVariable token("XDG_ACTIVATION_TOKEN", "token");
  {
    const test::ScopedVariable x11("WAYLAND_DISPLAY", std::nullopt);
    EXPECT_EQ(SentToTheFirst(runtime_), "id_TIME7");
  }
  const test::ScopedVariable wayland("WAYLAND_DISPLAY", "wayland-0");
  EXPECT_EQ(SentToTheFirst(runtime_), "token");
  const test::ScopedVariable none("XDG_ACTIVATION_TOKEN", std::nullopt);
  EXPECT_EQ(SentToTheFirst(runtime_), "id_TIME7");
}

TEST_F(SingleInstanceWithoutABus, AFirstWithoutARaiseHandlerIsAllowed) {
  const auto first = Start();
  EXPECT_EQ(RunOtherMeanwhile().exitCode, 0);
}

TEST_F(SingleInstanceWithoutABus, AnUnlockedFileMeansNothing) {
  { const auto first = Start(); }
  for (const char* file : {"lock", "socket"}) {
    EXPECT_EQ(FileWith(folder_.Path(), file), "") << "left behind at the end";
  }
  // The state that a killed process leaves.
  if (::fork() == 0) {
    const auto killed = Start();
    ::raise(SIGKILL);
  }
  int status = 0;
  ::wait(&status);
  EXPECT_TRUE(WIFSIGNALED(status));
  for (const char* file : {"lock", "socket"}) EXPECT_THAT(FileWith(runtime_, file), testing::Not(testing::IsEmpty()));
  const auto next = Start();
  EXPECT_TRUE(next->IsFirst());
  int raised = 0;
  next->OnRaise([&raised] { ++raised; });
  EXPECT_EQ(RunOtherMeanwhile().output, test::kLater);
  HandleMessages();
  EXPECT_EQ(raised, 1);
}

TEST_F(SingleInstanceWithoutABus, TheNextIsFirstAfterTheFirstHasEnded) {
  auto first = Start();
  EXPECT_FALSE(Start()->IsFirst());
  first.reset();
  EXPECT_TRUE(Start()->IsFirst());
}

TEST_F(SingleInstanceWithoutABus, AnotherDisplayAndAnotherProgramHaveTheirOwnFirst) {
  const auto first = Start();
  EXPECT_TRUE(Start("日本語 1")->IsFirst());
  const test::ScopedVariable display("DISPLAY", ":78");
  EXPECT_TRUE(Start()->IsFirst());
}

TEST_F(SingleInstanceWithoutABus, WithoutASessionFolderTheSettingsFolderIsUsed) {
  for (const std::optional<std::string>& none :
       {std::optional<std::string>(), std::optional(folder_.At("not there"))}) {
    const test::ScopedVariable runtime("XDG_RUNTIME_DIR", none);
    const auto first = Start();
    EXPECT_TRUE(first->IsFirst());
    EXPECT_THAT(FileWith(settings_, ".lock"), testing::StartsWith(settings_ + ProgramBaseName() + "/"));
    EXPECT_EQ(RunOtherMeanwhile().output, test::kLater);
  }
}

TEST_F(SingleInstanceWithoutABus, WhereNoFileCanBeMadeEveryInstanceIsTheFirst) {
  const test::ScopedVariable runtime("XDG_RUNTIME_DIR", std::nullopt);
  const test::ScopedVariable settings("XDG_CONFIG_HOME", "/proc/none");
  const auto first = Start();
  const auto second = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_TRUE(second->IsFirst());
  second->BringFirstForward();
}

TEST_F(SingleInstanceWithoutABus, APathTooLongForASocketStillHasOneFirst) {
  const test::ScopedVariable runtime("XDG_RUNTIME_DIR", folder_.MakeFolder(std::string(120, 'a')));
  const auto first = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_EQ(RunOtherMeanwhile().output, test::kLater);
}

}  // namespace
}  // namespace quillon
