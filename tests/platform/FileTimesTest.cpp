#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <ctime>
#include <limits>

#include "platform/FileSystem.h"
#include "platform/LocalTime.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

TEST(FileTimes, TheStatusHoldsWhenTheFileWasLastChanged) {
  test::TempFolder folder;
  folder.Write("a.mid", "a");
  const auto files = MakeFileReads();
  for (const std::int64_t moment : {std::int64_t{86400}, std::int64_t{1049519229}, std::int64_t{4102444800}}) {
    const std::chrono::sys_seconds time{std::chrono::seconds(moment)};
    folder.SetModified("a.mid", time);
    EXPECT_EQ(files->Status(folder.At("a.mid"))->modified, moment);
  }
}

TEST(FileTimes, LocalTimeIsWhatTheClocksShow) {
  std::tm time = {};
  time.tm_year = 103;
  time.tm_mon = 3;
  time.tm_mday = 5;
  time.tm_hour = 6;
  time.tm_min = 7;
  time.tm_sec = 9;
  time.tm_isdst = -1;
  const auto local = LocalTime(std::mktime(&time));
  ASSERT_TRUE(local);
  EXPECT_EQ(local->tm_year, 103);
  EXPECT_EQ(local->tm_mon, 3);
  EXPECT_EQ(local->tm_mday, 5);
  EXPECT_EQ(local->tm_hour, 6);
  EXPECT_EQ(local->tm_min, 7);
  EXPECT_EQ(local->tm_sec, 9);
  EXPECT_FALSE(LocalTime(std::numeric_limits<std::int64_t>::max()));
}

}  // namespace
}  // namespace quillon
