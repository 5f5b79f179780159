#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <string>
#include <vector>

#include "multimedia/linux/Player.h"
#include "platform/multimedia/linux/FlatMidi.h"
#include "platform/multimedia/linux/MpegAudioLength.h"
#include "platform/multimedia/linux/MpegProgramLength.h"
#include "platform/multimedia/linux/WaveRest.h"
#include "support/MediaBuilders.h"
#include "support/PatternFile.h"

namespace quillon::test {
namespace {

const std::chrono::seconds kAmple(60);

std::optional<int> AudioLength(const std::string& bytes) {
  MemorySource source(bytes);
  return CountedMpegAudioLength(source, Deadline(kAmple));
}

std::optional<int> SongLength(const std::string& bytes) {
  MemorySource source(bytes);
  const std::optional<FlatMidiSong> song = FlattenMidi(source, Deadline(kAmple));
  if (!song) return std::nullopt;
  return song->milliseconds;
}

std::string Tempo(unsigned ticks, unsigned microseconds) {
  return Bytes({ticks}) + MetaEvent(0x51, BigEndian(microseconds, 3));
}

/// Frames of 32 kbit/s: the same duration as those of Mp3Audio, at a quarter of their size.
std::string ThinFrames(int count) {
  constexpr std::size_t kFrameLength = 104;
  std::string frames;
  for (int i = 0; i < count; ++i) frames += Padded(Bytes({0xFF, 0xFB, 0x10, 0xC4}), kFrameLength);
  return frames;
}

TEST(MpegAudioLength, CountsFramesOfEveryBitRate) {
  EXPECT_EQ(AudioLength(Mp3Audio(100)), 2612);
  EXPECT_EQ(AudioLength(ThinFrames(100) + Mp3Audio(100)), 5224);
  EXPECT_EQ(AudioLength(Id3v2Tag({}) + Mp3Audio(100) + Id3v1Trailer({})), 2612);
}

TEST(MpegAudioLength, ContinuesBehindDamageWithoutTruncatedFrames) {
  EXPECT_EQ(AudioLength(Mp3Audio(50) + std::string(1000, 'x') + Mp3Audio(50)), 2612);
  const std::string whole = Mp3Audio(101);
  EXPECT_EQ(AudioLength(whole.substr(0, whole.size() - 10)), 2612);
}

TEST(MpegAudioLength, FindsTheNextFrameAnywhereBehindDamage) {
  // Lengths around the ends of the parts that are searched or read at once.
  for (const std::size_t length : {1U, 416U, 417U, 65000U, 65536U, 131072U, 241000U, 245000U, 262144U, 1000000U}) {
    EXPECT_EQ(AudioLength(Mp3Audio(50) + std::string(length, '\xFF') + Mp3Audio(50)), 2612) << length;
    EXPECT_EQ(AudioLength(Mp3Audio(50) + std::string(length, '\0') + Mp3Audio(50)), 2612) << length;
  }
  EXPECT_EQ(AudioLength(Mp3Audio(100) + std::string(3 << 20, '\0')), 2612);
}

TEST(MpegAudioLength, GivesUpWhenTheTimeIsUp) {
  PatternFile source(std::numeric_limits<std::int64_t>::max(), "", Mp3Audio(1));
  const Stopwatch watch;
  EXPECT_EQ(CountedMpegAudioLength(source, Deadline(std::chrono::milliseconds(100))), std::nullopt);
  EXPECT_GE(watch.Elapsed(), 100);
  EXPECT_LT(watch.Elapsed(), 1000);
}

TEST(MpegAudioLength, RejectsOtherFiles) {
  std::string stated = Mp3Audio(100);
  stated.replace(21, 4, "Xing");  // behind the side information of one channel
  EXPECT_EQ(AudioLength(stated), std::nullopt);
  EXPECT_EQ(AudioLength(WaveFile(100)), std::nullopt);
  EXPECT_EQ(AudioLength("just a text"), std::nullopt);
  EXPECT_EQ(AudioLength(Mp3Audio(2)), std::nullopt);
  EXPECT_EQ(AudioLength(""), std::nullopt);
}

TEST(FlatMidi, TempoChangesApplyToAllTracks) {
  const std::string conductor = MidiTrack(Tempo(0, 250000) + Tempo(120, 1000000));
  const std::string notes = MidiTrack(MidiNote(60, 120) + MidiNote(62, 120));
  EXPECT_EQ(SongLength(MidiFile(1, 120, {conductor, notes})), 1250);
  EXPECT_EQ(SongLength(MidiFile(1, 120, {notes, conductor})), 1250);
}

TEST(FlatMidi, TracksOfFormat2FollowEachOther) {
  const std::string track = MidiTrack(MidiNote(60, 120));
  EXPECT_EQ(SongLength(MidiFile(1, 120, {track, track})), 500);
  EXPECT_EQ(SongLength(MidiFile(2, 120, {track, track})), 1000);
}

TEST(FlatMidi, SmpteDivisionsAreSupported) {
  constexpr unsigned kTwentyFiveFramesOfForty = 0xE728;
  EXPECT_EQ(SongLength(MidiFile(0, kTwentyFiveFramesOfForty, {MidiTrack(Tempo(0, 1000) + MidiNote(60, 1500))})), 1500);
}

TEST(FlatMidi, ASongInRiffIsTheSame) {
  const std::string song = SimpleMidiFile("", "");
  EXPECT_EQ(SongLength(RiffList("RIFF", "RMID", {RiffChunk("data", song)})), 2000);
}

TEST(FlatMidi, TheResultIsOneTrackOfTheSameLength) {
  const std::string notes = MidiTrack(MidiNote(60, 120) + Tempo(0, 250000) + MidiNote(62, 120));
  MemorySource source(MidiFile(1, 120, {notes, notes}));
  const std::optional<FlatMidiSong> song = FlattenMidi(source, Deadline(kAmple));
  ASSERT_TRUE(song);
  EXPECT_EQ(song->milliseconds, 750);
  EXPECT_EQ(song->file.substr(0, 14), MidiHeader(0, 1, 10000));
  EXPECT_EQ(SongLength(song->file), 750);
}

TEST(FlatMidi, APauseOfDaysKeepsItsLength) {
  const std::string pause = Bytes({0xFF, 0xFF, 0xFF, 0x7F, 0xC0, 1});
  MemorySource source(MidiFile(0, 1000, {MidiTrack(Tempo(0, 1000000) + pause)}));
  const std::optional<FlatMidiSong> song = FlattenMidi(source, Deadline(kAmple));
  ASSERT_TRUE(song);
  EXPECT_EQ(song->milliseconds, 268435455);
  EXPECT_EQ(SongLength(song->file), 268435455);
}

TEST(FlatMidi, DamageAndIllegalMessagesOnlyEndTheirOwnTrack) {
  const std::string illegal = MidiTrack(Bytes({0, 0xF1, 0x10, 0, 0xF9}) + MidiNote(60, 120));
  EXPECT_EQ(SongLength(MidiFile(0, 120, {illegal})), 500);
  const std::string torn = "MTrk" + BigEndian(4, 4) + Bytes({0, 0xF0, 0x7F, 1});
  EXPECT_EQ(SongLength(MidiFile(1, 120, {torn, MidiTrack(MidiNote(60, 120))})), 500);
  const std::string headless = MidiTrack(Bytes({0, 60, 64}));
  EXPECT_EQ(SongLength(MidiFile(0, 120, {headless})), 0);
  const std::string whole = SimpleMidiFile("", "");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const int milliseconds = SongLength(whole.substr(0, length)).value_or(0);
    EXPECT_LE(milliseconds, 2000) << length;
  }
}

TEST(FlatMidi, RejectsImplausibleFiles) {
  // Pauses of the greatest possible length, at the slowest tempo and one tick per quarter note: 142 years each. An int
  // holds only 24 days of milliseconds.
  const std::string pause = Bytes({0xFF, 0xFF, 0xFF, 0x7F, 0xC0, 1});
  const std::string slowest = Tempo(0, 0xFFFFFF);
  EXPECT_EQ(SongLength(MidiFile(0, 1, {MidiTrack(slowest + pause + pause + pause)})), std::nullopt);
  EXPECT_EQ(SongLength(MidiFile(2, 1, {MidiTrack(slowest + pause), MidiTrack(pause)})), std::nullopt);
  const std::string large = MidiTrack(std::string(33 << 20, '\0'));
  EXPECT_EQ(SongLength(MidiFile(0, 96, {large})), std::nullopt);
}

TEST(FlatMidi, GivesUpWhenTheTimeIsUp) {
  std::string events = Bytes({0, 0x90, 0x40, 0x40});
  for (int i = 0; i < 1000000; ++i) events += "\x01\x40\x40";
  MemorySource source(MidiFile(0, 96, {MidiTrack(events)}));
  EXPECT_TRUE(FlattenMidi(source, Deadline(kAmple)));
  const Stopwatch watch;
  EXPECT_FALSE(FlattenMidi(source, Deadline(std::chrono::milliseconds(2))));
  EXPECT_LT(watch.Elapsed(), 500);
}

TEST(FlatMidi, RejectsOtherFiles) {
  EXPECT_EQ(SongLength(WaveFile(100)), std::nullopt);
  EXPECT_EQ(SongLength(MidiFile(0, 0, {MidiTrack("")})), std::nullopt);
  EXPECT_EQ(SongLength(""), std::nullopt);
}

/// A packet of MPEG-1 with a time stamp, behind an optional buffer size.
std::string Packet(unsigned stream, std::uint32_t stamp, bool buffer) {
  const std::string size = buffer ? Bytes({0x60, 0x20}) : "";
  const std::string time = Bytes({0x21U | (stamp >> 29U & 6U), stamp >> 22U & 0xFFU, (stamp >> 14U & 0xFEU) | 1U,
                                  stamp >> 7U & 0xFFU, (stamp << 1U & 0xFEU) | 1U});
  const std::string data = size + time + "data";
  return Bytes({0, 0, 1, stream}) + BigEndian(static_cast<std::uint32_t>(data.size()), 2) + data;
}

TEST(MpegProgramLength, IsFromTheFirstTimeStampToTheEndOfTheLastPicture) {
  const std::string pack = MpegFile().substr(0, 12);
  MemorySource short_file(pack + Packet(0xE0, 45000, true) + Packet(0xC0, 44100, false) + Packet(0xE0, 221400, false) +
                          Packet(0xE0, 217800, false));
  EXPECT_EQ(MpegProgramLength(short_file), 2010);
  MemorySource long_file(pack + Packet(0xE0, 90000, true) + std::string(3 << 20, 'x') + Packet(0xE0, 900000, false));
  EXPECT_EQ(MpegProgramLength(long_file), 9040);
}

TEST(MpegProgramLength, RejectsOtherFiles) {
  for (const std::string& bytes : {MpegFile(), WaveFile(10), std::string(), Mp3Audio(3)}) {
    MemorySource source(bytes);
    EXPECT_EQ(MpegProgramLength(source), std::nullopt);
  }
}

// WAVE files that end with an incomplete chunk header.

TEST(WaveLengthWithoutRest, IsTheEndOfTheLastWholeChunk) {
  const std::string wave = WaveFile(100);
  for (const std::size_t rest : {1U, 4U, 7U}) {
    MemorySource file(wave + std::string(rest, '\0'));
    EXPECT_EQ(WaveLengthWithoutRest(file), wave.size()) << rest;
  }
  const std::string withTag = wave + RiffChunk("id3 ", "odd");
  MemorySource tagged(withTag + "abc");
  EXPECT_EQ(WaveLengthWithoutRest(tagged), withTag.size());
}

TEST(WaveLengthWithoutRest, IsNothingForOtherFiles) {
  const std::string wave = WaveFile(100);
  for (const std::string& bytes : {std::string(), wave, wave + std::string(8, '\0'), wave.substr(0, wave.size() - 5),
                                   wave.substr(0, 12), wave.substr(0, 6), Mp3Audio(3), AviFile() + "abc"}) {
    MemorySource file(bytes);
    EXPECT_EQ(WaveLengthWithoutRest(file), std::nullopt) << bytes.size();
  }
}

}  // namespace
}  // namespace quillon::test
