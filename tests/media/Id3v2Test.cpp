#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "media/MediaInfo.h"
#include "media/basID3TAGControl.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

Id3v2Info ReadBytes(const std::string& bytes) {
  return ReadBothWays(bytes, NeedsForInfo("MP3"), [&](ByteSource& file) { return ReadId3v2(file); });
}

Id3v2Info Read(const Id3v2Parts& parts) {
  return ReadBytes(Id3v2Tag(parts));
}

/// One text frame "TIT2".
std::string TitleOf(const std::string& data) {
  return Read({.frames = {{"TIT2", data}}}).title;
}

TEST(Id3v2, GivesTheHeadersFields) {
  const Id3v2Info info = Read({.major = 3, .revision = 2, .flags = 0xA0, .tagSize = 0x0ABCDEF});
  EXPECT_EQ(info.majorVersion, 3);
  EXPECT_EQ(info.revision, 2);
  EXPECT_TRUE(info.unsynchronisation);
  EXPECT_FALSE(info.extendedHeader);
  EXPECT_TRUE(info.experimental);
  EXPECT_EQ(info.tagSize, 0x0ABCDEF);
  EXPECT_TRUE(Read({.flags = 0x40}).extendedHeader);
}

TEST(Id3v2, TheTopBitsOfTheTagSizeDoNotCount) {
  std::string tag = Id3v2Tag({.tagSize = 0});
  tag.replace(6, 4, "\xFF\x80\x81\xFF");
  EXPECT_EQ(ReadBytes(tag).tagSize, 127 * 0x200000 + 1 * 0x80 + 127);
}

TEST(Id3v2, TakesATextInEachEncodingOfVersion3) {
  const Id3v2Info info = Read({.frames = {{"TIT2", AnsiText("Song")}, {"TPE1", Utf16Text(u"歌手")}}});
  EXPECT_EQ(info.title, "Song");
  EXPECT_EQ(info.artist, "歌手");
}

TEST(Id3v2, TakesTheFramesOfVersion2) {
  const Id3v2Info info = Read({.major = 2, .frames = {{"TT2", AnsiText("Song")}, {"TP1", AnsiText("Artist")}}});
  EXPECT_EQ(info.title, "Song");
  EXPECT_EQ(info.artist, "Artist");
}

struct FieldCase {
  const char* four;
  const char* three;
  std::string Id3v2Info::*field;
};

TEST(Id3v2, EveryTextFrameHasItsField) {
  const FieldCase cases[] = {
      {"TIT1", "TT1", &Id3v2Info::contentGroup}, {"TIT2", "TT2", &Id3v2Info::title},
      {"TIT3", "TT3", &Id3v2Info::subtitle},     {"TPE1", "TP1", &Id3v2Info::artist},
      {"TPE2", "TP2", &Id3v2Info::band},         {"TPE3", "TP3", &Id3v2Info::conductor},
      {"TPE4", "TP4", &Id3v2Info::remixer},      {"TALB", "TAL", &Id3v2Info::album},
      {"TRCK", "TRK", &Id3v2Info::track},        {"TCON", "TCO", &Id3v2Info::genre},
  };
  for (const FieldCase& c : cases) {
    SCOPED_TRACE(c.four);
    Id3v2Info wanted = Read({.frames = {{"XXXX", AnsiText("text")}}});
    wanted.*c.field = "text";
    EXPECT_EQ(Read({.frames = {{c.four, AnsiText("text")}}}), wanted);
    EXPECT_EQ(Read({.major = 2, .frames = {{c.three, AnsiText("text")}}}).*c.field, "text");
  }
}

TEST(Id3v2, FrameNamesAreComparedExactly) {
  for (const char* id : {"tit2", "TIT4", "TIT", "XTIT", "TT2 "}) {
    SCOPED_TRACE(id);
    EXPECT_EQ(Read({.frames = {{Padded(id, 4), AnsiText("text")}}}).title, "");
  }
}

TEST(Id3v2, YearIsTheNumberOfItsText) {
  const struct {
    const char* text;
    int year;
  } cases[] = {{"2003", 2003}, {"2003-05-01", 2003}, {"unknown", 0}, {"", 0}, {"32767", 32767}, {"32768", 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Read({.frames = {{"TYER", AnsiText(c.text)}}}).year, c.year);
    EXPECT_EQ(Read({.major = 2, .frames = {{"TYE", AnsiText(c.text)}}}).year, c.year);
  }
}

