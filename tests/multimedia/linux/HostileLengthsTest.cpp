#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>

#include "media/MemoryCount.h"
#include "multimedia/linux/Player.h"
#include "platform/multimedia/linux/FlatMidi.h"
#include "platform/multimedia/linux/MpegAudioLength.h"
#include "platform/multimedia/linux/MpegProgramLength.h"
#include "platform/multimedia/linux/WaveRest.h"
#include "support/MediaBuilders.h"
#include "support/PatternFile.h"

namespace quillon::test {
namespace {

using namespace std::string_literals;

const std::chrono::seconds kAmple(60);
constexpr std::uint64_t kMiB = 1U << 20U;

struct Shape {
  const char* name;
  std::string start;
  std::string pattern;
};

/// The header of a chunk that never ends.
std::string EndlessTrack() {
  return MidiHeader(1, 1, 480) + "MTrk\xFF\xFF\xFF\xFF";
}

#ifdef __SANITIZE_ADDRESS__
constexpr int kLongest = 10000;  // milliseconds; sanitizers check every access
#else
constexpr int kLongest = 1000;  // milliseconds
#endif

TEST(HostileLengths, FindingALengthTakesLittleMemory) {
  const Shape shapes[] = {
      {"FF behind frames", Mp3Audio(40), "\xFF"},
      {"headers of no frames", Mp3Audio(40), "\xFF\xFB\x90x"},
      {"zeros behind frames", Mp3Audio(40), "\0"s},
      {"empty tags", "", "ID3\3\0\0\0\0\0\0"s},
      {"the smallest frames", "", Padded(Bytes({0xFF, 0xF3, 0x14, 0xC4}), 24)},
      {"start codes", "\0\0\1\xBA"s, "\0\0\1\xC0"s},
      {"empty chunks", "RIFF\xFF\xFF\xFF\xFFWAVE", "JUNK\0\0\0\0"s},
  };
  for (const Shape& shape : shapes) {
    for (const std::uint64_t size : {kMiB, 100 * kMiB, 10240 * kMiB}) {
      SCOPED_TRACE(shape.name + " "s + std::to_string(size));
      PatternFile file(size, shape.start, shape.pattern);
      const std::size_t before = MemoryInUse();
      RestartMemoryPeak();
      static_cast<void>(CountedMpegAudioLength(file, Deadline(std::chrono::milliseconds(500))));
      static_cast<void>(MpegProgramLength(file));
      static_cast<void>(WaveLengthWithoutRest(file));
      EXPECT_LT(MemoryPeak() - before, 4 * kMiB);
    }
  }
}

TEST(HostileLengths, EndlessDamageEndsTheStream) {
  const struct {
    const char* damage;
    int milliseconds;
  } cases[] = {{"\xFF", 2612}, {"x", 2612}, {"\xFF\xFB\x90x", 2638}};  // the first of those headers is that of a frame
  for (const auto& c : cases) {
    PatternFile file(10240 * kMiB, Mp3Audio(100), c.damage);
    const Stopwatch watch;
    EXPECT_EQ(CountedMpegAudioLength(file, Deadline(kAmple)), c.milliseconds);
    EXPECT_LT(watch.Elapsed(), kLongest);
    EXPECT_LT(file.bytesRead, 8 * kMiB);
  }
  PatternFile tags(10240 * kMiB, "", "ID3\3\0\0\x7F\x7F\x7F\x7F"s);
  EXPECT_EQ(CountedMpegAudioLength(tags, Deadline(kAmple)), std::nullopt);
  EXPECT_LT(tags.bytesRead, 32 * kMiB);
}

TEST(HostileLengths, ASongNeedsMemoryForItsFilesOnly) {
  const Shape shapes[] = {
      {"messages of two bytes", EndlessTrack() + "\0\xC0\5"s, "\0\5"s},
      {"changes of the tempo", EndlessTrack(), "\1\xFF\x51\3\1\2\3"s},
      {"empty tracks", MidiHeader(1, 1, 480), "MTrk\0\0\0\0"s},
      {"tracks of a message", MidiHeader(1, 1, 480), "MTrk\0\0\0\3\0\xC0\5"s},
      {"patterns of a message", MidiHeader(2, 1, 480), "MTrk\0\0\0\3\0\xC0\5"s},
      {"pauses", EndlessTrack() + "\0\xC0\5"s, "\xFF\xFF\xFF\x7F\5"s},
  };
  for (const Shape& shape : shapes) {
    SCOPED_TRACE(shape.name);
    PatternFile file(kMiB, shape.start, shape.pattern);
    const std::size_t before = MemoryInUse();
    RestartMemoryPeak();
    const Stopwatch watch;
    const std::optional<FlatMidiSong> song = FlattenMidi(file, Deadline(kAmple));
    EXPECT_LT(watch.Elapsed(), kLongest);
    const std::size_t songRoom = 4 * kMiB;
    EXPECT_LT(MemoryPeak() - before, kMiB + songRoom + 2 * kMiB);
    EXPECT_LE(song ? song->file.size() : 0, songRoom);
  }
  PatternFile large(100 * kMiB, EndlessTrack(), "\0\xC0\5"s);
  EXPECT_FALSE(FlattenMidi(large, Deadline(kAmple)));
  EXPECT_LT(large.bytesRead, 100u);
}

}  // namespace
}  // namespace quillon::test
