#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "filelist/FolderSearch.h"
#include "filelist/Registration.h"
#include "support/MediaBuilders.h"
#include "support/MemoryFileSystem.h"
#include "support/Paths.h"
#include "support/SongBuilders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

/// All that a row says.
std::vector<std::string> TextsOf(const FileList& list) {
  std::vector<std::string> rows;
  for (int index = 1; index <= list.Count(); ++index) {
    const FileRow row = list.Row(index);
    rows.push_back(row.Location() + "|" + std::string(row.renameName) + "|" + std::string(row.title) + "|" +
                   std::string(row.artist) + "|" + row.type.Text() + "|" + std::to_string(row.size));
  }
  return rows;
}

void MakeSongs(const TempFolder& folder, int count) {
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    const std::string place = "album " + std::to_string(i / 20) + "/" + number;
    switch (i % 8) {
      case 0: folder.Write(place + ".mid", SimpleMidiFile("Tune " + number, "Somebody")); break;
      case 1:
        folder.Write(place + ".mp3", Mp3Audio(10) + Id3v1Trailer({.title = "Song " + number, .artist = "A"}));
        break;
      case 2:
        folder.Write(place + ".mp3", Id3v2Tag({.frames = {{"TIT2", AnsiText("Song " + number)}}}) + Mp3Audio(9));
        break;
      case 3:
        folder.Write(place + ".mp3", Id3v2Tag({.major = 4, .frames = {{"TIT2", Utf8Text(number)}}}) + Mp3Audio(1));
        break;
      case 4: folder.Write(place + ".wav", WaveFile(1)); break;
      case 5: folder.Write(place + ".flac", FlacFile({{"TITLE", "Flac " + number}}) + std::string(9000, 'x')); break;
      case 6: folder.Write(place + ".mid", SimpleMidiFile("Long " + number, "") + std::string(90000, 'x')); break;
      default: folder.Write(place + ".mp3", ""); break;
    }
  }
}

struct Loaded {
  FileList list;
  Registered registered;
};

std::unique_ptr<Loaded> Load(FileReads& files, const std::string& folder, TagSources tags) {
  auto loaded = std::make_unique<Loaded>();
  Unwatched unwatched;
  const FoundFiles found = FolderSearch(files, unwatched).Search(folder, "", true);
  loaded->registered = RegisterFiles(loaded->list, files, found.paths, {.tags = tags}, unwatched);
  return loaded;
}

TEST(Loading, ReadingAheadGivesTheSameRows) {
  const TempFolder folder;
  MakeSongs(folder, 400);
  const auto ahead = MakeFileReads();
  const auto inTurn = MakeFileReads({.readAhead = false});
  Unwatched unwatched;
  for (const TagSources tags : {TagSources::kStandard, TagSources::kAll}) {
    const auto expected = Load(*inTurn, folder.Path(), tags);
    const auto loaded = Load(*ahead, folder.Path(), tags);
    ASSERT_EQ(expected->list.Count(), 400);
    EXPECT_EQ(TextsOf(loaded->list), TextsOf(expected->list));
    EXPECT_EQ(loaded->registered.unreadTags, expected->registered.unreadTags);
    ReadTitlesAnew(expected->list, *inTurn, unwatched);
    ReadTitlesAnew(loaded->list, *ahead, unwatched);
    EXPECT_EQ(TextsOf(loaded->list), TextsOf(expected->list));
    ReadRowsAnew(expected->list, *inTurn, {}, unwatched);
    ReadRowsAnew(loaded->list, *ahead, {}, unwatched);
    EXPECT_EQ(TextsOf(loaded->list), TextsOf(expected->list));
  }
}

TEST(Loading, WhatIsListedAlreadyIsNotListedTwice) {
  const TempFolder folder;
  MakeSongs(folder, 60);
  const auto files = MakeFileReads();
  const auto loaded = Load(*files, folder.Path(), TagSources::kStandard);
  const std::vector<std::string> before = TextsOf(loaded->list);
  MakeSongs(folder, 80);
  Unwatched unwatched;
  const FoundFiles found = FolderSearch(*files, unwatched).Search(folder.Path(), "", true);
  const Registered again = RegisterFiles(loaded->list, *files, found.paths, {}, unwatched);
  EXPECT_EQ(again.duplicates, 60u);
  EXPECT_EQ(loaded->list.Count(), 80);
  std::vector<std::string> after = TextsOf(loaded->list);
  after.resize(60);
  EXPECT_EQ(after, before);
}

/// Ends the loop after some items.
class Some final : public Progress {
 public:
  explicit Some(int items) : left_(items) {}
  bool Continue(std::size_t, std::size_t, const std::string&) override { return left_-- > 0; }
  bool Continue() override { return true; }

 private:
  int left_;
};

FoundFiles EverythingIn(FileReads& files, const TempFolder& folder) {
  Unwatched unwatched;
  return FolderSearch(files, unwatched).Search(folder.Path(), "", true);
}

