#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/ContentOf.h"
#include "platform/FileSystem.h"
#include "platform/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

std::wstring Wide(const std::string& path) {
  return ToWide(path).value_or(L"");
}

WIN32_FILE_ATTRIBUTE_DATA DataOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  EXPECT_TRUE(::GetFileAttributesExW(Wide(path).c_str(), GetFileExInfoStandard, &data)) << path;
  return data;
}

/// Under Wine drive Z: is the Linux root folder, which contains a volume in memory; the temporary folder is never on
/// it.
class MoveAcrossVolumes : public testing::Test {
 protected:
  void SetUp() override {
    if (!::CreateDirectoryW(Wide(there_).c_str(), nullptr)) GTEST_SKIP() << "no second volume is known here";
    const std::string probe = here_.Write("probe", "");
    const bool apart = !::MoveFileExW(Wide(probe).c_str(), Wide(there_ + "probe").c_str(), 0) &&
                       ::GetLastError() == ERROR_NOT_SAME_DEVICE;
    if (!apart) GTEST_SKIP() << "both folders are on one volume";
  }

  void TearDown() override {
    for (const char* name : {"song.mid", "probe"}) {
      ::SetFileAttributesW(Wide(there_ + name).c_str(), FILE_ATTRIBUTE_NORMAL);
      ::DeleteFileW(Wide(there_ + name).c_str());
    }
    ::RemoveDirectoryW(Wide(there_).c_str());
  }

  FileOutcome Move() {
    const MoveOutcome outcome = MakeFileChanges()->Move(here_.At("song.mid"), there_ + "song.mid");
    return outcome ? FileOutcome() : FileOutcome(outcome.Failure());
  }

  [[nodiscard]] std::size_t CountThere() const {
    const auto entries = MakeFileReads()->ReadFolder(there_);
    EXPECT_TRUE(entries.Ok());
    return entries ? entries->size() : 0;
  }

  TempFolder here_;
  std::string there_ = "Z:\\dev\\shm\\quillon-test-" + std::to_string(::GetCurrentProcessId()) + "\\";
};

TEST_F(MoveAcrossVolumes, TheFileIsAtTheNewPathOnlyWithItsTimes) {
  const std::string from = here_.Write("song.mid", "content");
  const FILETIME old = {0, 0x01C00000};
  {
    const Handle file(::CreateFileW(Wide(from).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(::SetFileTime(file.Get(), nullptr, nullptr, &old));
  }
  EXPECT_EQ(Move(), std::nullopt);
  EXPECT_FALSE(here_.Exists("song.mid"));
  EXPECT_EQ(ContentOf(there_ + "song.mid"), "content");
  EXPECT_EQ(DataOf(there_ + "song.mid").ftLastWriteTime.dwHighDateTime, old.dwHighDateTime);
  EXPECT_EQ(CountThere(), 1U);
}

/// Cancels the copying, or throws, after this many bytes.
struct Ending final : Progress {
  Ending(std::uint64_t bytes, bool byThrowing) : limit(bytes), throws(byThrowing) {}
  bool Continue() override { return true; }
  bool Continue(std::size_t copied, std::size_t, const std::string&) override {
    if (copied < limit) return true;
    if (throws) throw std::runtime_error("unexpected");
    return false;
  }
  std::uint64_t limit;
  bool throws;
};

// Wine copies a whole file at once, so under Wine the copying is cancelled at its end.
TEST_F(MoveAcrossVolumes, ACancelledCopyLeavesNothingBehind) {
  constexpr std::uint64_t kSize = 3 << 20;
  const std::string content(kSize, 'x');
  const std::string from = here_.Write("song.mid", content);
  for (const std::uint64_t limit : {std::uint64_t{0}, std::uint64_t{1}, kSize}) {
    for (const bool throws : {false, true}) {
      Ending ending(limit, throws);
      const auto move = [&] { return MakeFileChanges()->Move(from, there_ + "song.mid", &ending); };
      if (throws) {
        EXPECT_THROW(static_cast<void>(move()), std::runtime_error) << limit;
      } else {
        const MoveOutcome outcome = move();
        EXPECT_TRUE(!outcome && outcome.Failure().number == file_error::kCancelled) << limit;
      }
      EXPECT_EQ(CountThere(), 0u) << limit;
      EXPECT_TRUE(here_.Read("song.mid") == content) << limit;
    }
  }
  Ending never(kSize + 1, false);
  EXPECT_TRUE(MakeFileChanges()->Move(from, there_ + "song.mid", &never));
  EXPECT_EQ(CountThere(), 1u);
}

TEST_F(MoveAcrossVolumes, AReadOnlyFileIsMovedAndStaysReadOnly) {
  const std::string from = here_.Write("song.mid", "content");
  ASSERT_TRUE(::SetFileAttributesW(Wide(from).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(Move(), std::nullopt);
  EXPECT_FALSE(here_.Exists("song.mid"));
  EXPECT_NE(DataOf(there_ + "song.mid").dwFileAttributes & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(MoveAcrossVolumes, NothingIsEverReplaced) {
  here_.Write("song.mid", "mine");
  ASSERT_EQ(ReplaceWholeFile(there_ + "song.mid", "yours"), std::nullopt);
  const FileOutcome outcome = Move();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAlreadyExists);
  EXPECT_EQ(here_.Read("song.mid"), "mine");
  EXPECT_EQ(ContentOf(there_ + "song.mid"), "yours");
}

TEST_F(MoveAcrossVolumes, ASourceThatIsBeingWrittenStays) {
  const std::string from = here_.Write("song.mid", "content");
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const Handle writer(::CreateFileW(Wide(from).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(writer.Open());
  const FileOutcome outcome = Move();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAccess);
  EXPECT_EQ(CountThere(), 0U);
}

TEST_F(MoveAcrossVolumes, AnAbsentSourceIsNotFound) {
  const FileOutcome outcome = Move();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kNotFound);
}

}  // namespace
}  // namespace quillon::test
