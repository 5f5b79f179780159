#include "media/basMIDIInfo.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string_view>

#include "platform/Ansi.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr std::size_t kNotFound = std::string_view::npos;

// Lengths are signed 32-bit numbers here; a "MIDI file" beyond that is none.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::int32_t>::max();

std::optional<unsigned char> ByteAt(std::string_view data, std::size_t offset) {
  if (offset >= data.size()) return std::nullopt;
  return static_cast<unsigned char>(data[offset]);
}

/// Two bytes, high byte first; nullopt where the data ends and above 32767.
std::optional<std::int16_t> NumberAt(std::string_view data, std::size_t offset) {
  const auto high = ByteAt(data, offset);
  const auto low = ByteAt(data, offset + 1);
  if (!high || !low || *high > 0x7F) return std::nullopt;
  return static_cast<std::int16_t>(*high * 256 + *low);
}

/// The text of the event at `offset`, empty for kNotFound; nullopt when the data ends before its length.
std::optional<std::string> EventText(std::string_view data, std::size_t offset) {
  if (offset == kNotFound) return std::string();
  const auto length = ByteAt(data, offset + 2);
  if (!length) return std::nullopt;
  return AnsiToUtf8(data.substr(offset + 3, *length));
}

MidiInfo Parse(std::string_view data) {
  const std::size_t header = data.find("MThd");
  if (header == kNotFound) return {};
  const auto format = NumberAt(data, header + 8);
  const auto trackCount = NumberAt(data, header + 10);
  const auto division = NumberAt(data, header + 12);
  const std::size_t track = data.find("MTrk");
  if (!format || !trackCount || !division || track == kNotFound) return {};

  // Events lie wholly in front of the next "MTrk", so searching up to it is enough. npos sorts behind every offset.
  const std::string_view upToNextTrack = data.substr(0, data.find("MTrk", track + 1));
  const std::size_t text = upToNextTrack.find("\xFF\x01", track);
  const std::size_t copyright = upToNextTrack.find("\xFF\x02", track);
  const std::size_t name = upToNextTrack.find("\xFF\x03", track);
  auto titleText = EventText(data, std::min(text, name));
  auto copyrightText = EventText(data, copyright);
  if (!titleText || !copyrightText) return {};
  return {*format, *trackCount, *division, *std::move(titleText), *std::move(copyrightText)};
}

}  // namespace

MidiInfo ReadMidiInfo(ByteSource& file) {
  if (file.IsHiddenOrSystem() || file.Size() > kLargestFile) return {};
  const auto size = static_cast<std::size_t>(file.Size());
  // Left unset: filling it would cost as much as reading it.
  const std::unique_ptr<char[]> bytes(new (std::nothrow) char[size]);
  if (!bytes) return {};
  return Parse({bytes.get(), file.ReadAt(0, bytes.get(), size)});
}

MidiInfo ReadMidiInfo(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? ReadMidiInfo(*file) : MidiInfo{};
}

}  // namespace quillon
