#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "media/FileInformation.h"
#include "paths/basFileControl.h"
#include "platform/Shell.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

Id3v2Info Tag(const std::string& artist, const std::string& album, const std::string& comment, std::int16_t year) {
  Id3v2Info tag;
  tag.artist = artist;
  tag.album = album;
  tag.comment = comment;
  tag.year = year;
  return tag;
}

TEST(SummaryLine, ShowsSizeTypeAndPlayTime) {
  EXPECT_EQ(SummaryLine(1234567, "MP3", Id3v2Info(), 185000),
            "サイズ： 1,234,567 バイト / 種類： MP3 (ID3v2) / 演奏時間： 3:05");
}

TEST(SummaryLine, ShowsTheSizeOfAnEmptyFile) {
  EXPECT_EQ(SummaryLine(0, "txt", std::monostate(), std::nullopt), "サイズ： 0 バイト / 種類： txt");
}

TEST(SummaryLine, ShowsTheFormatOfAMidiFile) {
  MidiInfo midi;
  midi.format = 1;
  EXPECT_EQ(SummaryLine(999, "MIDI", midi, 61000),
            "サイズ： 999 バイト / 種類： MIDI (SMF Format 1) / 演奏時間： 1:01");
  EXPECT_EQ(SummaryLine(999, "MIDI", midi, std::nullopt), "サイズ： 999 バイト / 種類： MIDI (SMF Format 1)");
}

