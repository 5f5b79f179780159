#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "paths/basFileControl.h"
#include "pattern/PatternRename.h"
#include "support/MediaBuilders.h"
#include "support/MemoryFileSystem.h"
#include "support/Rows.h"
#include "support/TempFolder.h"
#include "tags/SongReader.h"

namespace quillon {
namespace {

using test::RenameNames;
using Texts = std::vector<std::string>;
using Indices = std::vector<int>;

PatternRules Rules(std::string_view pattern) {
  return {.pattern = *NamePattern::Parse(pattern)};
}

struct Fixture {
  FileList list{PathStyle::kLinux};
  int reads = 0;
  FileFacts facts;
  ReadFacts read = [this](const FileRow&) {
    ++reads;
    return facts;
  };

  /// One file for each title: "/m/1.mid" and so on.
  explicit Fixture(const Texts& titles) {
    for (std::size_t i = 0; i < titles.size(); ++i) {
      FileItem row = test::RowFor("/m/" + std::to_string(i + 1) + ".mid", PathStyle::kLinux);
      row.title = titles[i];
      list.Add(row);
    }
  }

  PatternOutcome Rename(const PatternRules& rules, Rows rows = Rows::kAll, const ApplyRow& apply = {}) {
    Unwatched progress;
    return RenameByPattern(list, rows, rules, read, apply, progress, PathStyle::kLinux);
  }
};

TEST(PatternRename, SetsEveryRenameName) {
  Fixture f({"one", "two"});
  const PatternOutcome outcome = f.Rename(Rules("{title} [{name}, {folder}, {type}]"));
  EXPECT_EQ(RenameNames(f.list), Texts({"one [1, m, mid]", "two [2, m, mid]"}));
  EXPECT_EQ(outcome.end, RunEnd::kComplete);
  EXPECT_EQ(f.reads, 0) << "the row says it all";
}

TEST(PatternRename, ReadsTheFileWhenThePatternNeedsItButKeepsTheRowsTitle) {
  Fixture f({"row's", "---"});
  f.facts.song.title = f.facts.song.artist = "tag's";
  f.facts.song.album = "Spring";
  f.facts.song.track = 4;
  f.Rename(Rules("{title|none} {artist|none} {album} {track:02}"));
  EXPECT_EQ(RenameNames(f.list), Texts({"row's none Spring 04", "none none Spring 04"}));
  EXPECT_EQ(f.reads, 2);
}

TEST(PatternRename, CountsTheNamesThatItGives) {
  Fixture f({"one", "---", "three", "four"});
  f.list.SetChecked(1, true);
  f.list.SetChecked(2, true);
  f.list.SetChecked(4, true);
  PatternRules rules = Rules("{title?{title} {n}}");
  rules.start = 5;
  rules.step = -10;
  rules.digits = 2;
  rules.skipUnnamed = true;
  const PatternOutcome outcome = f.Rename(rules, Rows::kChecked);
  EXPECT_EQ(RenameNames(f.list), Texts({"one 05", "2", "3", "four -05"})) << "the skipped row takes no number";
  EXPECT_EQ(outcome.unnamed, Indices({2}));
}

TEST(PatternRename, SetsNothingAsNameUnlessSuchRowsAreSkipped) {
  Fixture f({"", "two"});
  EXPECT_EQ(f.Rename(Rules("{title}")).unnamed, Indices());
  EXPECT_EQ(RenameNames(f.list), Texts({"", "two"}));
}

TEST(PatternRename, TreatsInvalidCharactersOfTheWholeNameAsChosen) {
  struct Case {
    PatternInvalid invalid;
    const char* name;
  };
  for (const auto& [invalid, name] : std::vector<Case>{{PatternInvalid::kKept, "AC/DC: x?"},
                                                       {PatternInvalid::kRemoved, "ACDC x"},
                                                       {PatternInvalid::kReplaced, "AC_-DC_- x_-"},
                                                       {PatternInvalid::kWide, "AC／DC： x？"}}) {
    Fixture f({"AC/DC"});
    PatternRules rules = Rules("{title}: x?");
    rules.invalid = invalid;
    rules.replacement = "_-";
    f.Rename(rules);
    EXPECT_EQ(RenameNames(f.list), Texts({name}));
  }
}

TEST(PatternRename, ANameOfInvalidCharactersOnlyIsNoneOnceTheyAreRemoved) {
  Fixture f({"?? /", "b"});
  PatternRules rules = Rules("{title}");
  rules.invalid = PatternInvalid::kRemoved;
  rules.skipUnnamed = true;
  EXPECT_EQ(f.Rename(rules).unnamed, Indices({1}));
  EXPECT_EQ(RenameNames(f.list), Texts({"1", "b"}));
}

TEST(PatternRename, FindsInvalidNamesOnRequest) {
  Fixture f({"a?b", "fine", "a/b"});
  PatternRules rules = Rules("{title}");
  EXPECT_EQ(f.Rename(rules).invalid, Indices());
  rules.findInvalid = true;
  EXPECT_EQ(f.Rename(rules).invalid, Indices({1, 3}));
}

TEST(PatternRename, TheFirstFailureEndsTheRunAndRestoresTheName) {
  Fixture f({"one", "two", "three"});
  const PatternOutcome outcome = f.Rename(Rules("{title}"), Rows::kAll, [](int index) { return index != 2; });
  EXPECT_EQ(RenameNames(f.list), Texts({"one", "2", "3"}));
  EXPECT_EQ(outcome.end, RunEnd::kStopped);
  EXPECT_EQ(outcome.failedRow, 2);
}

TEST(PatternRename, NamesFilesByWhatStandsBeforeTheirExtension) {
  for (const auto& [location, name] : std::vector<std::pair<const char*, const char*>>{
           {"/m/a.b.mid", "a.b [m]"}, {"/m/README", "README [m]"}, {"/m/.hidden", "[m]"}, {"/a.mid", "a []"}}) {
    FileList list(PathStyle::kLinux);
    list.Add(test::RowFor(location, PathStyle::kLinux));
    Unwatched progress;
    RenameByPattern(list, Rows::kAll, Rules("{name} [{folder}]"), {}, {}, progress, PathStyle::kLinux);
    EXPECT_EQ(list.Row(1).renameName, name);
  }
  for (const auto& [location, name] : std::vector<std::pair<const char*, const char*>>{
           {"C:\\曲\\a.mid", "a [曲]"}, {"C:\\a.mid", "a []"}, {"\\\\server\\share\\a.mid", "a [share]"}}) {
    FileList list(PathStyle::kWindows);
    list.Add(test::RowFor(location, PathStyle::kWindows));
    Unwatched progress;
    RenameByPattern(list, Rows::kAll, Rules("{name} [{folder}]"), {}, {}, progress, PathStyle::kWindows);
    EXPECT_EQ(list.Row(1).renameName, name);
  }
}

std::string SongOfAlbum(const std::string& album) {
  return test::Id3v2Tag({.frames = {{"TIT2", test::AnsiText("Song")},
                                    {"TALB", test::AnsiText(album)},
                                    {"TRCK", test::AnsiText("3/12")}}}) +
         test::Mp3Audio(1);
}

FileItem Mp3Row(const std::string& location, PathStyle style = SystemPathStyle()) {
  FileItem row = test::RowFor(location, style);
  row.type = "MP3";
  return row;
}

TEST(FileFacts, AreWhatTheTagsAndTheDiskSay) {
  test::MemoryFileSystem files({PathStyle::kLinux, false});
  files.modified = 12345;
  files.AddFile("/m/1.mp3", SongOfAlbum("Spring"));
  FileList list(PathStyle::kLinux);
  list.Add(Mp3Row("/m/1.mp3", PathStyle::kLinux));
  list.Add(Mp3Row("/m/gone.mp3", PathStyle::kLinux));
  const ReadFacts read = FactsFrom(files, list, Rows::kAll, TagSources::kStandard);
  const FileFacts facts = read(list.Row(1));
  EXPECT_EQ(facts.modified, 12345);
  EXPECT_EQ(facts.song.album, "Spring");
  EXPECT_EQ(facts.song.track, 3);
  EXPECT_EQ(read(list.Row(2)).modified, 0);
}

/// Songs 1 to 40, each with an album of its own; the even ones are checked.
struct Albums {
  static constexpr int kCount = 40;
  const test::TempFolder folder;
  FileList list;

