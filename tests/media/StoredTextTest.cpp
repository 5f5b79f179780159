#include <gtest/gtest.h>

#include <string>

#include "media/MediaInfo.h"
#include "media/StoredText.h"
#include "media/basID3TAGControl.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in
using namespace std::string_literals;

constexpr auto kBoth = StoredText::kUtf8OrAnsi;

TEST(StoredText, OnlyValidUtf8IsTakenForIt) {
  EXPECT_EQ(DecodeStoredText("歌", kBoth), "歌");
  EXPECT_EQ(DecodeStoredText("\x89\xCC", kBoth), "歌");            // code page 932
  EXPECT_EQ(DecodeStoredText("\x89\xCC歌", kBoth), "歌豁\u30FB");  // both are code page 932 then
  EXPECT_EQ(DecodeStoredText("Song", kBoth), "Song");
  EXPECT_EQ(DecodeStoredText("", kBoth), "");
}

TEST(StoredText, OtherwiseEveryTextIsOfCodePage932) {
  EXPECT_EQ(DecodeStoredText("歌", StoredText::kAnsi), "豁\u30FB");
  EXPECT_EQ(DecodeStoredField("歌", StoredText::kAnsi), "豁\u30FB");
}

TEST(StoredText, AFieldEndsAtItsFirstZeroByte) {
  EXPECT_EQ(DecodeStoredField("歌\0\xFF"s, kBoth), "歌");
  EXPECT_EQ(DecodeStoredField("\x89\xCC\0歌"s, kBoth), "歌");
}

TEST(StoredText, ACharacterThatTheEndOfAFullFieldTearsIsDropped) {
  EXPECT_EQ(DecodeStoredField("歌\xE6", kBoth), "歌");
  EXPECT_EQ(DecodeStoredField("歌\xE6\xAD", kBoth), "歌");
  EXPECT_EQ(DecodeStoredField("歌\xF0\x9F\x8E", kBoth), "歌");
  EXPECT_EQ(DecodeStoredField("é\xC3", kBoth), "é");
}

TEST(StoredText, OtherHalvesOfCharactersAreNoUtf8) {
  EXPECT_EQ(DecodeStoredField("歌\xE6\xAD\0"s, kBoth), DecodeStoredField("歌\xE6\xAD", StoredText::kAnsi));
  EXPECT_EQ(DecodeStoredField("Song\xE6\xAD", kBoth), DecodeStoredField("Song\xE6\xAD", StoredText::kAnsi));
  EXPECT_EQ(DecodeStoredField("歌\x80", kBoth), DecodeStoredField("歌\x80", StoredText::kAnsi));
  EXPECT_EQ(DecodeStoredField("\xE6\xAD", kBoth), DecodeStoredField("\xE6\xAD", StoredText::kAnsi));
}

MediaInfo Row(const std::string& bytes, const char* type, StoredText stored) {
  return ReadBothWays(bytes, NeedsForInfo(type), [&](ByteSource& file) { return ReadMediaInfo(file, type, stored); });
}

TEST(StoredText, MidiFilesAndId3v1TrailersAreReadAsSaid) {
  const std::string midi = SimpleMidiFile("歌", "人");
  EXPECT_EQ(Row(midi, "MIDI", kBoth), (MediaInfo{"歌", "人"}));
  EXPECT_EQ(Row(midi, "MIDI", StoredText::kAnsi), (MediaInfo{"豁\u30FB", "莠ｺ"}));
  const std::string mp3 = Mp3Audio(1) + Id3v1Trailer({.title = "歌", .artist = "人"});
  EXPECT_EQ(Row(mp3, "MP3", kBoth), (MediaInfo{"歌", "人"}));
  EXPECT_EQ(Row(mp3, "MP3", StoredText::kAnsi), (MediaInfo{"豁\u30FB", "莠ｺ"}));
}

TEST(StoredText, ALongTitleOfAnId3v1TrailerLosesOnlyTheTornCharacter) {
  std::string title = "a";
  for (int i = 0; i < 12; ++i) title += "歌";
  const std::string mp3 = Mp3Audio(1) + Id3v1Trailer({.title = title});
  EXPECT_EQ(Row(mp3, "MP3", kBoth).title, "a歌歌歌歌歌歌歌歌歌");
}

TEST(StoredText, ACommentsLengthCountsAsBeforeForItsVersion) {
  std::string comment;
  for (int i = 0; i < 10; ++i) comment += "歌";
  MemorySource file(Mp3Audio(1) + Id3v1Trailer({.comment = comment}));
  BlockReader reader(file);
  EXPECT_EQ(ReadId3v1(reader, TagFields::kAll, kBoth).comment, comment);
  EXPECT_EQ(ReadId3v1(reader, TagFields::kAll, kBoth).version11, 0);
}

TEST(MediaInfo, TellsATagOfVersion24WhichIsNotRead) {
  const auto tag = [](unsigned major) {
    return Id3v2Tag({.major = major, .frames = {{major == 2 ? "TT2" : "TIT2", AnsiText("Song")}}});
  };
  EXPECT_TRUE(Row(tag(4), "MP3", StoredText::kAnsi).newerTag);
  EXPECT_EQ(Row(tag(4), "MP3", StoredText::kAnsi).title, "");
  EXPECT_FALSE(Row(tag(3), "MP3", StoredText::kAnsi).newerTag);
  EXPECT_FALSE(Row(tag(2), "MP3", StoredText::kAnsi).newerTag);
  EXPECT_FALSE(Row(Mp3Audio(1), "MP3", StoredText::kAnsi).newerTag);
}

}  // namespace
}  // namespace quillon
