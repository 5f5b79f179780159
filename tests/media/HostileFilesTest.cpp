#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "base/Text.h"
#include "media/FileInformation.h"
#include "media/MediaInfo.h"
#include "media/MemoryCount.h"
#include "media/TextLimit.h"
#include "support/MediaBuilders.h"
#include "support/PatternFile.h"
#include "support/ReadBothWays.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in
using namespace std::string_literals;

constexpr std::uint64_t kMiB = 1U << 20U;
constexpr std::size_t kMostMemory = 4 * kMiB;

// Sanitizers make everything many times slower.
#ifdef QUILLON_SANITIZED
const std::vector<std::uint64_t> kSizes = {kMiB, 10240 * kMiB};
constexpr double kMostMilliseconds = 5000;
#else
const std::vector<std::uint64_t> kSizes = {kMiB, 100 * kMiB, 10240 * kMiB};
constexpr double kMostMilliseconds = 50;
#endif

struct Shape {
  const char* name;
  const char* type;
  std::string start;
  std::string pattern;
};

/// The header of a tag with the largest possible size.
std::string TagHeader(unsigned major) {
  return "ID3" + Bytes({major, 0, 0, 0x7F, 0x7F, 0x7F, 0x7F});
}

std::string Frame(const std::string& id, std::uint32_t size) {
  return id + BigEndian(size, 4) + Bytes({0, 0});
}

/// The beginning of an endless RIFF form, up to and including the header of the name's chunk.
std::string EndlessName() {
  return "RIFF\xFF\xFF\xFF\xFFRMP3LIST\xFF\xFF\xFF\xFFINFOINAM\xFF\xFF\xFF\xFF";
}

std::vector<Shape> Shapes() {
  const std::string kana = "\xB1\x83\xB1\x83\x65";
  const std::string longText = std::string(1, '\0') + std::string(65535, '\xB1');
  const std::string titles = Frame("TIT2", 65536) + longText + Frame("TPE1", 65536) + longText;
  std::string allTexts;
  for (const char* id : {"TIT2", "TPE1", "TALB", "TIT1", "TIT3", "TPE2", "TPE3", "TPE4", "TRCK", "TCON", "TYER"}) {
    allTexts += Frame(id, static_cast<std::uint32_t>(longText.size())) + longText;
  }
  const std::string comment = std::string(4, '\0') + std::string(65535, '\xB1') + longText;
  allTexts += Frame("COMM", static_cast<std::uint32_t>(comment.size())) + comment;
  const std::string endlessForm = "RIFF\xFF\xFF\xFF\xFFRMP3";
  const std::string fullForm = endlessForm + "LIST\xFF\xFF\xFF\xFFINFO";
  const std::string info = "INAM" + LittleEndian(200000, 4) + Repeated(kana, 200000);
  return {
      {"zeros", "MIDI", "", "\0"s},
      {"FF alone", "MIDI", "", "\xFF"},
      {"nearly a header", "MIDI", "", "MThMTr"},
      {"a track of FF", "MIDI", MidiHeader(1, 1, 480) + "MTrk", "\xFF"},
      {"a track of events without an interest", "MIDI", MidiHeader(1, 1, 480) + "MTrk", "\xFF\x04MTr"},
      {"a track without a header", "MIDI", "MTrk", "\xFF\x01\xFF\x02\xFF\x03MTrk"},
      {"zeros", "MP3", "", "\0"s},
      {"tiny frames", "MP3", TagHeader(3), Frame("XXXX", 0)},
      {"tiny frames of three letters", "MP3", TagHeader(2), "XXX\0\0\0"s},
      {"empty titles", "MP3", TagHeader(3), Frame("TIT2", 0)},
      {"frames each in another block", "MP3", TagHeader(3), Frame("XXXX", 2039) + std::string(2039, 'x')},
      {"titles of one block", "MP3", TagHeader(3), Frame("TIT2", 2039) + std::string(2039, '\0')},
      {"long titles over and over", "MP3", TagHeader(3), titles},
      {"a title of the file's length", "MP3", TagHeader(3) + Frame("TIT2", 0xFFFFFFFF) + "\0"s, kana},
      {"a title of one byte over and over", "MP3", TagHeader(3) + Frame("TIT2", 0xFFFFFFFF), "\1"},
      {"every text as long as can be", "MP3", TagHeader(3) + allTexts, "\0"s},
      {"a description without an end", "MP3", TagHeader(3) + Frame("COMM", 0x7FFFFFFF) + "\0jpn"s, kana},
      {"a name of the file's length, zeros", "MP3", EndlessName(), "\0"s},
      {"a name of the file's length, letters", "MP3", EndlessName(), "x"},
      {"a name of the file's length, torn characters", "MP3", EndlessName(), kana},
      {"empty chunks", "MP3", "", "JUNK\0\0\0\0"s},
      {"empty chunks in a form", "MP3", endlessForm, "JUNK\0\0\0\0"s},
      {"empty chunks in a list", "MP3", fullForm, "JUNK\0\0\0\0"s},
      {"chunks each in another block", "MP3", fullForm, "JUNK" + LittleEndian(2042, 4) + std::string(2042, 'x')},
      {"long texts", "MP3",
       fullForm + info + "IART" + info.substr(4) + "IPRD" + info.substr(4) + "ICMT" + info.substr(4) + "ICRD" +
           info.substr(4),
       "x"},
      {"zeros", "htm", "", "\0"s},
      {"nearly an end", "htm", "", "</title"},
      {"a tag over many lines", "htm", "<title>", "<\r\n/\r\nt\r\n"},
      {"line breaks", "htm", "", "\r\n"},
      {"a title without an end", "htm", "<title>", kana},
      {"starts", "htm", "", "<title>"},
  };
}

