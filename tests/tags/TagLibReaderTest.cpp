#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/SongBuilders.h"
#include "tags/SongReader.h"
#include "tags/TagLibReader.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in
using namespace std::string_literals;

SongDetails Read(const std::string& bytes, const FileType& type, TagFields wanted = TagFields::kAll) {
  return ReadBothWays(bytes, NeedsForRow(type, TagSources::kAll),
                      [&](ByteSource& file) { return ReadTagLibDetails(file, type, wanted); });
}

const TagTexts kComments = {{"TITLE", "歌"},      {"ARTIST", "人"}, {"ALBUM", "アルバム"},
                            {"TRACKNUMBER", "3"}, {"DATE", "2003"}, {"GENRE", "J-Pop"}};
const TagTexts kItems = {{"Title", "歌"},   {"Artist", "人"}, {"Album", "アルバム"},
                         {"Track", "3/12"}, {"Year", "2003"}, {"Genre", "J-Pop"}};

std::string FullTag(unsigned major = 4) {
  const auto text = [major](const std::string& utf8, std::u16string_view utf16) {
    return major == 4 ? Utf8Text(utf8) : Utf16Text(utf16);
  };
  return Id3v2Tag({.major = major,
                   .frames = {{"TIT2", text("歌", u"歌")},
                              {"TPE1", text("人", u"人")},
                              {"TALB", text("アルバム", u"アルバム")},
                              {"TRCK", text("3/12", u"3/12")},
                              {major == 4 ? "TDRC" : "TYER", text("2003-05-01", u"2003")},
                              {"TCON", text("J-Pop", u"J-Pop")}}});
}

SongDetails Full(std::optional<std::int32_t> lengthMs = std::nullopt) {
  return {.title = "歌",
          .artist = "人",
          .album = "アルバム",
          .genre = "J-Pop",
          .track = 3,
          .year = 2003,
          .lengthMs = lengthMs};
}

struct FormatCase {
  const char* name;
  const char* type;
  std::string bytes;
  SongDetails expected;
};

std::vector<FormatCase> Formats() {
  const TagTexts atoms = {{"\xA9nam", "歌"},
                          {"\xA9"
                           "ART",
                           "人"},
                          {"\xA9"
                           "alb",
                           "アルバム"},
                          {"trkn", "3"},
                          {"\xA9"
                           "day",
                           "2003"},
                          {"\xA9gen", "J-Pop"}};
  const std::string info = InfoList(
      {{"INAM", "歌"}, {"IART", "人"}, {"IPRD", "アルバム"}, {"IPRT", "3"}, {"ICRD", "2003"}, {"IGNR", "J-Pop"}});
  const auto wave = [](const std::string& chunk) {
    return RiffList("RIFF", "WAVE", {WaveFile(3000).substr(12), chunk});
  };
  const std::string wma = WmaFile(
      u"歌", u"人",
      {{u"WM/AlbumTitle", u"アルバム"}, {u"WM/TrackNumber", u"3"}, {u"WM/Year", u"2003"}, {u"WM/Genre", u"J-Pop"}});
  SongDetails moduleTitle;
  moduleTitle.title = "歌";
  return {
      {"ID3v2.4", "MP3", FullTag() + Mp3Audio(116), Full(3023)},
      {"ID3v2.3", "MP3", FullTag(3) + Mp3Audio(116), Full(3023)},
      {"an APE tag", "MP3", Mp3Audio(116) + ApeTag(kItems), Full(3023)},
      {"FLAC", "flac", FlacFile(kComments), Full(3000)},
      {"FLAC behind ID3v2.4", "flac", FullTag() + FlacFile({}), Full(3000)},
      {"Ogg Vorbis", "ogg", OggVorbisFile(kComments), Full(3000)},
      {"Ogg FLAC", "oga", OggFlacFile(kComments), Full(3000)},
      {"Ogg Vorbis under another name", "oga", OggVorbisFile(kComments), Full(3000)},
      {"Opus", "opus", OggOpusFile(kComments), Full(3000)},
      {"Opus under another name", "ogg", OggOpusFile(kComments), Full(3000)},
      {"Speex", "spx", OggSpeexFile(kComments), Full(3000)},
      {"M4A", "m4a", M4aFile(atoms), Full(3000)},
      {"MP4", "mp4", M4aFile(atoms), Full(3000)},
      {"WMA", "wma", wma, Full(3000)},
      {"AIFF", "aif", AiffFile({AiffChunk("ID3 ", FullTag())}), Full(3000)},
      {"AIFC", "aifc", AiffFile({AiffChunk("ID3 ", FullTag())}, "AIFC"), Full(3000)},
      {"WAVE with INFO", "WAVE", wave(info), Full(3000)},
      {"WAVE with ID3v2.4", "WAVE", wave(RiffChunk("id3 ", FullTag())), Full(3000)},
      {"Monkey's Audio", "ape", "MAC " + std::string(200, '\0') + ApeTag(kItems), Full()},
      {"WavPack", "wv", "wvpk" + std::string(200, '\0') + ApeTag(kItems), Full()},
      {"Musepack", "mpc", "MPCK" + std::string(200, '\0') + ApeTag(kItems), Full()},
      {"True Audio", "tta", FullTag() + "TTA1" + std::string(200, '\0'), Full()},
      {"MOD", "mod", ModFile("\x89\xCC"), moduleTitle},
      {"S3M in UTF-8", "s3m", S3mFile("歌"), moduleTitle},
      {"IT", "it", ItFile("\x89\xCC"), moduleTitle},
      {"XM", "xm", XmFile("\x89\xCC"), moduleTitle},
  };
}