  Albums() {
    for (int i = 1; i <= kCount; ++i) {
      list.Add(Mp3Row(folder.Write(std::to_string(i) + ".mp3", SongOfAlbum(Album(i)))));
      list.SetChecked(i, i % 2 == 0);
    }
  }
  static std::string Album(int row) { return "Album " + std::to_string(row); }
};

TEST(FileFacts, AreTheSameInWhateverOrderRowsAreAskedFor) {
  Albums songs;
  for (const bool ahead : {true, false}) {
    const auto files = MakeFileReads({.readAhead = ahead});
    const ReadFacts read = FactsFrom(*files, songs.list, Rows::kChecked, TagSources::kStandard);
    for (const int row : {2, 4, 6, 3, 8, 10, 40, 2, 12, 1, 14}) {
      const FileFacts facts = read(songs.list.Row(row));
      EXPECT_EQ(facts.song.album, Albums::Album(row)) << row;
      EXPECT_GT(facts.modified, 0) << row;
    }
  }
}

/// Notes which of the files that are read in turn is open.
class WatchedReads final : public test::MemoryFileSystem {
 public:
  using test::MemoryFileSystem::MemoryFileSystem;
  std::unique_ptr<FilesInTurn> ReadInTurn(const PathList& list, const NeedsOf& needsOf) override {
    listed.push_back(list.size());
    for (const PathList::File file : list) needs.push_back(needsOf(file));
    return std::make_unique<Reading>(test::MemoryFileSystem::ReadInTurn(list, needsOf), *this);
  }
  std::vector<std::size_t> listed;
  std::vector<FileNeeds> needs;
  int opened = 0;
  int readings = 0;  ///< that exist now
  bool isOpen = false;

