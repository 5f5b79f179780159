#include <gtest/gtest.h>

#include <new>
#include <string>

#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/SongBuilders.h"
#include "support/TempFolder.h"
#include "tags/SongReader.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in
using namespace std::string_literals;

constexpr auto kStandard = TagSources::kStandard;
constexpr auto kAll = TagSources::kAll;

SongDetails Song(const std::string& bytes, const FileType& type, TagSources sources) {
  return ReadBothWays(bytes, NeedsForRow(type, sources),
                      [&](ByteSource& file) { return ReadSongDetails(file, type, sources); });
}

MediaInfo Row(const std::string& bytes, const FileType& type, TagSources sources) {
  return ReadBothWays(bytes, NeedsForRow(type, sources),
                      [&](ByteSource& file) { return ReadRowTexts(file, type, sources); });
}

std::string Newer(const std::vector<Id3Frame>& frames) {
  return Id3v2Tag({.major = 4, .frames = frames}) + Mp3Audio(116);
}

TEST(SongReader, Id3v1GivesEveryField) {
  const std::string mp3 = Mp3Audio(1) + Id3v1Trailer({.title = "Song ",
                                                      .artist = "Artist",
                                                      .album = "Album",
                                                      .year = "1999",
                                                      .comment = "Nice",
                                                      .track = 7,
                                                      .genre = 17});
  const SongDetails expected = {
      .title = "Song", .artist = "Artist", .album = "Album", .genre = "Rock", .track = 7, .year = 1999};
  EXPECT_EQ(Song(mp3, "MP3", kStandard), expected);
  EXPECT_EQ(Song(mp3, "MP3", kAll), expected);
}

TEST(SongReader, Id3v2GivesEveryField) {
  const std::string mp3 = Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")},
                                               {"TPE1", AnsiText(" Artist")},
                                               {"TALB", AnsiText("Album")},
                                               {"TRCK", AnsiText("3/12")},
                                               {"TYER", AnsiText("2003")},
                                               {"TCON", AnsiText("(17)")}}});
  EXPECT_EQ(
      Song(mp3, "MP3", kStandard),
      (SongDetails{.title = "Song", .artist = "Artist", .album = "Album", .genre = "Rock", .track = 3, .year = 2003}));
}

TEST(SongReader, RiffAndMidiGiveWhatTheyHave) {
  const std::string rmp =
      RmpFile({{"INAM", "Song"}, {"IART", "Artist"}, {"IPRD", "Album"}, {"ICMT", "?"}, {"ICRD", "2001-05"}});
  EXPECT_EQ(Song(rmp, "MP3", kStandard),
            (SongDetails{.title = "Song", .artist = "Artist", .album = "Album", .year = 2001}));
  EXPECT_EQ(Song(SimpleMidiFile("Song", "(C)"), "MIDI", kStandard), (SongDetails{.title = "Song", .artist = "(C)"}));
}

TEST(SongReader, ADashedTitleIsNone) {
  EXPECT_EQ(Song(Mp3Audio(1) + Id3v1Trailer({.title = "---", .artist = "---"}), "MP3", kStandard), SongDetails());
  EXPECT_EQ(Song(FlacFile({{"TITLE", " --- "}}), "flac", kAll).title, "");
}

TEST(SongReader, WithStandardTagsTagLibReadsNothing) {
  EXPECT_EQ(Song(Newer({{"TIT2", Utf8Text("歌")}}), "MP3", kStandard), SongDetails());
  MemorySource flac(FlacFile({{"TITLE", "歌"}}));
  EXPECT_EQ(ReadSongDetails(flac, "flac", kStandard), SongDetails());
  EXPECT_EQ(ReadRowTexts(flac, "flac", kStandard), (MediaInfo{"---", "---"}));
  EXPECT_EQ(flac.reads, 0);
}

TEST(SongReader, WithAllTagsTagLibReadsFilesWithoutATitle) {
  const SongDetails song = Song(Newer({{"TIT2", Utf8Text("歌")}}), "MP3", kAll);
  EXPECT_EQ(song.title, "歌");
  EXPECT_EQ(song.lengthMs, 3023);
  EXPECT_EQ(Row(Newer({{"TIT2", Utf8Text("歌")}}), "MP3", kAll).title, "歌");
  EXPECT_EQ(Row(FlacFile({{"TITLE", "歌"}, {"ARTIST", "人"}}), "flac", kAll), (MediaInfo{"歌", "人"}));
}

TEST(SongReader, ATitleOfTheProgramsOwnReaderComesFirst) {
  const std::string both =
      Id3v2Tag({.frames = {{"TIT2", AnsiText("own")}}}) + Mp3Audio(1) + ApeTag({{"Title", "other"}});
  EXPECT_EQ(Song(both, "MP3", kAll).title, "own");
  EXPECT_EQ(Row(both, "MP3", kAll).title, "own");
}

TEST(SongReader, AnArtistOfTheProgramsOwnReaderStays) {
  const auto file = [](const TagTexts& items) {
    return RiffList("RIFF", "RMP3", {RiffChunk("data", Mp3Audio(4)), InfoList({{"INAM", ""}, {"IART", "own"}})}) +
           ApeTag(items);
  };
  EXPECT_EQ(Song(file({{"Title", "Song"}}), "MP3", kAll).title, "Song");
  EXPECT_EQ(Song(file({{"Title", "Song"}}), "MP3", kAll).artist, "own");
  EXPECT_EQ(Song(file({{"Title", "Song"}, {"Artist", "other"}}), "MP3", kAll).artist, "other");
  EXPECT_EQ(Row(file({{"Title", "Song"}}), "MP3", kAll), (MediaInfo{"Song", "own"}));
  EXPECT_EQ(Row(file({{"Title", "Song"}, {"Artist", "other"}}), "MP3", kAll), (MediaInfo{"Song", "other"}));
}