TEST(Id3v2, TheLastOfSeveralFramesCounts) {
  const Id3v2Info info = Read({.frames = {{"TIT2", AnsiText("first")},
                                          {"TYER", AnsiText("1999")},
                                          {"TIT2", AnsiText("last")},
                                          {"TYER", AnsiText("none")}}});
  EXPECT_EQ(info.title, "last");
  EXPECT_EQ(info.year, 0);
  EXPECT_EQ(Read({.frames = {{"TIT2", AnsiText("text")}, {"TIT2", AnsiText("")}}}).title, "");
}

struct TextCase {
  const char* name;
  std::string data;
  const char* text;
};

TEST(Id3v2, DecodesTextsByTheirEncodingByte) {
  using namespace std::string_literals;
  const TextCase cases[] = {
      {"code page 932", "\0\x89\xCC"s, "歌"},
      {"up to the first zero byte", "\0Song\0rest"s, "Song"},
      {"no data", "", ""},
      {"encoding byte only", "\0"s, ""},
      {"little-endian", Utf16Text(u"歌a"), "歌a"},
      {"big-endian", Utf16Text(u"歌a", false), "歌a"},
      {"up to the first zero unit", Utf16Text(u"ab\0cd"s), "ab"},
      {"a zero byte is no zero unit", Utf16Text(u"\u0100\u3000"), "\u0100\u3000"},
      {"odd length", Utf16Text(u"ab") + "c", "ab"},
      {"a mark that is none means big-endian", "\1\0\0\0a"s, "a"},
      {"half a mark", "\1\xFF"s, ""},
      {"a mark only", "\1\xFF\xFE"s, ""},
      {"surrogate pair", Utf16Text(u"\U0001F3B5"), "\U0001F3B5"},
      {"lone high half",
       Utf16Text(u"a\xD83C"
                 u"b"),
       "a\uFFFD"
       "b"},
      {"lone high half at the end", Utf16Text(u"a\xD83C"), "a\uFFFD"},
      {"high half before the terminator", Utf16Text(u"a\xD83C\0b"s), "a\uFFFD"},
      {"two high halves", Utf16Text(u"\xD83C\xD83C\xDFB5"), "\uFFFD\U0001F3B5"},
      {"lone low half", Utf16Text(u"\xDFB5z"), "\uFFFDz"},
      {"encoding 2 is not read", "\2\0a\0b"s, ""},
      {"encoding 3 is not read", "\3Song", ""},
      {"encoding 255 is not read", "\xFFSong", ""},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(TitleOf(c.data), c.text);
  }
}

struct CommentCase {
  const char* name;
  std::string data;
  const char* description;
  const char* comment;
};

TEST(Id3v2, ACommentHasADescriptionAndAText) {
  using namespace std::string_literals;
  const CommentCase cases[] = {
      {"both", AnsiComment("about", "text"), "about", "text"},
      {"no description", AnsiComment("", "text"), "", "text"},
      {"UTF-16", Utf16Comment(u"題", u"文"), "題", "文"},
      {"UTF-16 without description", Utf16Comment(u"", u"文"), "", "文"},
      {"text ends at its zero byte", AnsiComment("a", "text\0rest"s), "a", "text"},
      {"description never ends", "\0jpnabout"s, "about", ""},
      {"language cut off", "\0jp"s, "", ""},
      {"no data", "", "", ""},
      {"encoding that is not read", "\3jpna\0b"s, "", ""},
  };
  for (const CommentCase& c : cases) {
    SCOPED_TRACE(c.name);
    for (const Id3v2Info& info : {Read({.frames = {{"COMM", c.data}, {"TIT2", AnsiText("after")}}}),
                                  Read({.major = 2, .frames = {{"COM", c.data}, {"TT2", AnsiText("after")}}})}) {
      EXPECT_EQ(info.commentDescription, c.description);
      EXPECT_EQ(info.comment, c.comment);
      EXPECT_EQ(info.title, "after");
    }
  }
}

TEST(Id3v2, ACompressedFirstFrameLeavesTitleAndArtistEmpty) {
  const Id3v2Info info =
      Read({.frames = {{"TIT2", AnsiText("Song"), id3_frame_flag::kCompressed}, {"TPE1", AnsiText("Artist")}}});
  EXPECT_EQ(info.title, "");
  EXPECT_EQ(info.artist, "");
}

