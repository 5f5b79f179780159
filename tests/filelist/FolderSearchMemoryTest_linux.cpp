#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "filelist/FolderSearch.h"
#include "platform/FolderOrder.h"
#include "support/RecordedProgress.h"

namespace quillon {
namespace {

constexpr int kFiles = 1000000;

std::string NameOf(int file) {
  std::array<char, 16> number{};
  // Spread over the whole range, so that the files are not read in the order of their names.
  (void)std::snprintf(number.data(), number.size(), "%07lld", file * 7919LL % 1000003);
  return std::string(number.data()) + " 荒城の月（ピアノ独奏版） 滝廉太郎 明治三十四年.mp3";
}

/// One folder of a million files; the search calls nothing else.
class HugeFolder final : public FileReads {
 public:
  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string&) override {
    std::vector<FolderEntry> entries;
    entries.reserve(kFiles);
    for (int i = 0; i < kFiles; ++i) entries.push_back({NameOf(i), false, false});
    SortAsVolumeLists(entries);
    return entries;
  }
  std::string RealPath(const std::string&) override { return {}; }
  std::unique_ptr<ByteSource> OpenFile(const std::string&) override { return nullptr; }
  Result<FileStatus, FileError> Status(const std::string&) override { return FileStatus(); }
  bool SameFile(const std::string&, const std::string&) override { return false; }
  Result<FileIdentity, FileError> Identity(const std::string&) override { return FileIdentity(); }
  NameUnit NameUnitOf(const std::string&) override { return NameUnit::kByte; }
};

/// Searches in a separate process. Its exit status is its peak memory, in units of two megabytes.
int SearchAlone(const std::string& filter, std::size_t expected) {
  const pid_t child = fork();
  if (child == 0) {
    HugeFolder files;
    test::PendingRecorder pending;
    test::RecordedProgress progress(pending);
    const FoundFiles found = FolderSearch(files, progress).Search("/music/japan/", filter, true);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    _exit(found.paths.size() == expected ? static_cast<int>(std::min(usage.ru_maxrss / 2048, 254L)) : 255);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

TEST(FolderSearchMemory, AMillionEntriesCostLessThan300Megabytes) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer's own memory would be counted";
#endif
  EXPECT_LT(SearchAlone("zzz", 0), 150) << "none is wanted";
  EXPECT_LT(SearchAlone("mp3", kFiles), 150) << "all are wanted";
}

}  // namespace
}  // namespace quillon