TEST(TagLibReader, ReadsEveryFormat) {
  for (const FormatCase& c : Formats()) {
    SCOPED_TRACE(c.name);
    EXPECT_TRUE(HasMoreTags(c.type));
    const SongDetails song = Read(c.bytes, c.type);
    EXPECT_EQ(song.title, c.expected.title);
    EXPECT_EQ(song.artist, c.expected.artist);
    EXPECT_EQ(song.album, c.expected.album);
    EXPECT_EQ(song.genre, c.expected.genre);
    EXPECT_EQ(song.track, c.expected.track);
    EXPECT_EQ(song.year, c.expected.year);
    EXPECT_EQ(song.lengthMs, c.expected.lengthMs);
  }
}

TEST(TagLibReader, TheUsualMusicFilesAreThese) {
  EXPECT_EQ(UsualMusicExtensions(),
            (std::vector<std::string_view>{"flac", "ogg", "oga", "opus", "spx", "m4a", "m4b", "wma", "aif", "aiff",
                                           "aifc", "ape", "wv", "mpc", "tta"}));
  EXPECT_TRUE(UsuallyHasMoreTags("opus"));
  EXPECT_FALSE(UsuallyHasMoreTags("mod"));
  EXPECT_FALSE(UsuallyHasMoreTags("MP3"));
}

TEST(TagLibReader, ARowsTextsComeWithoutThePlayingTime) {
  for (const FormatCase& c : Formats()) {
    SCOPED_TRACE(c.name);
    const SongDetails song = Read(c.bytes, c.type, TagFields::kTitleAndArtist);
    EXPECT_EQ(song.title, c.expected.title);
    EXPECT_EQ(song.artist, c.expected.artist);
    EXPECT_EQ(song.lengthMs, std::nullopt);
  }
}

TEST(TagLibReader, OtherTypesAreNotRead) {
  for (const char* type : {"MIDI", "HTML", "htm", "AVI", "MPEG", "txt", ""}) {
    SCOPED_TRACE(type);
    EXPECT_FALSE(HasMoreTags(type));
    MemorySource file(FlacFile(kComments));
    EXPECT_EQ(ReadTagLibDetails(file, type), SongDetails());
    EXPECT_EQ(file.reads, 0);
  }
}

TEST(TagLibReader, TextsWithoutAnEncodingAreUtf8OrCodePage932) {
  const auto latin = [](const std::string& text) {
    return Read(Id3v2Tag({.major = 4, .frames = {{"TIT2", AnsiText(text)}}}) + Mp3Audio(1), "MP3").title;
  };
  EXPECT_EQ(latin("歌"), "歌");
  EXPECT_EQ(latin("\x89\xCC"), "歌");
  const auto trailer = [](const std::string& text) {
    return Read(FlacFile({}) + Id3v1Trailer({.title = text}), "flac").title;
  };
  EXPECT_EQ(trailer("歌"), "歌");
  EXPECT_EQ(trailer("\x89\xCC"), "歌");
  EXPECT_EQ(trailer("a歌歌歌歌歌歌歌歌歌歌"), "a歌歌歌歌歌歌歌歌歌");
  const auto chunk = [](const std::string& text) {
    return Read(RiffList("RIFF", "WAVE", {WaveFile(1).substr(12), InfoList({{"INAM", text}})}), "WAVE").title;
  };
  EXPECT_EQ(chunk("歌"), "歌");
  EXPECT_EQ(chunk("\x89\xCC"), "歌");
}

TEST(TagLibReader, GenreNumbersBecomeNames) {
  const auto genre = [](const std::string& text) {
    return Read(Id3v2Tag({.major = 4, .frames = {{"TCON", Utf8Text(text)}}}) + Mp3Audio(1), "MP3").genre;
  };
  EXPECT_EQ(genre("17"), "Rock");
  EXPECT_EQ(genre("J-Pop"), "J-Pop");
}

TEST(TagLibReader, OddSurrogatesBecomeReplacementCharacters) {
  const std::u16string text = {u'a', 0xD800, u'b'};
  const SongDetails song = Read(Id3v2Tag({.major = 4, .frames = {{"TIT2", Utf16Text(text)}}}) + Mp3Audio(1), "MP3");
  EXPECT_TRUE(IsValidUtf8(song.title)) << song.title;
}

TEST(TagLibReader, SmallReadsCostFewReadsOfTheFile) {
  MemorySource flac(FlacFile(kComments));
  EXPECT_EQ(ReadTagLibDetails(flac, "flac").title, "歌");
  EXPECT_LE(flac.reads, 2);
  MemorySource m4a(M4aFile({{"\xA9nam", "歌"}}));
  EXPECT_EQ(ReadTagLibDetails(m4a, "m4a").title, "歌");
  EXPECT_LE(m4a.reads, 2);
  MemorySource ogg(OggVorbisFile(kComments));
  EXPECT_EQ(ReadTagLibDetails(ogg, "ogg", TagFields::kTitleAndArtist).title, "歌");
  EXPECT_LE(ogg.reads, 2);
}

TEST(TagLibReader, EveryTruncationGivesNoOtherTexts) {
  for (const FormatCase& c : Formats()) {
    SCOPED_TRACE(c.name);
    for (std::size_t length = 0; length < c.bytes.size(); length += 1 + c.bytes.size() / 300) {
      const SongDetails song = Read(c.bytes.substr(0, length), c.type);
      EXPECT_TRUE(c.expected.artist.starts_with(song.artist) || song.artist.ends_with("\uFFFD")) << length;
    }
  }
}

}  // namespace
}  // namespace quillon