TEST(Id3v2, ACompressedFrameKeepsWhatCameBefore) {
  const Id3v2Info info = Read(
      {.frames = {
           {"TIT2", AnsiText("Song")}, {"APIC", "zip", id3_frame_flag::kCompressed}, {"TPE1", AnsiText("Artist")}}});
  EXPECT_EQ(info.title, "Song");
  EXPECT_EQ(info.artist, "");
}

TEST(Id3v2, EncryptedAndGroupedFramesHaveExtraBytesInFrontOfTheirText) {
  const struct {
    const char* name;
    std::string extra;
    unsigned flags;
  } cases[] = {{"encrypted", "m", id3_frame_flag::kEncrypted},
               {"grouped", "g", id3_frame_flag::kGrouped},
               {"both", "mg", id3_frame_flag::kEncrypted | id3_frame_flag::kGrouped},
               {"flags without a meaning", "", 0x1F}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const Id3v2Info info =
        Read({.frames = {{"TIT2", c.extra + AnsiText("Song"), c.flags}, {"TPE1", AnsiText("Artist")}}});
    EXPECT_EQ(info.title, "Song");
    EXPECT_EQ(info.artist, "Artist");
  }
}

TEST(Id3v2, AnEncryptedFrameOfSizeZeroIsSkippedWithItsExtraByte) {
  const Id3v2Info info = Read({.frames = {{"TIT2", "m", id3_frame_flag::kEncrypted, 0}, {"TPE1", AnsiText("Artist")}}});
  EXPECT_EQ(info.title, "");
  EXPECT_EQ(info.artist, "Artist");
}

TEST(Id3v2, Version4GivesItsHeaderAndNoTexts) {
  // If three-letter frames were read, "TALB" and "COMM" would give texts made from their sizes.
  for (const char* first : {"TIT2", "TALB", "COMM", "TYER", "TCON"}) {
    SCOPED_TRACE(first);
    const Id3v2Info info =
        Read({.major = 4, .revision = 1, .frames = {{first, AnsiText("123456789012")}, {"TPE1", AnsiText("Artist")}}});
    Id3v2Info wanted;
    wanted.majorVersion = 4;
    wanted.revision = 1;
    wanted.tagSize = info.tagSize;
    EXPECT_GT(info.tagSize, 0);
    EXPECT_EQ(info, wanted);
  }
}

TEST(Id3v2, OtherVersionsAreReadWithThreeLetterFrames) {
  for (const unsigned major : {0u, 1u, 5u, 255u}) {
    SCOPED_TRACE(major);
    std::string tag = Id3v2Tag({.major = 2, .frames = {{"TT2", AnsiText("Song")}}});
    tag[3] = static_cast<char>(static_cast<unsigned char>(major));
    EXPECT_EQ(ReadBytes(tag).title, "Song");
  }
}

TEST(Id3v2, TheExtendedHeaderIsSkipped) {
  const Id3v2Info plain = Read({.frames = {{"TIT2", AnsiText("Song")}}, .padding = 30, .extendedHeader = true});
  EXPECT_TRUE(plain.extendedHeader);
  EXPECT_FALSE(plain.crcPresent);
  EXPECT_EQ(plain.crc, 0);
  EXPECT_EQ(plain.title, "Song");

  const Id3v2Info checked = Read({.frames = {{"TIT2", AnsiText("Song")}}, .extendedHeader = true, .crc = 0x0ABCDEF});
  EXPECT_TRUE(checked.crcPresent);
  EXPECT_EQ(checked.crc, 0x0ABCDEF);
  EXPECT_EQ(checked.title, "Song");
}

