#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>

#include "desktop/OtherInstance.h"
#include "desktop/linux/Environment.h"
#include "desktop/linux/PrivateBus.h"
#include "platform/desktop/SingleInstance.h"
#include "support/Growth.h"

namespace quillon {
namespace {

constexpr const char* kTitle = "Quillon";

std::unique_ptr<SingleInstance> Start(const std::string& title = kTitle) {
  return MakeSingleInstance(title, "");
}

/// Lets the message loop run while another instance starts.
test::ProcessResult RunOtherMeanwhile() {
  auto other = std::async(std::launch::async, [] { return test::RunOtherInstance(kTitle, ""); });
  while (other.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
    g_main_context_iteration(nullptr, FALSE);
  }
  return other.get();
}

class SingleInstanceOnABus : public testing::Test {
 protected:
  void SetUp() override {
    if (bus_.Address().empty()) GTEST_SKIP() << "needs the program dbus-daemon";
  }

  test::PrivateBus bus_;
  test::ScopedVariable address_{"DBUS_SESSION_BUS_ADDRESS", bus_.Address()};
  test::ScopedVariable display_{"DISPLAY", ":77"};
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

TEST_F(SingleInstanceOnABus, TheFirstIsAskedForwardOnce) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  const double seconds = test::Seconds([] { EXPECT_EQ(RunOtherMeanwhile().output, test::kLater); });
  EXPECT_EQ(raised, 1);
  EXPECT_LT(seconds, 1.5) << "the later instance waited in vain for the answer";
}

TEST_F(SingleInstanceOnABus, AFirstThatDoesNotCareIsLeftAlone) {
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
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
  EXPECT_EQ(raised, 1) << "the busy one learns of it afterwards";
}

TEST_F(SingleInstanceOnABus, TheFirstDoesNotAskItself) {
  const auto first = Start();
  int raised = 0;
  first->OnRaise([&raised] { ++raised; });
  first->BringFirstForward();
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
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

TEST_F(SingleInstanceOnABus, IsFoundOutAtOnce) {
  EXPECT_LT(test::Seconds([] { EXPECT_TRUE(Start()->IsFirst()); }), 0.5);
}

TEST(SingleInstanceWithoutABus, EveryInstanceIsTheFirst) {
  const test::ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const test::ScopedVariable folder("XDG_RUNTIME_DIR", std::nullopt);
  const auto first = Start();
  const auto second = Start();
  EXPECT_TRUE(first->IsFirst());
  EXPECT_TRUE(second->IsFirst());
  second->BringFirstForward();
}

}  // namespace
}  // namespace quillon
