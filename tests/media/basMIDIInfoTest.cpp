#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "media/MediaInfo.h"
#include "media/basMIDIInfo.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in
using midi_event::kCopyright;
using midi_event::kName;
using midi_event::kText;

const MidiInfo kEmpty;

MidiInfo Read(const std::string& bytes) {
  return ReadBothWays(bytes, NeedsForInfo("MIDI"), [&](ByteSource& file) { return ReadMidiInfo(file); });
}

std::string Track(std::string_view events = "") {
  return MidiTrack(events);
}
std::string Event(unsigned type, std::string_view text) {
  return TimedMetaEvent(type, text);
}

TEST(MidiInfo, GivesHeaderNumbersTitleAndCopyright) {
  const std::string first = Track(Event(kName, "Song") + Event(kCopyright, "(C) 1999"));
  EXPECT_EQ(Read(MidiFile(1, 480, {first, Track(MidiNote(60, 480))})), (MidiInfo{1, 2, 480, "Song", "(C) 1999"}));
}

TEST(MidiInfo, TrackCountIsTheStoredOne) {
  EXPECT_EQ(Read(MidiHeader(1, 17, 96) + Track()).trackCount, 17);
}

struct TitleCase {
  const char* name;
  std::vector<std::string> tracks;
  const char* title;
};

TEST(MidiInfo, TitleIsTheFirstTextOrNameOfTheFirstTrack) {
  const TitleCase cases[] = {
      {"text before name", {Track(Event(kText, "text") + Event(kName, "name"))}, "text"},
      {"name before text", {Track(Event(kName, "name") + Event(kText, "text"))}, "name"},
      {"only a text", {Track(Event(kText, "text"))}, "text"},
      {"only a name", {Track(Event(kName, "name"))}, "name"},
      {"two names", {Track(Event(kName, "first") + Event(kName, "second"))}, "first"},
      {"text here, name in the second track", {Track(Event(kText, "text")), Track(Event(kName, "name"))}, "text"},
      {"name here, text in the second track", {Track(Event(kName, "name")), Track(Event(kText, "text"))}, "name"},
      {"title in the second track only", {Track(), Track(Event(kName, "name"))}, ""},
      {"both in the second track only", {Track(), Track(Event(kText, "text") + Event(kName, "name"))}, ""},
      {"an instrument name is no title", {Track(Event(4, "piano"))}, ""},
      {"blanks stay", {Track(Event(kName, " name  "))}, " name  "},
      {"an empty name", {Track(Event(kName, "") + Event(kText, "text"))}, ""},
  };
  for (const TitleCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Read(MidiFile(1, 480, c.tracks)).title, c.title);
  }
}

TEST(MidiInfo, CopyrightOfALaterTrackIsNotRead) {
  EXPECT_EQ(Read(MidiFile(1, 480, {Track(), Track(Event(kCopyright, "(C)"))})).copyright, "");
}

TEST(MidiInfo, TextsAreDecodedFromCodePage932) {
  EXPECT_EQ(Read(MidiFile(0, 480, {Track(Event(kName, "\x89\xCC\xB1"))})).title, "歌ｱ");
}

TEST(MidiInfo, EventsAreFoundByTheirBytesInsideOtherData) {
  const std::string exclusive = Bytes({0, 0xF0, 8}) + MetaEvent(kName, "in it") + Bytes({0xF7});
  EXPECT_EQ(Read(MidiFile(0, 480, {Track(exclusive + Event(kName, "name"))})).title, "in it");
}

TEST(MidiInfo, EventsInFrontOfTheFirstTrackDoNotCount) {
  const std::string file = MidiHeader(0, 1, 480) + MetaEvent(kName, "header") + Track(Event(kText, "text"));
  EXPECT_EQ(Read(file).title, "text");
}

TEST(MidiInfo, LeadingBytesAreSkipped) {
  const std::string song = MidiFile(0, 480, {Track(Event(kName, "Song"))});
  EXPECT_EQ(Read(RiffList("RIFF", "RMID", {RiffChunk("data", song)})), (MidiInfo{0, 1, 480, "Song", ""}));
}