TEST(Id3v2, TheCrcKeepsTopBits) {
  std::string tag = Id3v2Tag({.extendedHeader = true, .crc = 0});
  tag.replace(20, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(ReadBytes(tag).crc, 255 * (0x200000 + 0x4000 + 0x80 + 1));
}

TEST(Id3v2, Version2HasNoExtendedHeader) {
  EXPECT_EQ(Read({.major = 2, .flags = 0x40, .frames = {{"TT2", AnsiText("Song")}}}).title, "Song");
}

TEST(Id3v2, FramesBeginOnlyInFrontOfThePadding) {
  // The claimed padding is so large that it begins at the second frame and hides it.
  const std::vector<Id3Frame> frames = {{"TIT2", AnsiText("Song")}, {"TPE1", AnsiText("Artist")}};
  Id3v2Parts parts = {.frames = frames, .padding = 17, .extendedHeader = true};
  std::string tag = Id3v2Tag(parts);
  EXPECT_EQ(ReadBytes(tag).artist, "Artist");
  tag[19] = 17 + 17;  // the last byte of the padding size, which now includes the second frame
  EXPECT_EQ(ReadBytes(tag).title, "Song");
  EXPECT_EQ(ReadBytes(tag).artist, "");
}

TEST(Id3v2, TheFirstFrameIsReadWhateverTheTagSizeSays) {
  const Id3v2Info info = Read({.frames = {{"TIT2", AnsiText("Song")}, {"TPE1", AnsiText("Artist")}}, .tagSize = 0});
  EXPECT_EQ(info.title, "Song");
  EXPECT_EQ(info.artist, "");
}

TEST(Id3v2, AFrameIsReadWhenItBeginsTwoBytesBeforeTheTagsEnd) {
  // Positions count from 1 in that check, so no frame starts at the last byte before the end.
  const std::vector<Id3Frame> frames = {{"TIT2", AnsiText("Song")}, {"TPE1", AnsiText("Artist")}};
  const std::uint32_t firstFrame = 15;
  EXPECT_EQ(Read({.frames = frames, .tagSize = firstFrame + 2}).artist, "Artist");
  EXPECT_EQ(Read({.frames = frames, .tagSize = firstFrame + 1}).artist, "");
}

TEST(Id3v2, AZeroByteInsteadOfAFrameNameEndsTheTag) {
  std::string tag = Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")}}, .padding = 10, .tagSize = 1000});
  tag += Id3v2Tag({.frames = {{"TPE1", AnsiText("Artist")}}}).substr(10);
  EXPECT_EQ(ReadBytes(tag).title, "Song");
  EXPECT_EQ(ReadBytes(tag).artist, "");
}

TEST(Id3v2, UnsynchronisedDataIsReadUnchanged) {
  const Id3v2Info info = Read({.flags = 0x80, .frames = {{"TIT2", AnsiText("a\xE0")}, {"TPE1", AnsiText("Artist")}}});
  EXPECT_TRUE(info.unsynchronisation);
  EXPECT_EQ(info.title, "a・");
  EXPECT_EQ(info.artist, "Artist");
  // Unsynchronisation puts a zero byte into the mark FF FE; the units behind it are then out of step.
  EXPECT_EQ(TitleOf(Bytes({1, 0xFF, 0, 0xFE, 'a', 0, 'b', 0})), "\u61FE\u6200");
}

TEST(Id3v2, AFrameCutOffByTheFileGivesTheTextThatIsThere) {
  const std::string tag = Id3v2Tag({.frames = {{"TIT2", AnsiText("Song"), 0, 0xFFFFFFFF}}, .tagSize = 0x0FFFFFFF});
  EXPECT_EQ(ReadBytes(tag).title, "Song");
}

TEST(Id3v2, EveryTruncationGivesBeginningsOfTheTexts) {
  const std::string tag = Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")},
                                               {"TPE1", Utf16Text(u"歌手")},
                                               {"COMM", AnsiComment("about", "text")},
                                               {"TYER", AnsiText("2003")}},
                                    .padding = 5,
                                    .extendedHeader = true,
                                    .crc = 1});
  const Id3v2Info whole = ReadBytes(tag);
  for (std::size_t length = 0; length <= tag.size(); ++length) {
    SCOPED_TRACE(length);
    const Id3v2Info cut = ReadBytes(tag.substr(0, length));
    EXPECT_TRUE(whole.title.starts_with(cut.title));
    EXPECT_TRUE(whole.artist.starts_with(cut.artist));
    EXPECT_TRUE(whole.commentDescription.starts_with(cut.commentDescription));
    EXPECT_TRUE(whole.comment.starts_with(cut.comment));
    EXPECT_LE(cut.year, whole.year);
  }
  EXPECT_EQ(whole.year, 2003);
}

TEST(Id3v2, PicturesAreSkippedUnread) {
  MemorySource file(Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")},
                                         {"APIC", std::string(3'000'000, 'x')},
                                         {"TPE1", AnsiText("Artist")}}}) +
                    Mp3Audio(50));
  EXPECT_EQ(ReadId3v2(file).artist, "Artist");
  EXPECT_EQ(file.reads, 2);
  EXPECT_LT(file.bytesRead, 10'000u);
}

