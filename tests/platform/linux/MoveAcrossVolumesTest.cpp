#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

int NumberOf(const MoveOutcome& outcome) {
  return outcome ? 0 : outcome.Failure().number;
}

int Move(const std::string& from, const std::string& to) {
  return NumberOf(MakeFileChanges()->Move(from, to));
}

dev_t DeviceOf(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

struct stat StatusOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status;
}

/// A folder on the volume in memory, which nearly every Linux system has as a second volume.
class MoveAcrossVolumes : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = "/dev/shm/quillon-test-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) GTEST_SKIP() << "/dev/shm cannot be written";
    there_ = name + "/";
    if (DeviceOf(there_) == DeviceOf(here_.Path())) GTEST_SKIP() << "/dev/shm is on the same volume";
    ASSERT_EQ(::chmod(here_.Path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(there_.c_str(), 0777), 0);
  }

  void TearDown() override {
    std::error_code ignored;
    if (!there_.empty()) fs::remove_all(there_, ignored);
  }

  [[nodiscard]] std::vector<std::string> NamesThere() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(there_)) names.push_back(entry.path().filename().string());
    return names;
  }

  TempFolder here_;
  std::string there_;
};

TEST_F(MoveAcrossVolumes, TheFileIsAtTheNewPathOnlyWithItsContent) {
  const std::string from = here_.Write("曲.mid", std::string(3'000'000, 'x') + "end");
  EXPECT_EQ(Move(from, there_ + "曲.mid"), 0);
  EXPECT_FALSE(here_.Exists("曲.mid"));
  EXPECT_EQ(OpenSystemFile(there_ + "曲.mid")->Read(2'999'999, 10), "xend");
  EXPECT_THAT(NamesThere(), testing::ElementsAre("曲.mid"));
}

/// Cancels the copying after this many bytes.
struct Until final : Progress {
  explicit Until(std::uint64_t bytes) : limit(bytes) {}
  bool Continue() override { return true; }
  bool Continue(std::size_t copied, std::size_t, const std::string&) override {
    told.push_back(copied);
    return copied < limit;
  }
  std::uint64_t limit;
  std::vector<std::uint64_t> told;
};

constexpr std::uint64_t kMebibyte = 1u << 20u;

TEST_F(MoveAcrossVolumes, ProgressIsReportedPieceByPiece) {
  const std::string from = here_.Write("song", std::string(2 * kMebibyte + 5, 'x'));
  Until never(100 * kMebibyte);
  EXPECT_EQ(NumberOf(MakeFileChanges()->Move(from, there_ + "song", &never)), 0);
  EXPECT_THAT(never.told, testing::ElementsAre(0u, kMebibyte, 2 * kMebibyte, 2 * kMebibyte + 5));
  Until within(100 * kMebibyte);
  EXPECT_EQ(NumberOf(MakeFileChanges()->Move(there_ + "song", there_ + "other", &within)), 0);
  EXPECT_THAT(within.told, testing::IsEmpty()) << "nothing is copied within a volume";
}

TEST_F(MoveAcrossVolumes, ACancelledCopyLeavesNothingBehind) {
  const std::string content(3 * kMebibyte, 'x');
  const std::string from = here_.Write("song", content);
  for (const std::uint64_t limit : {std::uint64_t{0}, kMebibyte, 3 * kMebibyte}) {
    Until cancelled(limit);
    EXPECT_EQ(NumberOf(MakeFileChanges()->Move(from, there_ + "song", &cancelled)), file_error::kCancelled) << limit;
    EXPECT_THAT(NamesThere(), testing::IsEmpty()) << limit;
    EXPECT_TRUE(here_.Read("song") == content) << limit;
  }
  EXPECT_EQ(Move(from, there_ + "song"), 0) << "and the file can be moved later";
}

