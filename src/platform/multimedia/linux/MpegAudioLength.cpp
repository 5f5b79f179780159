#include "platform/multimedia/linux/MpegAudioLength.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "base/ByteSearch.h"

namespace quillon {
namespace {

constexpr std::size_t kHeaderLength = 4;

struct FrameHeader {
  unsigned kind = 0;  ///< the header's version, layer and sample rate: the same in every frame of a file
  unsigned sampleRate = 0;
  unsigned samples = 0;
  std::size_t length = 0;      ///< bytes, header included
  std::size_t infoOffset = 0;  ///< the offset of a Xing or Info header in the first frame
};

// In kbit/s, by index; 0: free format, whose frame lengths are unknown.
using Bitrates = std::array<unsigned, 15>;
constexpr Bitrates kVersion1Layer1 = {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
constexpr Bitrates kVersion1Layer2 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr Bitrates kVersion1Layer3 = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr Bitrates kVersion2Layer1 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr Bitrates kVersion2Others = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

const Bitrates& BitratesOf(bool version1, unsigned layer) {
  if (!version1) return layer == 1 ? kVersion2Layer1 : kVersion2Others;
  if (layer == 1) return kVersion1Layer1;
  return layer == 2 ? kVersion1Layer2 : kVersion1Layer3;
}

unsigned Byte(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

std::size_t FrameLength(unsigned layer, unsigned samples, unsigned bitrate, unsigned sampleRate, unsigned padding) {
  if (layer == 1) return (std::size_t{12} * bitrate * 1000U / sampleRate + padding) * 4U;
  return std::size_t{samples} / 8U * bitrate * 1000U / sampleRate + padding;
}

std::optional<FrameHeader> ReadHeader(std::string_view bytes) {
  constexpr std::array<unsigned, 3> kSampleRates = {44100, 48000, 32000};
  if (bytes.size() < kHeaderLength || Byte(bytes, 0) != 0xFF || (Byte(bytes, 1) & 0xE0U) != 0xE0U) return std::nullopt;
  const unsigned version = Byte(bytes, 1) >> 3U & 3U;  // 3: MPEG-1, 2: MPEG-2, 0: MPEG-2.5
  const unsigned layer = 4U - (Byte(bytes, 1) >> 1U & 3U);
  const unsigned bitrateIndex = Byte(bytes, 2) >> 4U;
  const unsigned rateIndex = Byte(bytes, 2) >> 2U & 3U;
  if (version == 1 || layer == 4 || rateIndex == 3 || bitrateIndex == 0 || bitrateIndex == 15) return std::nullopt;
  const bool version1 = version == 3;
  const bool mono = Byte(bytes, 3) >> 6U == 3;
  FrameHeader header;
  header.kind = (Byte(bytes, 1) & 0x1EU) << 8U | (Byte(bytes, 2) & 0x0CU);
  header.sampleRate = kSampleRates.at(rateIndex) / (version1 ? 1U : version == 2 ? 2U : 4U);
  header.samples = layer == 1 ? 384U : layer == 3 && !version1 ? 576U : 1152U;
  header.length = FrameLength(layer, header.samples, BitratesOf(version1, layer).at(bitrateIndex), header.sampleRate,
                              Byte(bytes, 2) >> 1U & 1U);
  const std::size_t sideInformation = version1 ? (mono ? 17U : 32U) : (mono ? 9U : 17U);
  header.infoOffset = kHeaderLength + sideInformation;
  return header;
}

/// Reads a file forwards in blocks. After the deadline it behaves as if the file had ended.
class Blocks {
 public:
  Blocks(ByteSource& file, const Deadline& deadline) : file_(file), deadline_(deadline), size_(file.Size()) {}

  [[nodiscard]] std::uint64_t Size() const { return size_; }
  [[nodiscard]] bool TimeIsUp() const { return timeIsUp_; }

  /// Returns `count` bytes, or fewer at the file's end. Valid until the next call.
  std::string_view At(std::uint64_t offset, std::size_t count) {
    if (!Holds(offset, count)) Load(offset);
    return std::string_view(block_).substr(static_cast<std::size_t>(offset - start_), count);
  }

 private:
  [[nodiscard]] bool Holds(std::uint64_t offset, std::size_t count) const {
    const std::uint64_t end = start_ + block_.size();
    return offset >= start_ && offset <= end && (offset + count <= end || end >= size_);
  }

  void Load(std::uint64_t offset) {
    constexpr std::size_t kBlock = 256U << 10U;
    timeIsUp_ = timeIsUp_ || deadline_.Passed();
    start_ = offset;
    block_.resize(timeIsUp_ ? 0 : kBlock);
    block_.resize(file_.ReadAt(offset, block_.data(), block_.size()));
  }

  ByteSource& file_;
  const Deadline& deadline_;
  std::uint64_t size_;
  std::string block_;
  std::uint64_t start_ = 0;
  bool timeIsUp_ = false;
};

/// Returns the offset behind the leading ID3 tags and the zeros that follow them.
std::uint64_t SkipTags(Blocks& blocks) {
  constexpr std::size_t kTagHeader = 10;
  constexpr int kMostTags = 100;
  std::uint64_t offset = 0;
  for (int tags = 0; tags < kMostTags; ++tags) {
    const std::string_view tag = blocks.At(offset, kTagHeader);
    if (tag.size() < kTagHeader || !tag.starts_with("ID3")) break;
    std::uint64_t size = 0;
    for (std::size_t i = 6; i < kTagHeader; ++i) size = size << 7U | (Byte(tag, i) & 0x7FU);
    const bool footer = (Byte(tag, 5) & 0x10U) != 0;
    offset += kTagHeader + size + (footer ? kTagHeader : 0U);
  }
  constexpr int kMostPadding = 4096;
  for (int i = 0; i < kMostPadding && blocks.At(offset, 1) == std::string_view("\0", 1); ++i) ++offset;
  return offset;
}

bool SaysItsLength(std::string_view frame, const FrameHeader& header) {
  constexpr std::size_t kVbriOffset = 36;
  const auto stands = [frame](std::string_view name, std::size_t at) {
    return frame.size() > at && frame.substr(at).starts_with(name);
  };
  return stands("Xing", header.infoOffset) || stands("Info", header.infoOffset) || stands("VBRI", kVbriOffset);
}

std::optional<FrameHeader> ReadHeader(std::string_view bytes, unsigned kind) {
  std::optional<FrameHeader> header = ReadHeader(bytes);
  if (header && header->kind != kind) header.reset();
  return header;
}

/// Finds the frames of one kind in a stream that may be damaged.
class Frames {
 public:
  Frames(Blocks& blocks, unsigned kind) : blocks_(blocks), kind_(kind) {}

  /// The next frame at or behind `offset`, which is set to the frame's offset.
  std::optional<FrameHeader> Next(std::uint64_t& offset) {
    if (const auto header = ReadHeader(blocks_.At(offset, kHeaderLength), kind_); header) return header;
    const std::optional<std::uint64_t> found = Find(offset + 1);
    if (!found) return std::nullopt;
    offset = *found;
    return ReadHeader(blocks_.At(offset, kHeaderLength), kind_);
  }

 private:
  /// The total number of damaged bytes that are searched for a frame; behind that the stream counts as ended.
  static constexpr std::uint64_t kMostDamage = 4U << 20U;

  /// The first offset from `from` on that may be a header. Not every match is one.
  [[nodiscard]] std::size_t FindHeader(std::string_view part, std::size_t from) const {
    const auto second = static_cast<unsigned char>(0xE0U | kind_ >> 8U);
    const auto third = static_cast<unsigned char>(kind_ & 0x0CU);
    return FindWhere<3>(part, from, '\xFF', [=](const char* place) {
      return (StandsAt(place, "\xFF") &
              static_cast<unsigned>((static_cast<unsigned char>(place[1]) & 0xFEU) == second) &
              static_cast<unsigned>((static_cast<unsigned char>(place[2]) & 0x0CU) == third)) != 0;
    });
  }

  /// The offset, from `offset` on, of the first frame that another frame follows: there a damaged stream continues.
  std::optional<std::uint64_t> Find(std::uint64_t offset) {
    constexpr std::size_t kSearched = 64U << 10U;
    constexpr std::size_t kLongestFrame = 4096;
    for (; damage_ < kMostDamage; offset += kSearched, damage_ += kSearched) {
      const std::string_view part = blocks_.At(offset, kSearched + kLongestFrame);
      for (std::size_t at = FindHeader(part, 0); at < std::min(kSearched, part.size()); at = FindHeader(part, at + 1)) {
        const std::optional<FrameHeader> header = ReadHeader(part.substr(at), kind_);
        if (!header || at + header->length > part.size()) continue;
        if (!ReadHeader(part.substr(at + header->length), kind_)) continue;
        damage_ += at;
        return offset + at;
      }
      if (part.size() <= kSearched) break;
    }
    return std::nullopt;
  }

  Blocks& blocks_;
  unsigned kind_;
  std::uint64_t damage_ = 0;
};

}  // namespace

std::optional<int> CountedMpegAudioLength(ByteSource& file, const Deadline& deadline) {
  constexpr int kSureFrames = 3;
  Blocks blocks(file, deadline);
  std::uint64_t offset = SkipTags(blocks);
  const std::optional<FrameHeader> first = ReadHeader(blocks.At(offset, kHeaderLength));
  if (!first || SaysItsLength(blocks.At(offset, first->length), *first)) return std::nullopt;
  Frames stream(blocks, first->kind);
  std::uint64_t frames = 0;
  for (;;) {
    const std::uint64_t expected = offset;
    const std::optional<FrameHeader> frame = stream.Next(offset);
    if (frames < kSureFrames && (!frame || offset != expected)) return std::nullopt;
    // A truncated last frame is not played.
    if (!frame || offset + frame->length > blocks.Size()) break;
    ++frames;
    offset += frame->length;
  }
  if (blocks.TimeIsUp()) return std::nullopt;
  const std::uint64_t milliseconds = (frames * first->samples * 1000U + first->sampleRate / 2U) / first->sampleRate;
  return static_cast<int>(std::min<std::uint64_t>(milliseconds, std::numeric_limits<int>::max()));
}

}  // namespace quillon