TEST(Id3v2, ATagInTheFirstBlockCostsOneRead) {
  MemorySource file(Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")}, {"TPE1", AnsiText("Artist")}}, .padding = 500}) +
                    Mp3Audio(50));
  EXPECT_EQ(ReadId3v2(file).artist, "Artist");
  EXPECT_EQ(file.reads, 1);
}

TEST(Id3v2, ATextIsReadUpTo64KiB) {
  const std::string whole(kLongestText, 'x');
  const Id3v2Info info = Read({.frames = {{"TALB", AnsiText(whole)},
                                          {"TIT2", AnsiText(whole + "yz")},
                                          {"TIT3", AnsiText(whole.substr(1) + "\x89\xCC")},
                                          {"TPE2", Utf16Text(std::u16string(kLongestText / 2, u'x') + u"yz")},
                                          {"TPE1", AnsiText("Artist")}}});
  EXPECT_EQ(info.album, whole);
  EXPECT_EQ(info.title, whole);
  EXPECT_EQ(info.subtitle, whole.substr(1) + "・") << "half a character at the cut";
  EXPECT_EQ(info.band, whole.substr(0, kLongestText / 2));
  EXPECT_EQ(info.artist, "Artist") << "the next frame is found behind what was cut";
}

TEST(Id3v2, BothTextsOfACommentAreReadUpTo64KiB) {
  const std::string whole(kLongestText, 'x');
  const Id3v2Info info = Read({.frames = {{"COMM", AnsiComment(whole, whole + "y")}}});
  EXPECT_EQ(info.commentDescription, whole);
  EXPECT_EQ(info.comment, whole);
  const Id3v2Info endless = Read({.frames = {{"COMM", AnsiComment(whole + whole + whole, "comment")}}});
  EXPECT_EQ(endless.commentDescription, whole);
  EXPECT_EQ(endless.comment, "");
}

TEST(Id3v2, TheNumberOfExaminedFramesIsLimited) {
  const auto titleBehind = [](int count) {
    std::vector<Id3Frame> frames(static_cast<std::size_t>(count), Id3Frame{"XXXX", ""});
    frames.push_back({"TIT2", AnsiText("Song")});
    return Read({.frames = frames}).title;
  };
  EXPECT_EQ(titleBehind(kMostId3Frames - 1), "Song");
  EXPECT_EQ(titleBehind(kMostId3Frames), "");
}

TEST(Id3v2, ReadingFramesOfSizeZeroEnds) {
  for (const unsigned major : {2u, 3u}) {
    SCOPED_TRACE(major);
    const Id3Frame frame{major == 2 ? "XXX" : "XXXX", ""};
    MemorySource file(
        Id3v2Tag({.major = major, .frames = std::vector<Id3Frame>(100'000, frame), .tagSize = 0x0FFFFFFF}));
    EXPECT_EQ(ReadId3v2(file).title, "");
    EXPECT_LE(file.bytesRead, 2 * file.Size());
  }
}

TEST(Id3v2, TitleAndArtistAloneAreTheSameAsWithAllFields) {
  const std::string tag = Id3v2Tag({.frames = {{"TALB", AnsiText("Album")},
                                               {"TIT2", AnsiText("Song")},
                                               {"COMM", AnsiComment("a", "b")},
                                               {"TPE1", AnsiText("Artist")}}});
  MemorySource file(tag);
  BlockReader reader(file);
  const Id3v2Info info = ReadId3v2(reader, TagFields::kTitleAndArtist);
  EXPECT_EQ(info.title, "Song");
  EXPECT_EQ(info.artist, "Artist");
  EXPECT_EQ(info.album, "");
}

TEST(Id3v2, ReadsByPath) {
  const TempFolder folder;
  EXPECT_EQ(ReadId3v2(folder.Write("a.mp3", Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")}}}))).title, "Song");
  EXPECT_EQ(ReadId3v2(folder.At("none.mp3")), Id3v2Info());
}

TEST(Id3v2, AnIdentifierThatBeginsWithAZeroByteIsNone) {
  using namespace std::string_literals;
  MemorySource file(Id3v2Tag({.frames = {{"\0TT2"s, AnsiText("no title")}}}));
  EXPECT_EQ(ReadId3v2(file).title, "");
}

}  // namespace
}  // namespace quillon
