#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "media/MediaInfo.h"
#include "media/basID3TAGControl.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

Id3v1Info Read(const std::string& bytes) {
  return ReadBothWays(bytes, NeedsForInfo("MP3"), [&](ByteSource& file) { return ReadId3v1(file); });
}

TEST(Id3v1, GivesEveryFieldOfTheTrailer) {
  const Id3v1Texts texts = {.title = "Song",
                            .artist = "Artist",
                            .album = "Album",
                            .year = "1999",
                            .comment = "Nice",
                            .track = 7,
                            .genre = 17};
  EXPECT_EQ(Read(Mp3Audio(3) + Id3v1Trailer(texts)), (Id3v1Info{1, "Song", "Artist", "Album", 1999, "Nice", 7, 17}));
}

struct CommentCase {
  const char* name;
  std::string comment;
  std::optional<unsigned> track;
  int version11;
  int readTrack;
};

TEST(Id3v1, AShortCommentMakesItVersion11WithATrack) {
  const CommentCase cases[] = {
      {"four letters and track 7", "Nice", 7, 1, 7},
      {"no comment", "", 3, 1, 3},
      {"fourteen characters", std::string(14, 'c'), 9, 1, 9},
      {"fifteen characters", std::string(15, 'c'), 9, 0, 0},
      {"twenty characters, zero bytes and a track", std::string(20, 'c'), 9, 0, 0},
      {"thirty bytes that are not zero", std::string(30, 'c'), std::nullopt, 0, 0},
      {"fourteen characters of two bytes",
       "\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC"
       "\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC",
       std::nullopt, 1, 0},
      {"short without a zero at byte 125", "Nice" + std::string(1, '\0') + std::string(25, 'x'), std::nullopt, 1, 'x'},
  };
  for (const CommentCase& c : cases) {
    SCOPED_TRACE(c.name);
    const Id3v1Info info = Read(Id3v1Trailer({.comment = c.comment, .track = c.track}));
    EXPECT_EQ(info.version11, c.version11);
    EXPECT_EQ(info.track, c.readTrack);
  }
}

TEST(Id3v1, YearIsItsLeadingDigits) {
  const struct {
    const char* stored;
    int year;
  } cases[] = {{"1999", 1999}, {"19a9", 19}, {"", 0}, {"abcd", 0}, {"    ", 0}, {"9", 9}, {"9999", 9999}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    EXPECT_EQ(Read(Id3v1Trailer({.year = c.stored})).year, c.year);
  }
}

TEST(Id3v1, ATextEndsAtItsFirstZeroByteAndKeepsItsBlanks) {
  EXPECT_EQ(Read(Id3v1Trailer({.title = std::string("Song  \0rest", 11)})).title, "Song  ");
  EXPECT_EQ(Read(Id3v1Trailer({.title = std::string(30, 't'), .artist = "next"})).title, std::string(30, 't'));
}

TEST(Id3v1, TextsAreDecodedFromCodePage932) {
  EXPECT_EQ(Read(Id3v1Trailer({.artist = "\x89\xCC\x8E\xE8"})).artist, "歌手");
}

TEST(Id3v1, HalfACharacterAtAFieldsEndBecomesAReplacement) {
  EXPECT_EQ(Read(Id3v1Trailer({.title = std::string(29, 't') + "\x89", .artist = "\xCC"})).title,
            std::string(29, 't') + "・");
}

TEST(Id3v1, AFileShorterThanATrailerGivesTheEmptyRecord) {
  const std::string trailer = Id3v1Trailer({.title = "Song", .comment = "Nice", .track = 7});
  for (std::size_t length = 0; length < trailer.size(); ++length) {
    SCOPED_TRACE(length);
    EXPECT_EQ(Read(trailer.substr(0, length)), Id3v1Info());
  }
  EXPECT_EQ(Read(trailer).title, "Song");
}

TEST(Id3v1, ATrailerThatCannotBeReadWholeGivesTheEmptyRecord) {
  MemorySource file(Id3v1Trailer({.title = "Song"}).substr(0, 100));
  file.unreadable = 28;
  EXPECT_EQ(ReadId3v1(file), Id3v1Info());
}

TEST(Id3v1, OnlyTheLast128BytesAreRead) {
  MemorySource file(Mp3Audio(100) + Id3v1Trailer({.title = "Song"}));
  EXPECT_EQ(ReadId3v1(file).title, "Song");
  EXPECT_EQ(file.reads, 1);
  EXPECT_EQ(file.bytesRead, 128u);
}

TEST(Id3v1, ReadsByPath) {
  const TempFolder folder;
  EXPECT_EQ(ReadId3v1(folder.Write("a.mp3", Id3v1Trailer({.title = "Song"}))).title, "Song");
  EXPECT_EQ(ReadId3v1(folder.At("none.mp3")), Id3v1Info());
}

}  // namespace
}  // namespace quillon
