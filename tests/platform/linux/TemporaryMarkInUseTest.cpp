#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>

#include "platform/TemporaryMark.h"
#include "platform/TemporaryName.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryMarkInUse, HoldsItsTextAndStaysWithItsFileHoweverOld) {
  const TempFolder folder;
  const auto mark = MarkTemporary(folder.Path());
  ASSERT_TRUE(mark);
  const std::string name = (*mark)->Path().substr(folder.Path().size());
  EXPECT_EQ(folder.Read(MarkName(name)), kMarkText);
  folder.Write(name, "half a copy");
  fs::last_write_time(folder.At(MarkName(name)), fs::file_time_type::clock::now() - std::chrono::hours(100));
  RemoveMarkedLeftovers(folder.Path());
  EXPECT_TRUE(folder.Exists(name));
  EXPECT_TRUE(folder.Exists(MarkName(name)));
}

constexpr const char* kName = ".quillon-0123456789ab";

/// Another program's file with a temporary file's name, beside something that only looks like a mark.
class NoMarks : public testing::Test {
 protected:
  void ExpectAllStays() const {
    const std::array<timespec, 2> old = {timespec{1, 0}, timespec{1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, mark_.c_str(), old.data(), AT_SYMLINK_NOFOLLOW), 0);
    RemoveMarkedLeftovers(folder_.At(""));
    EXPECT_TRUE(folder_.Exists(kName));
    EXPECT_TRUE(fs::exists(fs::symlink_status(mark_)));
  }

  TempFolder folder_;
  std::string file_ = folder_.Write(kName, "somebody's");
  std::string mark_ = folder_.At(MarkName(kName));
};

TEST_F(NoMarks, AreLinksToAFileWithTheText) {
  const std::string text = folder_.Write("text", kMarkText);
  fs::last_write_time(text, fs::file_time_type::clock::now() - std::chrono::hours(100));
  ASSERT_EQ(::symlink(text.c_str(), mark_.c_str()), 0);
  ExpectAllStays();
}

// Opening a pipe would wait for a writer.
TEST_F(NoMarks, ArePipes) {
  ASSERT_EQ(::mkfifo(mark_.c_str(), 0600), 0);
  ExpectAllStays();
}

// Reading this device gives no bytes, like a mark whose creation was interrupted.
TEST_F(NoMarks, AreDevices) {
  if (::mknod(mark_.c_str(), S_IFCHR | 0600, makedev(1, 3)) != 0) GTEST_SKIP() << "no device can be made without root";
  ExpectAllStays();
}

}  // namespace
}  // namespace quillon::test