TEST(SummaryLine, NamesTheKindOfAnMp3FilesTexts) {
  const struct {
    const char* name;
    MediaRecord record;
    const char* type;
  } cases[] = {
      {"trailer", Id3v1Info(), "MP3 (ID3v1)"},
      {"tag", Id3v2Info(), "MP3 (ID3v2)"},
      {"RIFF artist", RiffInfo{"", "a", "", "", ""}, "MP3 (RMP)"},
      {"RIFF album", RiffInfo{"", "", "p", "", ""}, "MP3 (RMP)"},
      {"RIFF date", RiffInfo{"", "", "", "d", ""}, "MP3 (RMP)"},
      {"RIFF comment", RiffInfo{"", "", "", "", "c"}, "MP3 (RMP)"},
      {"RIFF name alone", RiffInfo{"n", "", "", "", ""}, "MP3"},
      {"nothing", RiffInfo(), "MP3"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(SummaryLine(1, "MP3", c.record, std::nullopt), "サイズ： 1 バイト / 種類： " + std::string(c.type));
  }
}

TEST(SummaryLine, ShowsOtherTypesAsTheyAre) {
  EXPECT_EQ(SummaryLine(1000, "AVI", std::monostate(), std::nullopt), "サイズ： 1,000 バイト / 種類： AVI");
  EXPECT_EQ(SummaryLine(1000, "AVI", std::monostate(), 1000), "サイズ： 1,000 バイト / 種類： AVI / 演奏時間： 0:01");
}

TEST(SummaryLine, ShowsNoPlayTimeOfTypesThatAreNotPlayed) {
  EXPECT_EQ(SummaryLine(1, "HTML", std::monostate(), 1000), "サイズ： 1 バイト / 種類： HTML");
  EXPECT_EQ(SummaryLine(1, "txt", std::monostate(), 1000), "サイズ： 1 バイト / 種類： txt");
  EXPECT_EQ(SummaryLine(1, "midi", std::monostate(), 1000), "サイズ： 1 バイト / 種類： midi");
}

TEST(SummaryLine, RoundsThePlayTimeHalvesToEven) {
  const struct {
    std::int32_t milliseconds;
    const char* time;
  } cases[] = {
      {0, "0:00"},     {499, "0:00"},     {500, "0:00"},      {501, "0:01"},
      {1499, "0:01"},  {1500, "0:02"},    {2500, "0:02"},     {2501, "0:03"},
      {3500, "0:04"},  {59499, "0:59"},   {59500, "1:00"},    {60500, "1:00"},
      {61500, "1:02"}, {600000, "10:00"}, {3600000, "60:00"}, {2147483647, "35791:24"},
      {-1, "0:00"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.milliseconds);
    EXPECT_EQ(SummaryLine(0, "WAVE", std::monostate(), c.milliseconds),
              "サイズ： 0 バイト / 種類： WAVE / 演奏時間： " + std::string(c.time));
  }
}

TEST(DetailLine, ShowsCopyrightDivisionAndTracksOfAMidiFile) {
  EXPECT_EQ(DetailLine(MidiInfo{1, 17, 480, "Song", "(C) 1999"}), "著作権： (C) 1999 / 分解能： 480 / トラック数： 17");
  EXPECT_EQ(DetailLine(MidiInfo()), "著作権：  / 分解能： 0 / トラック数： 0");
}

TEST(DetailLine, ShowsArtistAlbumCommentAndYearOfATag) {
  EXPECT_EQ(DetailLine(Tag("歌手", "Album", "text", 2003)),
            "アーティスト： 歌手 / アルバム： Album / コメント： text / 年： 2003");
  EXPECT_EQ(DetailLine(Id3v1Info{1, "Song", "Artist", "Album", 1999, "Nice", 7, 17}),
            "アーティスト： Artist / アルバム： Album / コメント： Nice / 年： 1999");
}

TEST(DetailLine, ShowsDashesForWhatATagLacks) {
  const std::string nothing = "アーティスト： --- / アルバム： --- / コメント： --- / 年： ---";
  EXPECT_EQ(DetailLine(Id3v1Info()), nothing);
  EXPECT_EQ(DetailLine(Id3v2Info()), nothing);
  EXPECT_EQ(DetailLine(RiffInfo{"Song", "", "", "", ""}), nothing);
  EXPECT_EQ(DetailLine(Tag("", "Album", "", 0)), "アーティスト： --- / アルバム： Album / コメント： --- / 年： ---");
}

TEST(DetailLine, ShowsTheRiffDateAsText) {
  EXPECT_EQ(DetailLine(RiffInfo{"Song", "Artist", "", "2001-02-03", "c"}),
            "アーティスト： Artist / アルバム： --- / コメント： c / 年： 2001-02-03");
}

TEST(DetailLine, IsDashesForOtherTypes) {
  EXPECT_EQ(DetailLine(std::monostate()), "---");
}

/// The further text behind the type of a file without a reader.
std::string Further(const TempFolder& folder, const std::string& extension) {
  const std::string description = FileTypeDescription(extension);
  const std::string path = folder.Path();
  const std::string inFolder(FileName(std::string_view(path).substr(0, path.size() - 1)));
  return " " + (description.empty() ? inFolder : description);
}

struct FileCase {
  const char* name;
  std::string bytes;
  const char* type;
  std::optional<std::int32_t> playTimeMs;
  std::string summary;
  std::string detail;
};

TEST(FileInformation, ReadsTheFileForBothLines) {
  const TempFolder folder;
  const std::string trailer = Id3v1Trailer({.artist = "one", .comment = "Nice"});
  const std::string tag = Id3v2Tag({.frames = {{"TPE1", AnsiText("two")}, {"TYER", AnsiText("2003")}}});
  const std::string one = "アーティスト： one / アルバム： --- / コメント： Nice / 年： ---";
  const std::string two = "アーティスト： two / アルバム： --- / コメント： --- / 年： 2003";
  const std::string none = "アーティスト： --- / アルバム： --- / コメント： --- / 年： ---";
  const FileCase cases[] = {
      {"a.mid", SimpleMidiFile("Song", "(C)"), "MIDI", 2000, "MIDI (SMF Format 0) / 演奏時間： 0:02",
       "著作権： (C) / 分解能： 480 / トラック数： 1"},
      {"damaged.mid", "MThd", "MIDI", std::nullopt, "MIDI (SMF Format 0)", "著作権：  / 分解能： 0 / トラック数： 0"},
      {"trailer.mp3", Mp3Audio(1) + trailer, "MP3", std::nullopt, "MP3 (ID3v1)", one},
      {"both.mp3", tag + Mp3Audio(1) + trailer, "MP3", std::nullopt, "MP3 (ID3v2)", two},
      {"riff.mp3", RmpFile({{"INAM", "n"}, {"IART", "one"}}, 1), "MP3", std::nullopt, "MP3 (RMP)",
       "アーティスト： one / アルバム： --- / コメント： --- / 年： ---"},
      {"name.mp3", RmpFile({{"INAM", "n"}}, 1), "MP3", std::nullopt, "MP3", none},
      {"plain.mp3", Mp3Audio(1), "MP3", 26, "MP3 / 演奏時間： 0:00", none},
      {"empty.mp3", "", "MP3", std::nullopt, "MP3", none},
      {"a.wav", WaveFile(10), "WAVE", std::nullopt, "WAVE" + Further(folder, "WAV"), "---"},
      {"empty.txt", "", "txt", 1000, "txt" + Further(folder, "TXT"), "---"},
      {"page.html", HtmlPage("Song", ""), "HTML", std::nullopt, "HTML" + Further(folder, "HTML"), "---"},
      {"strange.qzx", "", "qzx", 1000, "qzx" + Further(folder, ""), "---"},
  };
  for (const FileCase& c : cases) {
    SCOPED_TRACE(c.name);
    const FileInformation information = ReadFileInformation(folder.Write(c.name, c.bytes), c.type, 0, c.playTimeMs);
    EXPECT_EQ(information.summary, "サイズ： " + std::to_string(c.bytes.size()) + " バイト / 種類： " + c.summary);
    EXPECT_EQ(information.detail, c.detail);
  }
}

TEST(FileInformation, GroupsTheDigitsOfTheSize) {
  const TempFolder folder;
  const std::string path = folder.Write("big.txt", std::string(1234567, 'x'));
  EXPECT_EQ(ReadFileInformation(path, "txt", 0, std::nullopt).summary,
            "サイズ： 1,234,567 バイト / 種類： txt" + Further(folder, "TXT"));
}

TEST(FileInformation, OfAFileThatCannotBeOpenedHasLengthAndType) {
  const TempFolder folder;
  EXPECT_EQ(ReadFileInformation(folder.At("none.mp3"), "MP3", 1234, 1000),
            (FileInformation{"サイズ： 1,234 バイト / 種類： MP3 / 演奏時間： 0:01", "---"}));
  EXPECT_EQ(ReadFileInformation(folder.At("none.mid"), "MIDI", 0, std::nullopt),
            (FileInformation{"サイズ： 0 バイト / 種類： MIDI", "---"}));
  EXPECT_EQ(ReadFileInformation(folder.At("none.txt"), "txt", 9, std::nullopt),
            (FileInformation{"サイズ： 9 バイト / 種類： txt" + Further(folder, "TXT"), "---"}));
}

}  // namespace
}  // namespace quillon