TEST(Loading, ACancelledLoadKeepsTheRowsSoFar) {
  const TempFolder folder;
  MakeSongs(folder, 100);
  const auto files = MakeFileReads();
  const FoundFiles found = EverythingIn(*files, folder);
  FileList list;
  Some some(30);
  RegisterFiles(list, *files, found.paths, {}, some);
  EXPECT_EQ(list.Count(), 30);
}

TEST(Loading, FilesThatVanishMeanwhileArePassedOver) {
  const TempFolder folder;
  MakeSongs(folder, 600);
  const auto files = MakeFileReads();
  Unwatched unwatched;
  const FoundFiles found = EverythingIn(*files, folder);
  const auto changes = MakeFileChanges();
  std::thread other([&] {
    std::size_t index = 0;
    for (const PathList::File file : found.paths) {
      if (index++ % 3 == 0) static_cast<void>(changes->Remove(file.Path()));
    }
  });
  FileList list;
  const Registered registered = RegisterFiles(list, *files, found.paths, {}, unwatched);
  other.join();
  EXPECT_FALSE(registered.error);
  EXPECT_EQ(static_cast<std::size_t>(list.Count()) + registered.passedOver.size(), 600u);
  for (const PassedOver& passed : registered.passedOver) EXPECT_EQ(passed.obstacle, Obstacle::kGone) << passed.path;
}

/// A question about a folder that is not answered before the test is over.
struct Hanging {
  std::mutex mutex;
  std::condition_variable changed;
  bool released = false;
  bool left = false;

  void Hang() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return released; });
    left = true;
    changed.notify_all();
  }
  void Release() {
    std::unique_lock lock(mutex);
    released = true;
    changed.notify_all();
    changed.wait(lock, [&] { return left; });
  }
};

/// Listing a folder below /m/ and resolving a link hang.
class HangingDisk final : public FileReads {
 public:
  HangingDisk(MemoryFileSystem& files, std::shared_ptr<Hanging> hanging)
      : files_(files), hanging_(std::move(hanging)) {}

  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) override {
    return files_.ReadFolder(folder);
  }
  std::unique_ptr<FolderListings> ListFolders(bool subfolders) override {
    const auto list = [hanging = hanging_, root = *files_.ReadFolder("/m/")](const std::string& folder,
                                                                             const std::atomic<bool>&) -> Listing {
      if (folder == "/m/") return root;
      hanging->Hang();
      return std::vector<FolderEntry>();
    };
    const auto realPath = [hanging = hanging_](const std::string& folder) {
      hanging->Hang();
      return folder;
    };
    return MakeListingsAhead({list, realPath}, subfolders, '/');
  }
  std::string RealPath(const std::string& folder) override {
    ADD_FAILURE() << "asked on the thread of the search";
    return files_.RealPath(folder);
  }
  std::unique_ptr<ByteSource> OpenFile(const std::string& path) override { return files_.OpenFile(path); }
  Result<FileStatus, FileError> Status(const std::string& path) override { return files_.Status(path); }
  bool SameFile(const std::string& left, const std::string& right) override { return files_.SameFile(left, right); }
  Result<FileIdentity, FileError> Identity(const std::string& path) override { return files_.Identity(path); }
  NameUnit NameUnitOf(const std::string& folder) override { return files_.NameUnitOf(folder); }

 private:
  MemoryFileSystem& files_;
  std::shared_ptr<Hanging> hanging_;
};

class CancelledLater final : public Progress {
 public:
  bool Continue(std::size_t, std::size_t, const std::string&) override { return true; }
  bool Continue() override { return ++calls < 10; }
  int calls = 0;
};

void ExpectCancelledWhileHanging(MemoryFileSystem& memory) {
  const auto hanging = std::make_shared<Hanging>();
  {
    HangingDisk disk(memory, hanging);
    CancelledLater progress;
    const FoundFiles found = FolderSearch(disk, progress, PathStyle::kLinux).Search("/m", "", true);
    EXPECT_TRUE(found.cancelled);
    EXPECT_FALSE(found.error);
    EXPECT_EQ(progress.calls, 10) << "two entries, and eight questions while the folder hangs";
  }
  hanging->Release();
}

TEST(Loading, ASearchInAFolderThatHangsLetsMessagesThroughAndCanBeCancelled) {
  MemoryFileSystem memory({PathStyle::kLinux});
  memory.AddFile("/m/a.mid");
  memory.AddFile("/m/hangs/b.mid");
  ExpectCancelledWhileHanging(memory);
}

TEST(Loading, SoDoesASearchAtALinkWhoseTargetHangs) {
  MemoryFileSystem memory({PathStyle::kLinux});
  memory.AddFile("/elsewhere/b.mid");
  memory.AddFile("/m/a.mid");
  memory.AddLink("/m/link", "/elsewhere");
  ExpectCancelledWhileHanging(memory);
}

}  // namespace
}  // namespace quillon