 private:
  class Reading final : public FilesInTurn {
   public:
    Reading(std::unique_ptr<FilesInTurn> reading, WatchedReads& reads) : reading_(std::move(reading)), reads_(reads) {
      ++reads_.readings;
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading() override { --reads_.readings; }
    void Next() override { reading_->Next(); }
    ByteSource* Open() override {
      ++reads_.opened;
      reads_.isOpen = true;
      return reading_->Open();
    }
    Result<FileStatus, FileError> Status() override { return reading_->Status(); }
    void Release() override {
      reads_.isOpen = false;
      reading_->Release();
    }

   private:
    std::unique_ptr<FilesInTurn> reading_;
    WatchedReads& reads_;
  };
};

TEST(FileFacts, OfTheRowsAreReadInTurnAndOnlyOnceOneIsNeeded) {
  WatchedReads files({PathStyle::kLinux, false});
  FileList list(PathStyle::kLinux);
  for (int i = 1; i <= 5; ++i) {
    list.Add(Mp3Row("/m/" + std::to_string(i) + ".mp3", PathStyle::kLinux));
    list.SetChecked(i, i > 2);
  }
  const ReadFacts read = FactsFrom(files, list, Rows::kChecked, TagSources::kStandard);
  Unwatched progress;
  RenameByPattern(list, Rows::kChecked, Rules("{title}"), read, {}, progress, PathStyle::kLinux);
  EXPECT_TRUE(files.listed.empty()) << "the list knows the titles";
  const auto closed = [&](int) {
    EXPECT_FALSE(files.isOpen) << "a file whose name is changed";
    return true;
  };
  RenameByPattern(list, Rows::kChecked, Rules("{album|x}"), read, closed, progress, PathStyle::kLinux);
  EXPECT_EQ(files.listed, std::vector<std::size_t>{3});
  EXPECT_EQ(files.opened, 3);
}

TEST(FileFacts, OfAnotherRunAreReadFromTheFirstFileThatIsNotKnown) {
  WatchedReads files({PathStyle::kLinux, false});
  FileList list(PathStyle::kLinux);
  for (int i = 1; i <= 6; ++i) list.Add(Mp3Row("/m/" + std::to_string(i) + ".mp3", PathStyle::kLinux));
  const BeginReading begin = KeptFacts([&] { return FactsFrom(files, list, Rows::kAll, TagSources::kStandard); });
  {
    const ReadFacts read = begin();
    for (int i = 1; i <= 4; ++i) static_cast<void>(read(list.Row(i)));
    EXPECT_EQ(files.readings, 1);
  }
  EXPECT_EQ(files.readings, 0) << "files that were opened ahead are closed with the run";
  const ReadFacts read = begin();
  for (int i = 1; i <= 6; ++i) static_cast<void>(read(list.Row(i)));
  EXPECT_EQ(files.listed, (std::vector<std::size_t>{6, 2}));
  EXPECT_EQ(files.opened, 6);
}

TEST(FileFacts, OfFilesWithoutTagsAreTheirStatusOnly) {
  WatchedReads files({PathStyle::kLinux, false});
  files.modified = 12345;
  files.AddFile("/m/1.txt", "text");
  FileList list(PathStyle::kLinux);
  list.Add(test::RowFor("/m/1.txt", PathStyle::kLinux));
  const ReadFacts read = FactsFrom(files, list, Rows::kAll, TagSources::kAll);
  EXPECT_EQ(read(list.Row(1)).modified, 12345);
  EXPECT_EQ(files.opened, 0);
  ASSERT_EQ(files.needs.size(), 1U);
  EXPECT_EQ(files.needs[0].what, FileNeeds::What::kStatus);
}

TEST(FileFacts, OfSongsNeedWhatTheirRowsNeed) {
  WatchedReads files({PathStyle::kLinux, false});
  FileList list(PathStyle::kLinux);
  list.Add(Mp3Row("/m/1.mp3", PathStyle::kLinux));
  static_cast<void>(FactsFrom(files, list, Rows::kAll, TagSources::kStandard)(list.Row(1)));
  ASSERT_EQ(files.needs.size(), 1U);
  const FileNeeds row = NeedsForRow(GetMediaType(Extension("1.mp3")), TagSources::kStandard);
  EXPECT_EQ(files.needs[0].what, row.what);
  EXPECT_EQ(files.needs[0].head, row.head);
  EXPECT_EQ(files.needs[0].tail, row.tail);
  EXPECT_GT(row.tail, 0U);
  EXPECT_TRUE(files.needs[0].statusToo);
}

TEST(PatternRename, KeptFactsAreReadOncePerFile) {
  Fixture f({"one", "two"});
  const BeginReading begin = KeptFacts([read = f.read] { return read; });
  f.read = begin();
  f.Rename(Rules("{album|x}"));
  f.read = begin();
  f.Rename(Rules("{year|y}"));
  EXPECT_EQ(f.reads, 2);
}

}  // namespace
}  // namespace quillon
