#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ByteSource.h"

/// Builds small media files in memory. Texts are written to the file as they are, without conversion.
namespace quillon::test {

/// An opened file with these bytes. Counts the reads.
class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::string bytes) : bytes_(std::move(bytes)) {}

  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size() + unreadable; }
  [[nodiscard]] bool IsHiddenOrSystem() const override { return hiddenOrSystem; }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    ++reads;
    if (offset >= bytes_.size()) return 0;
    const std::size_t got = std::min(count, bytes_.size() - static_cast<std::size_t>(offset));
    std::memcpy(into, bytes_.data() + offset, got);
    bytesRead += got;
    return got;
  }

  bool hiddenOrSystem = false;
  std::uint64_t unreadable = 0;  ///< number of bytes at the end of the file that cannot be read
  int reads = 0;
  std::uint64_t bytesRead = 0;

 private:
  std::string bytes_;
};

/// Bytes given as numbers: Bytes({0xFF, 0x00}).
[[nodiscard]] std::string Bytes(std::initializer_list<unsigned> values);
[[nodiscard]] std::string BigEndian(std::uint32_t number, std::size_t byteCount);
[[nodiscard]] std::string LittleEndian(std::uint32_t number, std::size_t byteCount);
/// `text`, padded with zero bytes or cut to `length`.
[[nodiscard]] std::string Padded(std::string_view text, std::size_t length);

// Standard MIDI Files.

namespace midi_event {
inline constexpr unsigned kText = 1;
inline constexpr unsigned kCopyright = 2;
inline constexpr unsigned kName = 3;
}  // namespace midi_event

/// A meta event without delta time: FF, its type, its length as a variable-length quantity, its data.
[[nodiscard]] std::string MetaEvent(unsigned type, std::string_view data);
/// The same behind a delta time of zero ticks, as in a track.
[[nodiscard]] std::string TimedMetaEvent(unsigned type, std::string_view data);
/// A note of `ticks` on channel 1, delta times included.
[[nodiscard]] std::string MidiNote(unsigned key, std::uint32_t ticks);
/// "MTrk" with its length, the events and an end of track.
[[nodiscard]] std::string MidiTrack(std::string_view events);
/// "MThd" with its three numbers.
[[nodiscard]] std::string MidiHeader(unsigned format, unsigned trackCount, unsigned division);
/// Header and tracks; the header's track count is the number of `tracks`.
[[nodiscard]] std::string MidiFile(unsigned format, unsigned division, const std::vector<std::string>& tracks);
/// A playable file with one track: title and copyright (unless empty), then `quarterNotes` notes of half a second.
[[nodiscard]] std::string SimpleMidiFile(std::string_view title, std::string_view copyright, int quarterNotes = 4);

// MP3 files.

/// Silent MPEG-1 layer III frames (128 kbit/s, 44.1 kHz), 26 ms each.
[[nodiscard]] std::string Mp3Audio(int frameCount);

struct Id3v1Texts {
  std::string title = {};
  std::string artist = {};
  std::string album = {};
  std::string year = {};
  std::string comment = {};
  std::optional<unsigned> track = std::nullopt;  ///< written to byte 126, with a zero byte in front
  unsigned genre = 255;
};
[[nodiscard]] std::string Id3v1Trailer(const Id3v1Texts& texts);

/// The data of a text frame: encoding byte, then the text; UTF-16 with a little-endian or big-endian mark.
[[nodiscard]] std::string AnsiText(std::string_view text);
[[nodiscard]] std::string Utf16Text(std::u16string_view text, bool littleEndian = true);
/// UTF-16 units with their mark and without an encoding byte; terminated only if `text` contains the terminator.
[[nodiscard]] std::string Utf16Units(std::u16string_view text, bool littleEndian = true);
/// The data of a comment frame in code page 932.
[[nodiscard]] std::string AnsiComment(std::string_view description, std::string_view comment);
[[nodiscard]] std::string Utf16Comment(std::u16string_view description, std::u16string_view comment);

namespace id3_frame_flag {
inline constexpr unsigned kCompressed = 0x80;
inline constexpr unsigned kEncrypted = 0x40;
inline constexpr unsigned kGrouped = 0x20;
}  // namespace id3_frame_flag

struct Id3Frame {
  std::string id;
  std::string data;
  unsigned secondFlags = 0;
  std::optional<std::uint32_t> size = std::nullopt;  ///< stored instead of the data's size
};

struct Id3v2Parts {
  unsigned major = 3;  ///< 2: three-letter frames; 3: four-letter frames; 4: sizes with seven bits per byte
  unsigned revision = 0;
  unsigned flags = 0;
  std::vector<Id3Frame> frames = {};
  std::size_t padding = 0;
  bool extendedHeader = false;  ///< written (and flagged) with the padding size, as version 3 has it
  std::optional<std::uint32_t> crc = std::nullopt;      ///< four bytes in the extended header, seven bits each
  std::optional<std::uint32_t> tagSize = std::nullopt;  ///< stored instead of the tag's size
};
[[nodiscard]] std::string Id3v2Tag(const Id3v2Parts& parts);

// RIFF files.

/// A chunk: id, size, data, and a zero byte behind data of odd length.
[[nodiscard]] std::string RiffChunk(std::string_view id, std::string_view data);
/// A chunk "LIST" or "RIFF" of the given type.
[[nodiscard]] std::string RiffList(std::string_view id, std::string_view type, const std::vector<std::string>& chunks);
/// A list "INFO" of texts, each ended with a zero byte.
[[nodiscard]] std::string InfoList(const std::vector<std::pair<std::string, std::string>>& texts);
/// An MP3 stream wrapped in RIFF, behind its texts.
[[nodiscard]] std::string RmpFile(const std::vector<std::pair<std::string, std::string>>& texts, int frameCount = 4);
/// Silence, 8 kHz, 8 bit, one channel.
[[nodiscard]] std::string WaveFile(std::uint32_t milliseconds);
/// A file of the form "AVI " with headers but without pictures.
[[nodiscard]] std::string AviFile();

// Others.

/// The first bytes of an MPEG-1 program stream: a pack and a system header, and the end code.
[[nodiscard]] std::string MpegFile();
[[nodiscard]] std::string HtmlPage(std::string_view title, std::string_view body);

}  // namespace quillon::test