TEST(SongReader, WhereTagLibKnowsNothingTheTextsStay) {
  EXPECT_EQ(Row("no song", "flac", kAll), (MediaInfo{"---", "---"}));
  EXPECT_EQ(Row(WaveFile(10), "WAVE", kAll), (MediaInfo{"---", "---"}));
  EXPECT_EQ(Row(Mp3Audio(2), "MP3", kAll), MediaInfo());
  EXPECT_EQ(Row(Mp3Audio(2) + Id3v1Trailer({.title = "---", .artist = "x"}), "MP3", kAll), (MediaInfo{"---", "x"}));
  EXPECT_EQ(Row("text", "txt", kAll), (MediaInfo{"---", "---"}));
}

TEST(SongReader, Utf8IsReadWithAllTagsOnly) {
  const std::string midi = SimpleMidiFile("歌", "");
  EXPECT_EQ(Row(midi, "MIDI", kAll).title, "歌");
  EXPECT_EQ(Row(midi, "MIDI", kStandard).title, "豁\u30FB");
  EXPECT_EQ(Song(midi, "MIDI", kAll).title, "歌");
  EXPECT_EQ(Song(midi, "MIDI", kStandard).title, "豁\u30FB");
}

/// A file whose reading runs out of memory.
class Exhausting final : public ByteSource {
 public:
  [[nodiscard]] std::uint64_t Size() const override { return 1000; }
  std::size_t ReadAt(std::uint64_t /*offset*/, char* /*into*/, std::size_t /*count*/) override {
    throw std::bad_alloc();
  }
};

TEST(SongReader, RunningOutOfMemoryGivesNothing) {
  for (const char* type : {"MP3", "MIDI", "flac", "WAVE", "m4a"}) {
    SCOPED_TRACE(type);
    Exhausting file;
    EXPECT_EQ(ReadSongDetails(file, type, kAll), SongDetails());
    EXPECT_EQ(ReadRowTexts(file, type, kAll).title, HasReader(type) ? "" : "---");
  }
}

struct Paths {
  TempFolder folder;

  std::string Add(const std::string& name, const std::string& bytes) { return folder.Write(name, bytes); }
};

TEST(SongReader, ReadsByPath) {
  Paths paths;
  const std::string flac = paths.Add("a.flac", FlacFile({{"TITLE", "歌"}}));
  EXPECT_EQ(ReadSongDetails(flac, kAll).title, "歌");
  EXPECT_EQ(ReadSongDetails(flac, kStandard), SongDetails());
  EXPECT_EQ(ReadRowTexts(flac, kAll).title, "歌");
  EXPECT_EQ(ReadRowTexts(flac, kStandard), (MediaInfo{"---", "---"}));
  EXPECT_EQ(ReadSongDetails(paths.folder.At("missing.flac"), kAll), SongDetails());
  EXPECT_EQ(ReadRowTexts(paths.folder.At("missing.mp3"), kAll), MediaInfo());
  EXPECT_EQ(ReadRowTexts(paths.folder.At("missing.flac"), kAll), (MediaInfo{"---", "---"}));
}

TEST(SongInformation, HasALineOfItsOwnForWhatTagLibReads) {
  Paths paths;
  const std::string path = paths.Add("a.mp3", Newer({{"TIT2", Utf8Text("歌")},
                                                     {"TPE1", Utf8Text("A")},
                                                     {"TALB", Utf8Text("B")},
                                                     {"TRCK", Utf8Text("3")},
                                                     {"TDRC", Utf8Text("2003")},
                                                     {"TCON", Utf8Text("G")}}));
  const FileInformation before = ReadFileInformation(path, "MP3", 0, 65000);
  EXPECT_EQ(ReadInformation(path, "MP3", 0, 65000, kStandard), before);
  const FileInformation all = ReadInformation(path, "MP3", 0, 65000, kAll);
  EXPECT_EQ(all.summary, before.summary);
  EXPECT_EQ(all.detail, "アーティスト： A / アルバム： B / トラック： 3 / 年： 2003 / ジャンル： G / 演奏時間： 0:03");
}

TEST(SongInformation, IsThatOfBeforeWhereTagLibIsNotAsked) {
  Paths paths;
  const std::string own = paths.Add("own.mp3", Mp3Audio(1) + Id3v1Trailer({.title = "Song", .artist = "人"}));
  FileInformation expected = ReadFileInformation(own, "MP3", 0, std::nullopt, StoredText::kUtf8OrAnsi);
  EXPECT_EQ(ReadInformation(own, "MP3", 0, std::nullopt, kAll), expected);
  EXPECT_NE(expected.detail.find("人"), std::string::npos);
  const std::string none = paths.Add("none.mp3", RmpFile({{"INAM", ""}, {"IART", "A"}}));
  EXPECT_EQ(ReadInformation(none, "MP3", 0, std::nullopt, kAll), ReadFileInformation(none, "MP3", 0, std::nullopt));
  const std::string missing = paths.folder.At("missing.flac");
  EXPECT_EQ(ReadInformation(missing, "flac", 5, std::nullopt, kAll),
            ReadFileInformation(missing, "flac", 5, std::nullopt));
}

TEST(SongInformation, DashesStandForWhatIsNotKnown) {
  EXPECT_EQ(SongDetailLine({}),
            "アーティスト： --- / アルバム： --- / トラック： --- / 年： --- / ジャンル： --- / 演奏時間： ---");
  EXPECT_NE(SongDetailLine({.lengthMs = 185'000}).find("演奏時間： 3:05"), std::string::npos);
}

}  // namespace
}  // namespace quillon