/// The processor time of this process, so that other programs do not count.
double Milliseconds() {
  timespec now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

/// The time for reading this many bytes through a small buffer.
double Floor(ByteSource& file, std::uint64_t bytes) {
  std::vector<char> buffer(65536);
  const double start = Milliseconds();
  for (std::uint64_t at = 0; at < bytes; at += buffer.size()) {
    static_cast<void>(file.ReadAt(at, buffer.data(), buffer.size()));
  }
  return Milliseconds() - start;
}

/// The smallest of several measurements of `read`, minus the time for reading `bytes`. Smallest, because other programs
/// can only make it longer.
template <class Read>
double MillisecondsBeyondFloor(PatternFile& file, std::uint64_t bytes, double enough, Read read) {
  constexpr int kRuns = 10;
  double least = std::numeric_limits<double>::max();
  for (int run = 0; run < kRuns && least >= enough; ++run) {
    const double start = Milliseconds();
    read();
    const double whole = Milliseconds() - start;
    least = std::min(least, whole - Floor(file, bytes));
  }
  return least;
}

template <class Read>
void ExpectBounded(Read read) {
  for (const Shape& shape : Shapes()) {
    // Only the command-line program reads pages, one at a time.
    const double most = shape.type == "htm"s ? 4 * kMostMilliseconds : kMostMilliseconds;
    for (const std::uint64_t size : kSizes) {
      SCOPED_TRACE(shape.type + ": "s + shape.name + ", " + std::to_string(size / kMiB) + " MiB");
      PatternFile file(size, shape.start, shape.pattern);
      const std::size_t before = MemoryInUse();
      RestartMemoryPeak();
      read(file, shape.type);
      EXPECT_LT(MemoryPeak() - before, kMostMemory);
      const std::uint64_t bytes = file.bytesRead;
      EXPECT_LE(bytes, size + 32 * kMiB);
      EXPECT_LT(MillisecondsBeyondFloor(file, bytes, most, [&] { read(file, shape.type); }), most);
    }
  }
}

TEST(HostileFiles, ARowCostsLittleBeyondReading) {
  ExpectBounded([](ByteSource& file, std::string_view type) {
    const MediaInfo info = ReadMediaInfo(file, type);
    EXPECT_LE(std::max(info.title.size(), info.copyright.size()), 3 * kLongestText);
  });
}

TEST(HostileFiles, ARowIsTheSameWhenTheFileWasReadAhead) {
  for (const Shape& shape : Shapes()) {
    SCOPED_TRACE(shape.type + ": "s + shape.name);
    PatternFile file(kMiB, shape.start, shape.pattern);
    ASSERT_EQ(NeedsForInfo(shape.type).what, FileNeeds::What::kContents);
    (void)ReadBothWays(file, NeedsForInfo(shape.type),
                       [&](ByteSource& source) { return ReadMediaInfo(source, shape.type); });
  }
}

TEST(HostileFiles, TheInformationLinesCostLittleBeyondReading) {
  ExpectBounded([](ByteSource& file, std::string_view type) {
    const FileInformation information = ReadFileInformation(file, type, std::nullopt);
    EXPECT_LE(information.detail.size(), 4 * 3 * kLongestText + 1000);
  });
}

#ifndef QUILLON_SANITIZED
TEST(HostileFiles, AThousandRowsOfAMebibyteEachTakeAboutASecond) {
  for (const Shape& shape : Shapes()) {
    if (shape.type == "htm"s) continue;  // pages are not read for rows
    SCOPED_TRACE(shape.type + ": "s + shape.name);
    PatternFile file(kMiB, shape.start, shape.pattern);
    constexpr double kMost = 2;  // about half of this on an idle machine
    double least = std::numeric_limits<double>::max();
    for (int run = 0; run < 20 && least >= kMost; ++run) {
      const double start = Milliseconds();
      EXPECT_LE(ReadMediaInfo(file, shape.type).title.size(), 3 * kLongestText);
      least = std::min(least, Milliseconds() - start);
    }
    EXPECT_LT(least, kMost);
  }
}
#endif

/// A file whose reading runs out of memory.
class ExhaustingFile final : public ByteSource {
 public:
  /// The first `readable` reads succeed.
  ExhaustingFile(std::string bytes, int readable) : file_(std::move(bytes)), readable_(readable) {}

  [[nodiscard]] std::uint64_t Size() const override { return file_.Size(); }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    if (readable_-- == 0) throw std::bad_alloc();
    return file_.ReadAt(offset, into, count);
  }

 private:
  MemorySource file_;
  int readable_;
};

