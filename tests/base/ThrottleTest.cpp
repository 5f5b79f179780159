#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "base/Throttle.h"

namespace quillon {
namespace {

TEST(Throttle, IsDueForTheFirstCallButNotTheNext) {
  Throttle throttle(std::chrono::hours(1));
  EXPECT_TRUE(throttle.Due());
  EXPECT_FALSE(throttle.Due());
  EXPECT_FALSE(throttle.Due());
}

TEST(Throttle, IsDueAgainAfterTheInterval) {
  constexpr std::chrono::milliseconds kInterval(5);
  Throttle throttle(kInterval);
  EXPECT_TRUE(throttle.Due());
  std::this_thread::sleep_for(kInterval);
  EXPECT_TRUE(throttle.Due());
}

TEST(Throttle, IsAlwaysDueWithoutAnInterval) {
  Throttle throttle(std::chrono::milliseconds(0));
  EXPECT_TRUE(throttle.Due());
  EXPECT_TRUE(throttle.Due());
}

}  // namespace
}  // namespace quillon
