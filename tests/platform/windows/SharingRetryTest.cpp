#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SharingRetry.h"
#include "platform/windows/Wide.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

/// Fails this many times with the system's error number, then succeeds.
struct Attempts {
  DWORD number = ERROR_SHARING_VIOLATION;
  int failures = 0;
  int made = 0;

  bool Run() {
    return RetrySharing([this] {
      ::SetLastError(number);
      return ++made > failures ? TRUE : FALSE;
    });
  }
};

TEST(SharingRetry, ASuccessIsNotRepeated) {
  Attempts attempts;
  EXPECT_TRUE(attempts.Run());
  EXPECT_EQ(attempts.made, 1);
}

TEST(SharingRetry, ViolationsAreRetried) {
  for (const DWORD number : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_UNABLE_TO_REMOVE_REPLACED}) {
    Attempts attempts = {number, 10};
    EXPECT_TRUE(attempts.Run()) << number;
    EXPECT_EQ(attempts.made, 11) << number;
  }
}

TEST(SharingRetry, EndsAfterAQuarterOfASecondWithTheLastReason) {
  Attempts attempts = {ERROR_LOCK_VIOLATION, 1000};
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(attempts.Run());
  EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_LOCK_VIOLATION));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
  EXPECT_EQ(attempts.made, 11);
}

TEST(SharingRetry, OtherFailuresAreFinal) {
  for (const DWORD number : {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_UNABLE_TO_MOVE_REPLACEMENT,
                             ERROR_UNABLE_TO_MOVE_REPLACEMENT_2}) {
    Attempts attempts = {number, 1000};
    EXPECT_FALSE(attempts.Run());
    EXPECT_EQ(attempts.made, 1) << number;
    EXPECT_EQ(::GetLastError(), number);
  }
}

/// A small file that another program has open exclusively, permanently or for a moment.
class HeldFile : public testing::Test {
 protected:
  [[nodiscard]] Handle Hold() const {
    return Handle(::CreateFileW(ToWide(path_)->c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  }

  [[nodiscard]] std::thread HoldForAMoment() const {
    Handle held = Hold();
    EXPECT_TRUE(held.Open());
    return std::thread([held = std::move(held)]() mutable {
      ::Sleep(60);
      held.Close();
    });
  }

  /// True when one of the program's temporary files is left. Wine's ReplaceFile leaves its own files (rf*.tmp) when it
  /// fails; these do not count.
  [[nodiscard]] bool HasTemporary() const {
    const auto entries = MakeFileReads()->ReadFolder(folder_.Path());
    return entries && std::any_of(entries->begin(), entries->end(),
                                  [](const FolderEntry& entry) { return entry.name.starts_with(".quillon-"); });
  }

  TempFolder folder_;
  std::string path_ = folder_.Write("file.ini", "old");
};

TEST_F(HeldFile, IsReadWhenItIsClosed) {
  std::thread other = HoldForAMoment();
  const Result<std::string, ReadFailure> read = ReadWholeFile(path_, 100);
  other.join();
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, "old");
}

TEST_F(HeldFile, IsReplacedWhenItIsClosed) {
  std::thread other = HoldForAMoment();
  const FileOutcome outcome = ReplaceWholeFile(path_, "new");
  other.join();
  EXPECT_EQ(outcome, std::nullopt);
  EXPECT_EQ(folder_.Read("file.ini"), "new");
}

TEST_F(HeldFile, IsNeitherReadNorReplacedWhileItIsOpen) {
  {
    const Handle held = Hold();
    const Result<std::string, ReadFailure> read = ReadWholeFile(path_, 100);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure(), ReadFailure::kUnreadable);
    EXPECT_TRUE(ReplaceWholeFile(path_, "new"));
  }
  EXPECT_EQ(folder_.Read("file.ini"), "old");
  EXPECT_FALSE(HasTemporary());
}

}  // namespace
}  // namespace quillon::test
