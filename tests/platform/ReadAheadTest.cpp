#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstring>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>

#include "platform/AwayFile.h"
#include "platform/ReadAhead.h"

namespace quillon {
namespace {

using What = FileNeeds::What;

std::string BytesOf(std::string_view name) {
  return "the bytes of " + std::string(name) + std::string(name.size() % 7 * 400, '.') + " end";
}

/// What the openers of a test do and have done, on whatever thread.
struct Disk {
  std::atomic<std::chrono::milliseconds> wait = std::chrono::milliseconds(0);
  std::atomic<int> failures{0};     ///< so many opens lack resources
  std::atomic<int> exceptions{0};   ///< so many opens throw
  std::atomic<int> mostKept{1000};  ///< opens lack resources while so many files are open
  std::atomic<int> opens{0};
  std::atomic<int> statuses{0};
  std::atomic<int> open{0};  ///< files that are open now
  std::atomic<int> mostOpen{0};
  std::atomic<int> atOnce{0};
  std::atomic<int> mostAtOnce{0};
  const std::thread::id reader = std::this_thread::get_id();
  std::atomic<int> readersStatuses{0};
  std::atomic<int> readersOpens{0};

  static void Raise(std::atomic<int>& most, int value) {
    for (int before = most; before < value && !most.compare_exchange_weak(before, value);) {
    }
  }
  static bool TakeOne(std::atomic<int>& left) {
    for (int before = left; before > 0;) {
      if (left.compare_exchange_weak(before, before - 1)) return true;
    }
    return false;
  }
};

class DiskFile final : public ByteSource {
 public:
  DiskFile(Disk& disk, std::string bytes) : disk_(disk), bytes_(std::move(bytes)) {
    Disk::Raise(disk_.mostOpen, ++disk_.open);
  }
  ~DiskFile() override { --disk_.open; }
  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    if (offset >= bytes_.size()) return 0;
    return bytes_.copy(into, count, static_cast<std::size_t>(offset));
  }

 private:
  Disk& disk_;
  std::string bytes_;
};

class DiskOpener final : public FileOpener {
 public:
  explicit DiskOpener(Disk& disk) : disk_(disk) {}

  Opened Open(const PathList::File& file) override {
    Disk::Raise(disk_.mostAtOnce, ++disk_.atOnce);
    std::this_thread::sleep_for(disk_.wait.load());
    --disk_.atOnce;
    ++disk_.opens;
    if (std::this_thread::get_id() == disk_.reader) ++disk_.readersOpens;
    if (Disk::TakeOne(disk_.exceptions)) throw std::bad_alloc();
    if (Disk::TakeOne(disk_.failures) || disk_.open >= disk_.mostKept) return {nullptr, true};
    if (file.name.starts_with("absent")) return {};
    return {std::make_unique<DiskFile>(disk_, BytesOf(file.name))};
  }
  Result<FileStatus, FileError> Status(const PathList::File& file) override {
    ++disk_.statuses;
    if (std::this_thread::get_id() == disk_.reader) ++disk_.readersStatuses;
    if (file.name.starts_with("absent")) return FileStatus();
    return FileStatus{FileStatus::Kind::kFile, BytesOf(file.name).size(), 0};
  }

