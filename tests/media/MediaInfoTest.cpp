#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "media/MediaInfo.h"
#include "paths/basFileControl.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

MediaInfo Read(const std::string& bytes, std::string_view mediaType) {
  return ReadBothWays(bytes, NeedsForInfo(mediaType), [&](ByteSource& file) { return ReadMediaInfo(file, mediaType); });
}

std::uint8_t KindOf(const std::string& bytes) {
  return ReadBothWays(bytes, NeedsForInfo("MP3"), [&](ByteSource& file) { return DetectTagKind(file); });
}

const MediaInfo kNothing = {"---", "---"};

TEST(MediaType, FollowsTheExtension) {
  const struct {
    const char* extension;
    const char* type;
  } cases[] = {
      {"MID", "MIDI"}, {"MP3", "MP3"},   {"AVI", "AVI"},  {"MPEG", "MPEG"}, {"MPG", "MPEG"},
      {"MPE", "MPEG"}, {"WAV", "WAVE"},  {"HTM", "HTML"}, {"HTML", "HTML"}, {"MIDI", "midi"},
      {"RMI", "rmi"},  {"MP2", "mp2"},   {"TXT", "txt"},  {"", ""},         {"mid", "mid"},
      {"Mp3", "mp3"},  {"MP3 ", "mp3 "}, {"ÄÖ", "äö"},    {"WAVE", "wave"}, {"SHTML", "shtml"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.extension);
    EXPECT_EQ(GetMediaType(c.extension), c.type);
  }
}

