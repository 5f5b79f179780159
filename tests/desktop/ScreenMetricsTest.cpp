#include <gtest/gtest.h>

#include "desktop/Display.h"
#include "platform/desktop/ScreenMetrics.h"

namespace quillon {
namespace {

TEST(ScreenMetrics, AreThreeNumbersWithSingleSpacesBetween) {
  EXPECT_EQ(ScreenMetricsText({1024, 768, 32}), "1024 768 32");
  EXPECT_EQ(ScreenMetricsText({}), "0 0 0");
}

TEST(ScreenMetrics, TextIsNeverSmallerThanTheScreensResolutionMakesIt) {
  if (!test::ConnectToDisplay()) GTEST_SKIP() << "needs a display";
  EXPECT_GE(QueryTextScale(), 1);
  EXPECT_LE(QueryTextScale(), 10);
}

TEST(ScreenMetrics, DescribeTheScreen) {
  if (!test::ConnectToDisplay()) GTEST_SKIP() << "needs a display";
  const ScreenMetrics screen = QueryScreen();
  EXPECT_GE(screen.width, 320);
  EXPECT_GE(screen.height, 200);
  EXPECT_GE(screen.bitsPerPixel, 8);
  EXPECT_LE(screen.bitsPerPixel, 64);
  EXPECT_EQ(ScreenMetricsText(), ScreenMetricsText(screen));
}

}  // namespace
}  // namespace quillon