 private:
  Disk& disk_;
};

PathList Numbered(int count) {
  PathList list;
  for (int i = 0; i < count; ++i)
    list.Add("/" + std::to_string(i / 10) + "/",
             std::string(static_cast<std::size_t>(i % 13), 'f') + std::to_string(i));
  return list;
}

NeedsOf All(const FileNeeds& needs) {
  return [needs](const PathList::File&) { return needs; };
}

std::unique_ptr<FilesInTurn> Reading(Disk& disk, const PathList& list, NeedsOf needs, ReadAheadLimits limits = {}) {
  return MakeReadAhead(
      list, std::move(needs), [&disk] { return std::make_unique<DiskOpener>(disk); }, limits);
}

void ExpectAllContents(FilesInTurn& reading, const PathList& list) {
  for (const PathList::File file : list) {
    reading.Next();
    ByteSource* const open = reading.Open();
    ASSERT_TRUE(open) << file.name;
    const std::string bytes = BytesOf(file.name);
    ASSERT_EQ(open->Size(), bytes.size());
    ASSERT_EQ(open->Read(0, 4000), bytes);
    ASSERT_EQ(open->Read(5, 20), bytes.substr(5, 20));
    ASSERT_EQ(open->Read(bytes.size() - 4, 4), " end");
    ASSERT_EQ(open->Read(bytes.size() - 2, 40), "nd");
    ASSERT_EQ(open->Read(bytes.size(), 1), "");
    const std::string_view held = open->InMemory(5, 6);
    ASSERT_TRUE(held.empty() || held == bytes.substr(5, 6));
    ASSERT_EQ(open->InMemory(bytes.size() - 1, 2), "");
    std::string longer(bytes.size() + 50, '\0');
    ASSERT_EQ(open->ReadAt(3, longer.data(), longer.size()), bytes.size() - 3);
    ASSERT_EQ(longer.substr(0, bytes.size() - 3), bytes.substr(3));
  }
}

TEST(ReadAhead, EveryFileHasItsBytesWhateverIsExpected) {
  const PathList list = Numbered(1000);
  const std::vector<FileNeeds> all = {{What::kNothing},
                                      {What::kStatus},
                                      {What::kContents},
                                      {What::kContents, 10},
                                      {What::kContents, 1000, 4},
                                      {What::kContents, 1000, 4, "the"},
                                      {What::kContents, 1000, 4, "ID3"},
                                      {What::kContents, 100000, 100000}};
  for (const FileNeeds& needs : all) {
    for (const std::size_t threads : {0U, 1U, 5U}) {
      SCOPED_TRACE(std::to_string(static_cast<int>(needs.what)) + ", " + std::to_string(needs.head) + ", " +
                   std::to_string(needs.tail) + ", threads " + std::to_string(threads));
      Disk disk;
      ExpectAllContents(*Reading(disk, list, All(needs), {.files = 32, .threads = threads}), list);
      EXPECT_EQ(disk.open, 0);
    }
  }
}

TEST(ReadAhead, StatusAndAbsentFilesAreAnsweredToo) {
  PathList list;
  for (int i = 0; i < 300; ++i) list.Add("/", (i % 3 == 0 ? "absent" : "file") + std::to_string(i));
  for (const What what : {What::kNothing, What::kStatus, What::kContents}) {
    Disk disk;
    const auto reading = Reading(disk, list, All({what, 1000}));
    for (const PathList::File file : list) {
      reading->Next();
      const bool absent = file.name.starts_with("absent");
      EXPECT_EQ(reading->Open() == nullptr, absent);
      const auto status = reading->Status();
      ASSERT_TRUE(status.Ok());
      EXPECT_EQ(status->kind, absent ? FileStatus::Kind::kAbsent : FileStatus::Kind::kFile);
    }
  }
}

TEST(ReadAhead, EachFileIsAskedOnceForWhatIsExpected) {
  const PathList list = Numbered(500);
  Disk disk;
  const auto needs = [](const PathList::File& file) {
    const char last = file.name.back();
    return FileNeeds{last == '0' ? What::kStatus : last == '1' ? What::kNothing : What::kContents, 4000};
  };
  const auto reading = Reading(disk, list, needs);
  for (const PathList::File file : list) {
    reading->Next();
    if (file.name.back() == '0') {
      EXPECT_TRUE(reading->Status().Ok());
    } else if (file.name.back() != '1') {
      EXPECT_TRUE(reading->Open());
    }
  }
  EXPECT_EQ(disk.statuses, 50);
  EXPECT_EQ(disk.opens, 400);
}

TEST(ReadAhead, FilesThatAreNotAskedForArePassedOver) {
  const PathList list = Numbered(1000);
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 5000}));
  int index = 0;
  for (const PathList::File file : list) {
    reading->Next();
    if (index++ % 300 != 299) continue;
    ByteSource* const open = reading->Open();
    ASSERT_TRUE(open);
    EXPECT_EQ(open->Read(0, 4000), BytesOf(file.name));
  }
}

TEST(ReadAhead, NoMoreFilesThanTheLimitAreOpenAtOneTime) {
  const PathList list = Numbered(500);
  Disk disk;
  ExpectAllContents(*Reading(disk, list, All({What::kContents, 8}), {.files = 16, .threads = 4}), list);
  EXPECT_LE(disk.mostOpen, 16);
  EXPECT_GT(disk.mostOpen, 0);
  EXPECT_EQ(disk.open, 0);
}

TEST(ReadAhead, AFileThatWasReadWholeIsClosedAtOnce) {
  const PathList list = Numbered(500);
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 5000}), {.files = 64, .threads = 2});
  reading->Next();
  ASSERT_TRUE(reading->Open());
  while (disk.opens < 32) std::this_thread::yield();
  EXPECT_LE(disk.mostOpen, 3) << "one by each thread";
}

TEST(ReadAhead, PreparedBytesAreInMemory) {
  const PathList list = Numbered(20);
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 10, 4}));
  for (const PathList::File file : list) {
    reading->Next();
    ByteSource* const open = reading->Open();
    ASSERT_TRUE(open);
    EXPECT_EQ(open->InMemory(2, 8), BytesOf(file.name).substr(2, 8));
    EXPECT_EQ(open->InMemory(2, 9), "");
    EXPECT_EQ(open->InMemory(open->Size() - 4, 4), " end");
  }
}

TEST(ReadAhead, EndsWithoutReadingTheRest) {
  const PathList list = Numbered(100000);
  Disk disk;
  {
    const auto reading = Reading(disk, list, All({What::kContents, 5000}), {.files = 64});
    reading->Next();
    EXPECT_TRUE(reading->Open());
  }
  EXPECT_LE(disk.opens, 64);
  EXPECT_EQ(disk.open, 0);
}

