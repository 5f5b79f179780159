#include "platform/multimedia/linux/MpegProgramLength.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace quillon {
namespace {

constexpr std::uint64_t kPart = 1U << 20U;  // at each end of the file; contains time stamps of every stream
constexpr std::uint64_t kClock = 90;        // time stamp units per millisecond
constexpr std::uint64_t kWrap = std::uint64_t{1} << 33U;
constexpr std::uint64_t kPictureTime = 40 * kClock;  // the duration of the last picture
constexpr std::string_view kStart("\0\0\1", 3);

unsigned Byte(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

/// Decodes 33 bits from five bytes; a marker bit ends each part.
std::optional<std::uint64_t> ReadTimeStamp(std::string_view bytes) {
  const bool marked = (Byte(bytes, 0) & 1U) != 0 && (Byte(bytes, 2) & 1U) != 0 && (Byte(bytes, 4) & 1U) != 0;
  if (bytes.size() < 5 || !marked) return std::nullopt;
  return std::uint64_t{Byte(bytes, 0) >> 1U & 7U} << 30U | Byte(bytes, 1) << 22U | (Byte(bytes, 2) >> 1U) << 15U |
         Byte(bytes, 3) << 7U | Byte(bytes, 4) >> 1U;
}

/// `packet` begins behind the packet's length field.
std::optional<std::uint64_t> PacketTimeStamp(std::string_view packet) {
  if ((Byte(packet, 0) & 0xC0U) == 0x80U) {  // MPEG-2
    const bool stamped = (Byte(packet, 1) & 0x80U) != 0 && (Byte(packet, 3) & 0xE0U) == 0x20U;
    return stamped ? ReadTimeStamp(packet.substr(3)) : std::nullopt;
  }
  constexpr std::size_t kMostStuffing = 16;
  std::size_t at = 0;
  while (at < kMostStuffing && Byte(packet, at) == 0xFF) ++at;
  if ((Byte(packet, at) & 0xC0U) == 0x40U) at += 2;
  const bool stamped = (Byte(packet, at) & 0xE0U) == 0x20U;
  return stamped ? ReadTimeStamp(packet.substr(at)) : std::nullopt;
}

struct Span {
  std::uint64_t first = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t last = 0;  ///< including the duration of the picture
};

/// Finds the smallest and the largest time stamp in a part of the file.
Span FindTimeStamps(std::string_view part) {
  constexpr std::size_t kPacketHeader = 6;
  Span span;
  for (std::size_t at = part.find(kStart); at != std::string_view::npos; at = part.find(kStart, at + 1)) {
    const unsigned stream = Byte(part, at + 3);
    if (stream < 0xC0U || stream > 0xEFU || at + kPacketHeader > part.size()) continue;
    const std::optional<std::uint64_t> stamp = PacketTimeStamp(part.substr(at + kPacketHeader));
    if (!stamp) continue;
    span.first = std::min(span.first, *stamp);
    span.last = std::max(span.last, *stamp + (stream >= 0xE0U ? kPictureTime : 0));
  }
  return span;
}

}  // namespace

std::optional<int> MpegProgramLength(ByteSource& file) {
  const std::string pack = std::string(kStart) + '\xBA';
  if (file.Read(0, pack.size()) != pack) return std::nullopt;
  const std::string beginning = file.Read(0, kPart);
  const std::string end = file.Size() > kPart ? file.Read(file.Size() - kPart, kPart) : beginning;
  const std::uint64_t first = FindTimeStamps(beginning).first;
  const std::uint64_t last = FindTimeStamps(end).last;
  if (last == 0 || first > kWrap) return std::nullopt;
  return static_cast<int>((last + (last < first ? kWrap : 0) - first) / kClock);
}

}  // namespace quillon