TEST_F(MoveAcrossVolumes, AnExceptionInTheMiddleLeavesNothingBehind) {
  struct Throwing final : Progress {
    bool Continue() override { return true; }
    bool Continue(std::size_t copied, std::size_t, const std::string&) override {
      if (copied > 0) throw std::runtime_error("unexpected");
      return true;
    }
  } throwing;
  const std::string from = here_.Write("song", "content");
  EXPECT_THROW(static_cast<void>(MakeFileChanges()->Move(from, there_ + "song", &throwing)), std::runtime_error);
  EXPECT_THAT(NamesThere(), testing::IsEmpty());
  EXPECT_EQ(here_.Read("song"), "content");
}

TEST_F(MoveAcrossVolumes, AnEmptyFileIsMovedToo) {
  EXPECT_EQ(Move(here_.Write("empty", ""), there_ + "empty"), 0);
  EXPECT_EQ(StatusOf(there_ + "empty").st_size, 0);
}

TEST_F(MoveAcrossVolumes, TimesPermissionsAndOwnerAreKept) {
  const std::string from = here_.Write("file", "content");
  ASSERT_EQ(::chmod(from.c_str(), 0640), 0);
  const bool givenAway = ::geteuid() != 0 || ::chown(from.c_str(), 12, 34) == 0;
  ASSERT_TRUE(givenAway);
  const std::array<timespec, 2> times = {timespec{1'000'000'000, 123'456'789}, timespec{1'100'000'000, 987'654'321}};
  ASSERT_EQ(::utimensat(AT_FDCWD, from.c_str(), times.data(), 0), 0);
  const struct stat before = StatusOf(from);
  EXPECT_EQ(Move(from, there_ + "file"), 0);
  const struct stat after = StatusOf(there_ + "file");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
  EXPECT_EQ(after.st_mtim.tv_sec, 1'100'000'000);
  EXPECT_EQ(after.st_mtim.tv_nsec, 987'654'321);
  EXPECT_EQ(after.st_atim.tv_sec, 1'000'000'000);
  EXPECT_EQ(after.st_atim.tv_nsec, 123'456'789);
}

TEST_F(MoveAcrossVolumes, ExtendedAttributesAreKeptWhereBothVolumesHaveThem) {
  const std::string from = here_.Write("file", "content");
  const std::string probe = there_ + "probe";
  ASSERT_EQ(::mknod(probe.c_str(), S_IFREG | 0600, 0), 0);
  const bool both = ::setxattr(from.c_str(), "user.comment", "hello", 5, 0) == 0 &&
                    ::setxattr(probe.c_str(), "user.comment", "hello", 5, 0) == 0;
  if (!both) GTEST_SKIP() << "one of the volumes has no extended attributes";
  EXPECT_EQ(Move(from, there_ + "file"), 0);
  std::array<char, 5> value = {};
  EXPECT_EQ(::getxattr((there_ + "file").c_str(), "user.comment", value.data(), value.size()), 5);
  EXPECT_EQ(std::string(value.data(), value.size()), "hello");
}

TEST_F(MoveAcrossVolumes, ALinkIsMovedItself) {
  ASSERT_EQ(::symlink("nowhere/曲", here_.At("link").c_str()), 0);
  const std::array<timespec, 2> times = {timespec{1'500'000'000, 0}, timespec{1'600'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, here_.At("link").c_str(), times.data(), AT_SYMLINK_NOFOLLOW), 0);
  EXPECT_EQ(Move(here_.At("link"), there_ + "link"), 0);
  EXPECT_FALSE(here_.Exists("link"));
  EXPECT_EQ(fs::read_symlink(there_ + "link").string(), "nowhere/曲");
  struct stat moved = {};
  ASSERT_EQ(::lstat((there_ + "link").c_str(), &moved), 0);
  EXPECT_EQ(moved.st_mtim.tv_sec, times[1].tv_sec);
}

TEST_F(MoveAcrossVolumes, NothingIsEverReplaced) {
  const std::string from = here_.Write("file", "mine");
  ASSERT_EQ(::symlink("nowhere", (there_ + "file").c_str()), 0);
  EXPECT_EQ(Move(from, there_ + "file"), file_error::kAlreadyExists);
  EXPECT_EQ(here_.Read("file"), "mine");
  EXPECT_EQ(fs::read_symlink(there_ + "file").string(), "nowhere");
  EXPECT_EQ(NamesThere().size(), 1U);
}

TEST_F(MoveAcrossVolumes, AnAbsentSourceIsNotFound) {
  EXPECT_EQ(Move(here_.At("absent"), there_ + "absent"), file_error::kNotFound);
  EXPECT_EQ(Move(here_.Write("file", ""), there_ + "absent/file"), file_error::kNotFound);
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, AFolderIsNotMoved) {
  here_.MakeFolder("folder");
  EXPECT_EQ(NumberOf(MakeFileChanges()->Move(here_.At("folder"), there_ + "folder")), file_error::kOwn + EXDEV);
  EXPECT_TRUE(here_.Exists("folder"));
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, ATargetFolderThatMayNotBeWrittenLeavesTheSource) {
  const std::string from = here_.Write("file", "content");
  ASSERT_EQ(::chmod(there_.c_str(), 0555), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return Move(from, there_ + "file"); }), file_error::kAccess);
  EXPECT_EQ(here_.Read("file"), "content");
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, TheCopyOfASourceThatMayNotBeDeletedIsRemoved) {
  const std::string from = here_.Write("locked/file", "content");
  ASSERT_EQ(::chmod(here_.At("locked").c_str(), 0555), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return Move(from, there_ + "file"); }), file_error::kAccess);
  EXPECT_EQ(::chmod(here_.At("locked").c_str(), 0755), 0);
  EXPECT_EQ(here_.Read("locked/file"), "content");
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, ASourceThatMayNotBeReadLeavesNothingThere) {
  const std::string from = here_.Write("file", "content");
  ASSERT_EQ(::chmod(from.c_str(), 0), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return Move(from, there_ + "file"); }), file_error::kAccess);
  EXPECT_TRUE(here_.Exists("file"));
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, AFileThatGrowsTooLargeLeavesTheSource) {
  const std::string from = here_.Write("file", std::string(100'000, 'x'));
  const int result = RunInChild([&] {
    const rlimit limit = {5000, 5000};
    if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotSetUp;
    return Move(from, there_ + "file") == file_error::kOwn + EFBIG ? 0 : 1;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(here_.Read("file").size(), 100'000U);
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(MoveAcrossVolumes, AFullDiskLeavesOnlyTheSource) {
  const std::string from = here_.Write("file", std::string(1'000'000, 'x'));
  const int result = RunInChild([&] {
    if (!MountPrivately("tmpfs", "none", there_, "size=128k")) return kCannotSetUp;
    if (Move(from, there_ + "file") != file_error::kOwn + ENOSPC) return 1;
    return NamesThere().empty() ? 0 : 2;
  });
  if (result == kCannotSetUp) GTEST_SKIP() << "no small volume can be mounted without root";
  EXPECT_EQ(result, 0);
  EXPECT_EQ(here_.Read("file").size(), 1'000'000U);
}

TEST_F(MoveAcrossVolumes, AReadOnlyVolumeLeavesTheSource) {
  const std::string from = here_.Write("file", "content");
  const int result = RunInChild([&] {
    if (!MountPrivately("tmpfs", "none", there_, "size=128k,ro")) return kCannotSetUp;
    return Move(from, there_ + "file");
  });
  if (result == kCannotSetUp) GTEST_SKIP() << "no read-only volume can be mounted without root";
  EXPECT_EQ(result, file_error::kAccess);
  EXPECT_EQ(here_.Read("file"), "content");
}

}  // namespace
}  // namespace quillon::test