TEST(ReadAhead, EndsWithTheFilesThatAreBeingRead) {
  const PathList list = Numbered(1000);
  Disk disk;
  auto reading = Reading(disk, list, All({What::kContents, 5000}), {.files = 64, .threads = 1});
  while (disk.opens < 64) std::this_thread::yield();
  disk.wait = std::chrono::milliseconds(50);
  for (int i = 0; i < 20; ++i) reading->Next();  // which lets the thread have a piece of several files
  while (disk.atOnce == 0) std::this_thread::yield();
  reading = nullptr;
  EXPECT_LE(disk.opens, 66) << "the one that was being read, not its whole piece";
}

TEST(ReadAhead, AFileIsClosedBeforeTheNextOnesTurnWhenItIsReleased) {
  const PathList list = Numbered(10);
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 10}), {.files = 1, .threads = 1});
  for (std::size_t i = 0; i < list.size(); ++i) {
    reading->Next();
    ASSERT_TRUE(i % 2 == 0 || reading->Open());
    reading->Release();
    EXPECT_EQ(disk.open, 0);
  }
}

TEST(ReadAhead, AFileIsClosedOnceItsTurnIsOver) {
  const PathList list = Numbered(8);
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 8}));
  while (disk.open < 8) std::this_thread::yield();
  for (int i = 0; i < 8; ++i) {
    reading->Next();
    EXPECT_EQ(disk.open, 8 - i);
  }
}

TEST(ReadAhead, OnASlowDiskTheReaderOpensNoFilesItselfOnceThereAreSeveralThreads) {
  const PathList list = Numbered(600);
  Disk disk;
  disk.wait = std::chrono::milliseconds(2);
  ExpectAllContents(*Reading(disk, list, All({What::kContents, 10})), list);
  EXPECT_LT(disk.readersOpens, 12) << "before the second thread";
}

TEST(ReadAhead, TheStatusOfWhatCannotBeOpenedIsReadAhead) {
  PathList list;
  for (int i = 0; i < 64; ++i) list.Add("/", "absent" + std::to_string(i));
  Disk disk;
  const auto reading = Reading(disk, list, All({What::kContents, 8}));
  while (disk.statuses < 64) std::this_thread::yield();
  for (int i = 0; i < 64; ++i) {
    reading->Next();
    EXPECT_FALSE(reading->Open());
    EXPECT_TRUE(reading->Status().Ok());
  }
  EXPECT_EQ(disk.statuses, 64);
  EXPECT_EQ(disk.readersStatuses, 0);
}

TEST(ReadAhead, WhatCouldNotBeReadForLackOfResourcesIsReadInItsTurn) {
  const PathList list = Numbered(300);
  Disk lacking;
  // The reader's own attempt is the last one, so no more may fail than others make.
  lacking.failures = 1;
  const auto reading = Reading(lacking, list, All({What::kContents, 5000}), {.files = 32, .threads = 3});
  while (lacking.failures > 0) std::this_thread::yield();
  ExpectAllContents(*reading, list);
  Disk throwing;
  throwing.exceptions = 1;
  const auto other = Reading(throwing, list, All({What::kContents, 5000}), {.files = 32, .threads = 3});
  while (throwing.exceptions > 0) std::this_thread::yield();
  ExpectAllContents(*other, list);
}

TEST(ReadAhead, AFileInItsTurnGetsWhatPreparedFilesKeepOpen) {
  const PathList list = Numbered(300);
  Disk disk;
  disk.mostKept = 3;
  const FileNeeds start{What::kContents, 10};  // which leaves the files open
  const auto reading = Reading(disk, list, All(start), {.files = 32, .threads = 3});
  reading->Next();
  ASSERT_TRUE(reading->Open());
  while (disk.opens < 32) std::this_thread::yield();
  for (std::size_t turn = 1; turn < list.size(); ++turn) {
    reading->Next();
    ByteSource* const open = reading->Open();
    ASSERT_TRUE(open) << turn;
    ASSERT_EQ(open->Read(open->Size() - 4, 4), " end") << turn;
  }
}

TEST(ReadAhead, FilesThatTakeLongAreReadSideBySide) {
  const PathList list = Numbered(600);
  Disk disk;
  disk.wait = std::chrono::milliseconds(2);
  ExpectAllContents(*Reading(disk, list, All({What::kContents, 5000})), list);
  EXPECT_GE(disk.mostAtOnce, 12);
  EXPECT_LE(disk.mostAtOnce, 17) << "sixteen threads and the reader";
}

TEST(AwayFile, IsOneWhoseContentsAreElsewhere) {
  EXPECT_FALSE(IsAwayFile(0));
  EXPECT_FALSE(IsAwayFile(0x20)) << "archive";
  EXPECT_FALSE(IsAwayFile(0x10 | 0x400 | 0x800 | 0x2000)) << "folder, link, compressed, not indexed";
  EXPECT_FALSE(IsAwayFile(0x80000 | 0x100000)) << "pinned, unpinned";
  EXPECT_TRUE(IsAwayFile(0x1000)) << "offline";
  EXPECT_TRUE(IsAwayFile(0x20 | 0x40000)) << "fetched when it is opened";
  EXPECT_TRUE(IsAwayFile(0x400 | 0x400000)) << "fetched when it is read";
}

}  // namespace
}  // namespace quillon