TEST(MidiInfo, ATrackInFrontOfTheHeaderIsTheFirstTrack) {
  const std::string file = Track(Event(kName, "early")) + MidiFile(0, 480, {Track(Event(kName, "late"))});
  EXPECT_EQ(Read(file), (MidiInfo{0, 1, 480, "early", ""}));
}

TEST(MidiInfo, HeaderLengthIsIgnored) {
  std::string file = MidiFile(0, 480, {Track(Event(kName, "Song"))});
  file.replace(4, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(Read(file).title, "Song");
}

struct NumberCase {
  const char* name;
  unsigned format, trackCount, division;
  bool read;
};

TEST(MidiInfo, ANumberThatDoesNotFitEmptiesTheRecord) {
  const NumberCase cases[] = {
      {"division in SMPTE form", 1, 1, 0xE728, false}, {"smallest that does not fit", 0, 1, 0x8000, false},
      {"largest that fits", 0, 1, 0x7FFF, true},       {"format too large", 0x8000, 1, 480, false},
      {"format just fits", 0x7FFF, 1, 480, true},      {"track count too large", 1, 0xFFFF, 480, false},
  };
  for (const NumberCase& c : cases) {
    SCOPED_TRACE(c.name);
    const MidiInfo info = Read(MidiHeader(c.format, c.trackCount, c.division) + Track(Event(kName, "Song")));
    if (c.read) {
      EXPECT_EQ(info.title, "Song");
    } else {
      EXPECT_EQ(info, kEmpty);
    }
  }
}

TEST(MidiInfo, AFileWithoutTrackGivesTheEmptyRecord) {
  EXPECT_EQ(Read(MidiHeader(1, 2, 480)), kEmpty);
}

TEST(MidiInfo, AFileWithoutHeaderGivesTheEmptyRecord) {
  EXPECT_EQ(Read(Track(Event(kName, "Song"))), kEmpty);
  EXPECT_EQ(Read("mthd"), kEmpty);
  EXPECT_EQ(Read(""), kEmpty);
}

TEST(MidiInfo, ALongTextIsCutAndStartsWithItsSecondLengthByte) {
  const std::string name = MetaEvent(kName, std::string(200, 'x'));
  ASSERT_EQ(name.substr(2, 2), "\x81\x48");
  EXPECT_EQ(Read(MidiFile(0, 480, {Track(Bytes({0}) + name)})).title, "H" + std::string(128, 'x'));
}

TEST(MidiInfo, ATextOf127BytesIsWhole) {
  EXPECT_EQ(Read(MidiFile(0, 480, {Track(Event(kName, std::string(127, 'x')))})).title, std::string(127, 'x'));
}

TEST(MidiInfo, ATextMayRunIntoTheNextTrack) {
  const std::string file = MidiHeader(1, 2, 480) + "MTrk" + Bytes({0xFF, 3, 6, 'a', 'b'}) + Track();
  EXPECT_EQ(Read(file).title, "abMTrk");
}

TEST(MidiInfo, ATextThatTheFileCutsOffIsKept) {
  EXPECT_EQ(Read(MidiHeader(0, 1, 480) + "MTrk" + Bytes({0xFF, 3, 9, 'a', 'b'})).title, "ab");
  EXPECT_EQ(Read(MidiHeader(0, 1, 480) + "MTrk" + Bytes({0xFF, 3, 9})), (MidiInfo{0, 1, 480, "", ""}));
}

TEST(MidiInfo, AnEventThatEndsBeforeItsLengthEmptiesTheRecord) {
  EXPECT_EQ(Read(MidiHeader(0, 1, 480) + "MTrk" + Bytes({0xFF, 3})), kEmpty);
}

TEST(MidiInfo, EveryTruncationGivesTheEmptyRecordOrTheSameNumbers) {
  const std::string file =
      MidiFile(1, 480, {Track(Event(kName, "Song") + Event(kCopyright, "\x92\x4E\x82\xA9")), Track(MidiNote(60, 480))});
  const MidiInfo whole = Read(file);
  for (std::size_t length = 0; length < file.size(); ++length) {
    SCOPED_TRACE(length);
    const MidiInfo cut = Read(file.substr(0, length));
    if (cut == kEmpty) continue;
    EXPECT_GE(length, 18u);  // header and "MTrk"
    EXPECT_EQ(cut.division, 480);
    EXPECT_TRUE(whole.title.starts_with(cut.title));
  }
}

TEST(MidiInfo, TheFileIsReadOnce) {
  MemorySource file(SimpleMidiFile("Song", "", 30000));
  ASSERT_GT(file.Size(), 200'000u);
  EXPECT_EQ(ReadMidiInfo(file).title, "Song");
  EXPECT_LE(file.bytesRead, file.Size() + 1000);

  MemorySource small(SimpleMidiFile("Song", "", 1000));
  EXPECT_EQ(ReadMidiInfo(small).title, "Song");
  EXPECT_EQ(small.reads, 1);
}

TEST(MidiInfo, IrrelevantPartsAreNotRead) {
  MemorySource file(MidiFile(1, 480, {Track(Event(kName, "Song")), Track(std::string(1'000'000, 'x'))}));
  EXPECT_EQ(ReadMidiInfo(file).title, "Song");
  EXPECT_LT(file.bytesRead, 100'000u);
}

TEST(MidiInfo, ChunksAndEventsAreFoundAnywhereInALongFile) {
  const std::string events = Event(kName, "Song") + Event(kCopyright, "(C) \x92\x4E");
  const std::string second = Track(Event(kText, "second"));
  // Offsets around the ends of the windows that are read at once; some fillings begin like the searched bytes.
  for (const char* filling : {"x", "\xFF", "M"}) {
    for (std::size_t inFront = 65536 - 60; inFront < 65536 + 4; ++inFront) {
      SCOPED_TRACE(filling + std::to_string(inFront));
      std::string padding;
      while (padding.size() < inFront) padding += filling;
      EXPECT_EQ(Read(padding + MidiFile(1, 480, {Track(events), second})), (MidiInfo{1, 2, 480, "Song", "(C) 誰"}));
      EXPECT_EQ(Read(MidiFile(1, 480, {Track(padding + events), second})), (MidiInfo{1, 2, 480, "Song", "(C) 誰"}));
      EXPECT_EQ(Read(MidiFile(1, 480, {Track(padding), second})), (MidiInfo{1, 2, 480, "", ""}));
    }
  }
}

TEST(MidiInfo, AnUnreadablePartCountsAsCutOff) {
  MemorySource file(MidiHeader(0, 1, 480) + "MTrk" + Bytes({0xFF, 3, 9, 'a'}));
  file.unreadable = 100;
  EXPECT_EQ(ReadMidiInfo(file).title, "a");
}

TEST(MidiInfo, AFileBeyond31BitsIsNotReadAndGivesTheEmptyRecord) {
  MemorySource file(SimpleMidiFile("Song", ""));
  file.unreadable = std::uint64_t{1} << 40u;
  EXPECT_EQ(ReadMidiInfo(file), kEmpty);
  EXPECT_EQ(file.reads, 0);
}

TEST(MidiInfo, AHiddenOrSystemFileCountsAsAbsent) {
  MemorySource file(SimpleMidiFile("Song", ""));
  file.hiddenOrSystem = true;
  EXPECT_EQ(ReadMidiInfo(file), kEmpty);
}

TEST(MidiInfo, AMissingPathGivesTheEmptyRecord) {
  const TempFolder folder;
  EXPECT_EQ(ReadMidiInfo(folder.At("none.mid")), kEmpty);
  EXPECT_EQ(ReadMidiInfo(folder.MakeFolder("folder.mid")), kEmpty);
}

TEST(MidiInfo, ReadsByPath) {
  const TempFolder folder;
  EXPECT_EQ(ReadMidiInfo(folder.Write("歌.mid", SimpleMidiFile("Song", "(C)"))), (MidiInfo{0, 1, 480, "Song", "(C)"}));
}

}  // namespace
}  // namespace quillon