TEST(HostileFiles, RunningOutOfMemoryGivesEmptyTexts) {
  const std::string texts = AnsiText(std::string(5000, 'x'));
  const struct {
    const char* type;
    std::string bytes;
    int readings;
    const char* summary;
    const char* detail;
  } cases[] = {
      {"MIDI", SimpleMidiFile("Song", "(C)"), 1, "MIDI (SMF Format 0)", "著作権：  / 分解能： 0 / トラック数： 0"},
      {"MP3", Id3v2Tag({.frames = {{"TIT2", texts}, {"TPE1", texts}}}), 3, "MP3",
       "アーティスト： --- / アルバム： --- / コメント： --- / 年： ---"},
      {"htm", HtmlPage("Song", ""), 2, "htm", "---"},
  };
  for (const auto& c : cases) {
    for (int readable = 0; readable < c.readings; ++readable) {
      SCOPED_TRACE(c.type + " "s + std::to_string(readable));
      ExhaustingFile row(c.bytes, readable);
      EXPECT_EQ(ReadMediaInfo(row, c.type), MediaInfo());
      ExhaustingFile panel(c.bytes, readable);
      const FileInformation lines = ReadFileInformation(panel, c.type, std::nullopt);
      EXPECT_EQ(lines.summary, "サイズ： " + FormatThousands(c.bytes.size()) + " バイト / 種類： " + c.summary);
      EXPECT_EQ(lines.detail, c.detail);
    }
    ExhaustingFile enough(c.bytes, 100);
    EXPECT_NE(ReadMediaInfo(enough, c.type).title, "");
  }
}

}  // namespace
}  // namespace quillon
