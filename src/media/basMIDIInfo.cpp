#include "media/basMIDIInfo.h"

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

#include "base/ByteSearch.h"
#include "media/WindowReader.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

// Larger files are not read: lengths in MIDI files are handled as signed 32-bit numbers.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::int32_t>::max();

using Place = std::optional<std::uint64_t>;

std::size_t FindTitleEvent(std::string_view bytes, std::size_t from) {
  return FindWhere<2>(
      bytes, from, [](const char* place) { return (StandsAt(place, "\xFF\x01") | StandsAt(place, "\xFF\x03")) != 0; });
}

/// The file offsets of everything that the record is made from.
class Places {
 public:
  /// Searches one window of the file. Must be called with all windows in order.
  void LookAt(std::string_view window, std::uint64_t offset) {
    const auto place = [&](std::size_t at) { return at == std::string_view::npos ? Place() : Place(offset + at); };
    if (!header_) header_ = place(FindBytes(window, 0, "MThd"));
    if (!track_) track_ = place(FindBytes(window, 0, "MTrk"));
    if (!track_ || nextTrack_) return;
    const std::size_t from = *track_ < offset ? 0 : static_cast<std::size_t>(*track_ - offset) + 1;
    const std::size_t nextTrack = FindBytes(window, from, "MTrk");
    nextTrack_ = place(nextTrack);
    const std::string_view firstTrack = window.substr(0, nextTrack);
    if (!title_) title_ = place(FindTitleEvent(firstTrack, from));
    if (!copyright_) copyright_ = place(FindBytes(firstTrack, from, "\xFF\x02"));
  }

  /// True when the rest of the file cannot change the record.
  [[nodiscard]] bool Complete() const { return header_ && track_ && (nextTrack_ || (title_ && copyright_)); }

  [[nodiscard]] Place Header() const { return header_; }
  [[nodiscard]] Place Track() const { return track_; }
  [[nodiscard]] Place Title() const { return title_; }
  [[nodiscard]] Place Copyright() const { return copyright_; }

 private:
  Place header_;
  Place track_;
  Place nextTrack_;
  Place title_;      // the first track's first text or name event
  Place copyright_;  // the first track's first copyright event
};

// The longest byte sequence searched for has four bytes.
constexpr std::size_t kOverlap = 3;

/// A file and its part in memory: `window` has been read last.
struct Contents {
  ByteSource& file;
  const WindowReader& window;

  /// At most kCount bytes at `offset`: from the window, else read into `into`.
  template <std::size_t kCount>
  [[nodiscard]] std::string_view At(std::uint64_t offset, std::array<char, kCount>& into) const {
    if (offset >= window.Offset() && (offset + kCount <= window.End() || window.End() == file.Size())) {
      const std::string_view bytes = window.Bytes();
      const std::uint64_t begin = offset - window.Offset();
      return begin < bytes.size() ? bytes.substr(static_cast<std::size_t>(begin), kCount) : std::string_view();
    }
    return {into.data(), file.ReadAt(offset, into.data(), kCount)};
  }
};

/// Decodes two bytes, high byte first; nullopt at the end of the data and for numbers above 32767.
std::optional<std::int16_t> NumberAt(std::string_view bytes, std::size_t offset) {
  if (offset + 2 > bytes.size()) return std::nullopt;
  const auto high = static_cast<unsigned char>(bytes[offset]);
  const auto low = static_cast<unsigned char>(bytes[offset + 1]);
  if (high > 0x7F) return std::nullopt;
  return static_cast<std::int16_t>(high * 256 + low);
}

/// The text of the event at `place`, empty without an event; nullopt when the data ends before the length byte.
std::optional<std::string> EventText(const Contents& contents, const Place& place, StoredText stored) {
  if (!place) return std::string();
  std::array<char, 1 + 255> copy;
  const std::string_view bytes = contents.At(*place + 2, copy);
  if (bytes.empty()) return std::nullopt;
  return DecodeStoredText(bytes.substr(1, static_cast<unsigned char>(bytes[0])), stored);
}

MidiInfo Take(const Places& places, const Contents& contents, StoredText stored) {
  if (!places.Header() || !places.Track()) return {};
  std::array<char, 6> copy;
  const std::string_view numbers = contents.At(*places.Header() + 8, copy);
  const auto format = NumberAt(numbers, 0);
  const auto trackCount = NumberAt(numbers, 2);
  const auto division = NumberAt(numbers, 4);
  if (!format || !trackCount || !division) return {};
  auto title = EventText(contents, places.Title(), stored);
  auto copyright = EventText(contents, places.Copyright(), stored);
  if (!title || !copyright) return {};
  return {*format, *trackCount, *division, *std::move(title), *std::move(copyright)};
}

}  // namespace

MidiInfo ReadMidiInfo(ByteSource& file, StoredText stored) {
  if (file.IsHiddenOrSystem() || file.Size() > kLargestFile) return {};
  WindowReader window(file, kOverlap);
  Places places;
  while (!places.Complete() && window.Next()) places.LookAt(window.Bytes(), window.Offset());
  return Take(places, {file, window}, stored);
}

MidiInfo ReadMidiInfo(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? ReadMidiInfo(*file) : MidiInfo{};
}

}  // namespace quillon