TEST(MediaType, OfAFileIsTheSameInAnyLetterCase) {
  const struct {
    const char* path;
    const char* type;
  } cases[] = {{"/a/song.MID", "MIDI"},  {"/a/song.mid", "MIDI"},  {"/a/clip.MPE", "MPEG"}, {"/a/clip.MPG", "MPEG"},
               {"/a/voice.WAV", "WAVE"}, {"/a/readme.txt", "txt"}, {"/a.mid/readme", ""},   {"/a/page.html", "HTML"},
               {"/a/x.midi", "midi"},    {"/a/README.TXT", "txt"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(GetMediaType(Extension(c.path, PathStyle::kLinux)), c.type);
  }
}

TEST(MediaType, FiveTypesArePlayable) {
  for (const char* type : {"MP3", "MIDI", "AVI", "MPEG", "WAVE"}) EXPECT_TRUE(IsPlayableType(type)) << type;
  for (const char* type : {"HTML", "mp3", "midi", "txt", "", "MP2"}) EXPECT_FALSE(IsPlayableType(type)) << type;
}

TEST(TagKind, IsTwoForATagAtTheStartAndZeroForATrailer) {
  const std::string trailer = Id3v1Trailer({.title = "Song"});
  const std::string tag = Id3v2Tag({});
  EXPECT_EQ(KindOf(tag + Mp3Audio(1)), 2);
  EXPECT_EQ(KindOf(Mp3Audio(1) + trailer), 0);
  EXPECT_EQ(KindOf(tag + Mp3Audio(1) + trailer), 2);
  EXPECT_EQ(KindOf(trailer), 0);
  EXPECT_EQ(KindOf("ID3"), 2);
}

TEST(TagKind, IsFourForNeither) {
  EXPECT_EQ(KindOf(Mp3Audio(1)), 4);
  EXPECT_EQ(KindOf(""), 4);
  EXPECT_EQ(KindOf("ID"), 4);
  EXPECT_EQ(KindOf("id3"), 4);
  EXPECT_EQ(KindOf("TAG" + std::string(124, 'x')), 4) << "one byte short";
  EXPECT_EQ(KindOf(Mp3Audio(1) + Id3v1Trailer({}) + "x"), 4) << "one byte behind";
  EXPECT_EQ(KindOf("TAG" + Mp3Audio(1)), 4) << "not at the end";
}

TEST(TagKind, IsFourForAMissingFile) {
  const TempFolder folder;
  EXPECT_EQ(DetectTagKind(folder.At("none.mp3")), 4);
  EXPECT_EQ(DetectTagKind(folder.Write("a.mp3", Id3v2Tag({}))), 2);
}

TEST(MediaInfo, OfAMidiFileIsTitleAndCopyright) {
  EXPECT_EQ(Read(SimpleMidiFile("Song", "(C) 1999"), "MIDI"), (MediaInfo{"Song", "(C) 1999"}));
}

TEST(MediaInfo, OfAnMp3FileIsTheTagsTitleAndArtist) {
  const std::string trailer = Id3v1Trailer({.title = "Song1", .artist = "Artist1"});
  const std::string tag = Id3v2Tag({.frames = {{"TIT2", AnsiText("Song2")}, {"TPE1", AnsiText("Artist2")}}});
  EXPECT_EQ(Read(Mp3Audio(1) + trailer, "MP3"), (MediaInfo{"Song1", "Artist1"}));
  EXPECT_EQ(Read(tag + Mp3Audio(1), "MP3"), (MediaInfo{"Song2", "Artist2"}));
  EXPECT_EQ(Read(tag + Mp3Audio(1) + trailer, "MP3"), (MediaInfo{"Song2", "Artist2"}));
}

TEST(MediaInfo, TheTrailerDoesNotReplaceAnEmptyTag) {
  EXPECT_EQ(Read(Id3v2Tag({}) + Mp3Audio(1) + Id3v1Trailer({.title = "Song", .artist = "Artist"}), "MP3"), MediaInfo());
}

TEST(MediaInfo, OfAnMp3FileWithoutTagIsItsRiffTexts) {
  EXPECT_EQ(Read(RmpFile({{"INAM", "Song"}, {"IART", "Artist"}}), "MP3"), (MediaInfo{"Song", "Artist"}));
}

TEST(MediaInfo, ATrailerWinsOverRiffTexts) {
  const std::string wrapped = RmpFile({{"INAM", "Riff"}}) + Id3v1Trailer({.title = "Song"});
  EXPECT_EQ(Read(wrapped, "MP3"), (MediaInfo{"Song", ""}));
}

TEST(MediaInfo, OfAnMp3FileWithNothingIsEmpty) {
  EXPECT_EQ(Read(Mp3Audio(2), "MP3"), MediaInfo());
  EXPECT_EQ(Read("", "MP3"), MediaInfo());
}

TEST(MediaInfo, TagKindsOneAndThreeCountAsZeroAndTwo) {
  const std::string bytes = Id3v2Tag({.frames = {{"TIT2", AnsiText("two")}}}) + Id3v1Trailer({.title = "one"});
  MemorySource file(bytes);
  BlockReader reader(file);
  EXPECT_EQ(ReadMp3Info(reader, 0).title, "one");
  EXPECT_EQ(ReadMp3Info(reader, 1).title, "one");
  EXPECT_EQ(ReadMp3Info(reader, 2).title, "two");
  EXPECT_EQ(ReadMp3Info(reader, 3).title, "two");
  EXPECT_EQ(ReadMp3Info(reader, 4).title, "");
}

TEST(MediaInfo, TypesWithoutAReaderGiveDashes) {
  const std::string page = HtmlPage("Song", "");
  for (const char* type : {"HTML", "AVI", "MPEG", "WAVE", "txt", "midi", ""}) {
    SCOPED_TRACE(type);
    MemorySource file(page);
    EXPECT_EQ(ReadMediaInfo(file, type), kNothing);
    EXPECT_EQ(file.reads, 0);
  }
}

TEST(MediaInfo, PagesAreReadUnderTheirLowerCaseTypes) {
  for (const char* type : {"htm", "html"}) {
    SCOPED_TRACE(type);
    EXPECT_EQ(Read(HtmlPage("Song", ""), type), (MediaInfo{"Song", "---"}));
    EXPECT_EQ(Read("no title", type), (MediaInfo{"", "---"}));
    EXPECT_EQ(Read("</title>", type), (MediaInfo{"", "---"})) << "an error of the reader";
  }
}

TEST(MediaInfo, TrailingBlanksAreRemovedAndNothingElse) {
  EXPECT_EQ(Read(SimpleMidiFile("Song   ", " (C)  "), "MIDI"), (MediaInfo{"Song", " (C)"}));
  EXPECT_EQ(Read(Id3v1Trailer({.title = "Song   ", .artist = "   "}), "MP3"), (MediaInfo{"Song", ""}));
  EXPECT_EQ(Read(SimpleMidiFile("Song\t", "\x81\x40"), "MIDI"), (MediaInfo{"Song\t", "\u3000"}));
}

TEST(MediaInfo, ATextEndsAtItsFirstZeroByte) {
  using namespace std::string_literals;
  EXPECT_EQ(Read(SimpleMidiFile("Piano right\0"s, "A \0B"s), "MIDI"), (MediaInfo{"Piano right", "A"}));
}

TEST(MediaInfo, CostsOneReadForATagAndTwoForATrailer) {
  MemorySource tagged(Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")}}, .padding = 200}) + Mp3Audio(100));
  EXPECT_EQ(ReadMediaInfo(tagged, "MP3").title, "Song");
  EXPECT_EQ(tagged.reads, 1);
  MemorySource trailer(Mp3Audio(100) + Id3v1Trailer({.title = "Song"}));
  EXPECT_EQ(ReadMediaInfo(trailer, "MP3").title, "Song");
  EXPECT_EQ(trailer.reads, 2);
}

TEST(MediaInfo, ByPathFollowsTheFilesExtension) {
  const TempFolder folder;
  const std::string song = SimpleMidiFile("Song", "(C)");
  EXPECT_EQ(ReadMediaInfo(folder.Write("a.MID", song)), (MediaInfo{"Song", "(C)"}));
  EXPECT_EQ(ReadMediaInfo(folder.Write("a.midi", song)), kNothing);
  EXPECT_EQ(ReadMediaInfo(folder.Write("song", song)), kNothing);
  EXPECT_EQ(ReadMediaInfo(folder.Write("page.html", HtmlPage("Song", ""))), kNothing);
  EXPECT_EQ(ReadMediaInfo(folder.Write("readme.txt", "text")), kNothing);
  EXPECT_EQ(ReadMediaInfo(folder.Write("歌.mp3", Id3v1Trailer({.title = "Song"}))), (MediaInfo{"Song", ""}));
  EXPECT_EQ(ReadMediaInfo(folder.Write("plain.mp3", Mp3Audio(1))), MediaInfo());
}

TEST(MediaInfo, AFileThatCannotBeOpenedGivesEmptyTextsWhereThereIsAReader) {
  const TempFolder folder;
  EXPECT_EQ(ReadMediaInfo(folder.At("none.mid")), MediaInfo());
  EXPECT_EQ(ReadMediaInfo(folder.At("none.mp3")), MediaInfo());
  EXPECT_EQ(ReadMediaInfo(folder.At("none.wav")), kNothing);
}

}  // namespace
}  // namespace quillon
