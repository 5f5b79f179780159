#include "media/basID3TAGControl.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string_view>

#include "base/Text.h"
#include "platform/Ansi.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr std::size_t kTrailerLength = 128;
constexpr std::size_t kHeaderLength = 10;
constexpr std::size_t kLongestVersion11Comment = 14;

std::uint32_t Byte(char c) {
  return static_cast<unsigned char>(c);
}

bool TestBit(std::uint32_t byte, unsigned number) {
  return (byte >> number & 1u) != 0;
}

std::int16_t Year(std::string_view text) {
  const std::int64_t number = LeadingNumber(text);
  using Limits = std::numeric_limits<std::int16_t>;
  return number < Limits::min() || number > Limits::max() ? std::int16_t{0} : static_cast<std::int16_t>(number);
}

/// The bytes at `offset`; zeros behind the end of the file.
template <std::size_t kCount>
std::array<unsigned char, kCount> BytesAt(BlockReader& file, std::uint64_t offset) {
  std::array<unsigned char, kCount> bytes{};
  const std::string_view view = file.View(offset, kCount);
  for (std::size_t i = 0; i < kCount && i < view.size(); ++i) bytes[i] = static_cast<unsigned char>(view[i]);
  return bytes;
}

/// Decodes four bytes of seven bits each. A set top bit is not masked but added; the largest result still fits the
/// signed type.
std::int32_t SevenBitNumber(const unsigned char* bytes) {
  return std::int32_t{bytes[0]} * 0x200000 + bytes[1] * 0x4000 + bytes[2] * 0x80 + bytes[3];
}

/// The optional part between the header and the first frame.
struct ExtendedHeader {
  std::size_t length = 0;
  std::int32_t padding = 0;
};

ExtendedHeader ReadExtendedHeader(BlockReader& file, Id3v2Info& info) {
  const auto bytes = BytesAt<14>(file, kHeaderLength);
  info.crcPresent = TestBit(bytes[4], 7);
  if (info.crcPresent) info.crc = SevenBitNumber(&bytes[10]);
  return {info.crcPresent ? std::size_t{14} : std::size_t{10}, SevenBitNumber(&bytes[6])};
}

void ReadHeader(BlockReader& file, Id3v2Info& info) {
  auto bytes = BytesAt<kHeaderLength>(file, 0);
  info.majorVersion = bytes[3];
  info.revision = bytes[4];
  info.unsynchronisation = TestBit(bytes[5], 7);
  info.extendedHeader = TestBit(bytes[5], 6);
  info.experimental = TestBit(bytes[5], 5);
  std::for_each(bytes.begin() + 6, bytes.end(), [](unsigned char& byte) { byte &= 0x7Fu; });
  info.tagSize = SevenBitNumber(&bytes[6]);
}

struct Frame {
  std::uint32_t id = 0;  ///< its three or four bytes, the first one highest
  bool isPadding = false;
  bool compressed = false;
  std::uint64_t data = 0;  ///< offset
  std::uint64_t size = 0;
};

Frame ReadFourLetterFrame(BlockReader& file, std::uint64_t offset) {
  const auto bytes = BytesAt<10>(file, offset);
  const std::uint64_t size = std::uint64_t{bytes[4]} << 24u | std::uint64_t{bytes[5]} << 16u |
                             std::uint64_t{bytes[6]} << 8u | std::uint64_t{bytes[7]};
  // An encrypted frame has a byte for its method, a grouped one a byte for its group, in front of the data; both are
  // included in the size.
  const std::uint64_t extra = (TestBit(bytes[9], 6) ? 1u : 0u) + (TestBit(bytes[9], 5) ? 1u : 0u);
  Frame frame;
  frame.id = std::uint32_t{bytes[0]} << 24u | std::uint32_t{bytes[1]} << 16u | std::uint32_t{bytes[2]} << 8u | bytes[3];
  frame.isPadding = bytes[0] == 0;
  frame.compressed = TestBit(bytes[9], 7);
  frame.data = offset + bytes.size() + extra;
  frame.size = size - std::min(size, extra);
  return frame;
}

Frame ReadThreeLetterFrame(BlockReader& file, std::uint64_t offset) {
  const auto bytes = BytesAt<6>(file, offset);
  Frame frame;
  frame.id = std::uint32_t{bytes[0]} << 16u | std::uint32_t{bytes[1]} << 8u | bytes[2];
  frame.isPadding = bytes[0] == 0;
  frame.data = offset + bytes.size();
  frame.size = std::uint64_t{bytes[3]} << 16u | std::uint64_t{bytes[4]} << 8u | bytes[5];
  return frame;
}

constexpr std::uint32_t Id(std::string_view letters) {
  std::uint32_t id = 0;
  for (const char c : letters) id = id << 8u | static_cast<unsigned char>(c);
  return id;
}

/// The offset and size of a frame's data; zero size when the frame is missing.
struct Place {
  std::uint64_t data = 0;
  std::uint64_t size = 0;
};

/// The last frame of each kind.
struct FramePlaces {
  Place contentGroup;
  Place title;
  Place subtitle;
  Place artist;
  Place band;
  Place conductor;
  Place remixer;
  Place album;
  Place year;
  Place comment;
  Place track;
  Place genre;
};

/// Returns null for frames that are not read.
Place* PlaceOf(FramePlaces& places, std::uint32_t id) {
  switch (id) {
    case Id("TALB"):
    case Id("TAL"): return &places.album;
    case Id("TCON"):
    case Id("TCO"): return &places.genre;
    case Id("TIT1"):
    case Id("TT1"): return &places.contentGroup;
    case Id("TIT2"):
    case Id("TT2"): return &places.title;
    case Id("TIT3"):
    case Id("TT3"): return &places.subtitle;
    case Id("TPE1"):
    case Id("TP1"): return &places.artist;
    case Id("TPE2"):
    case Id("TP2"): return &places.band;
    case Id("TPE3"):
    case Id("TP3"): return &places.conductor;
    case Id("TPE4"):
    case Id("TP4"): return &places.remixer;
    case Id("TRCK"):
    case Id("TRK"): return &places.track;
    case Id("TYER"):
    case Id("TYE"): return &places.year;
    case Id("COMM"):
    case Id("COM"): return &places.comment;
    default: return nullptr;
  }
}

/// Decodes whole 16-bit units; a single byte at the end is dropped.
std::string Utf16ToUtf8(std::string_view bytes, bool littleEndian) {
  std::string text;
  char32_t high = 0;  // the first half of a surrogate pair, waiting for its second
  const auto dropHigh = [&] {
    if (high != 0) AppendUtf8(text, 0xFFFD);
    high = 0;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = Byte(bytes[littleEndian ? i + 1 : i]) << 8u | Byte(bytes[littleEndian ? i : i + 1]);
    const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
    if (isLow && high != 0) {
      AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10u) + (unit - 0xDC00));
      high = 0;
      continue;
    }
    dropHigh();
    if (unit >= 0xD800 && unit <= 0xDBFF) {
      high = unit;
    } else {
      AppendUtf8(text, isLow ? 0xFFFD : unit);
    }
  }
  dropHigh();
  return text;
}

/// Decodes one UTF-16 text with its byte-order mark, and removes it and its terminating zero unit from the front of
/// `rest`.
std::string TakeUtf16(std::string_view& rest) {
  constexpr std::size_t kMark = 2;
  const bool littleEndian = !rest.empty() && Byte(rest[0]) == 0xFF;
  std::size_t end = kMark;
  while (end + 1 < rest.size() && (rest[end] != 0 || rest[end + 1] != 0)) end += 2;
  const std::string_view units = rest.substr(std::min(kMark, rest.size()), end - kMark);
  rest.remove_prefix(std::min(end + 2, rest.size()));
  return Utf16ToUtf8(CutToLongestText(units), littleEndian);
}

/// Decodes one text and removes it and its terminator from the front of `rest`; an empty text for an unsupported
/// encoding.
std::string TakeText(std::string_view& rest, std::uint32_t encoding) {
  if (encoding == 1) return TakeUtf16(rest);
  if (encoding != 0) return {};
  const std::string_view bytes = rest.substr(0, rest.find('\0'));
  rest.remove_prefix(std::min(bytes.size() + 1, rest.size()));
  return AnsiToUtf8(CutToLongestText(bytes));
}

std::string ReadText(BlockReader& file, const Place& place) {
  const std::string_view data = file.View(place.data, place.size);
  if (data.empty()) return {};
  std::string_view rest = data.substr(1);
  return TakeText(rest, Byte(data[0]));
}

void ReadComment(BlockReader& file, const Place& place, Id3v2Info& info) {
  std::string_view data = file.View(place.data, place.size);
  const std::uint32_t encoding = data.empty() ? 0 : Byte(data[0]);
  data.remove_prefix(std::min<std::size_t>(4, data.size()));  // the encoding and three letters for the language
  info.commentDescription = TakeText(data, encoding);
  info.comment = TakeText(data, encoding);
}

FramePlaces FindFrames(BlockReader& file, const ExtendedHeader& extended, const Id3v2Info& info) {
  const std::int64_t end = std::int64_t{kHeaderLength} + info.tagSize - extended.padding;
  std::uint64_t next = kHeaderLength + extended.length;
  FramePlaces places;
  for (int looked = 0; looked < kMostId3Frames; ++looked) {
    const Frame frame = info.majorVersion == 3 ? ReadFourLetterFrame(file, next) : ReadThreeLetterFrame(file, next);
    if (frame.compressed || frame.isPadding) break;  // identifiers contain no zero byte
    if (Place* const place = PlaceOf(places, frame.id)) *place = {frame.data, frame.size};
    next = frame.data + frame.size;
    if (static_cast<std::int64_t>(next) + 1 >= end) break;
  }
  return places;
}

void ReadTexts(BlockReader& file, const FramePlaces& places, TagFields wanted, Id3v2Info& info) {
  info.title = ReadText(file, places.title);
  info.artist = ReadText(file, places.artist);
  if (wanted == TagFields::kTitleAndArtist) return;
  info.contentGroup = ReadText(file, places.contentGroup);
  info.subtitle = ReadText(file, places.subtitle);
  info.band = ReadText(file, places.band);
  info.conductor = ReadText(file, places.conductor);
  info.remixer = ReadText(file, places.remixer);
  info.album = ReadText(file, places.album);
  info.year = Year(ReadText(file, places.year));
  ReadComment(file, places.comment, info);
  info.track = ReadText(file, places.track);
  info.genre = ReadText(file, places.genre);
}

}  // namespace

Id3v1Info ReadId3v1(BlockReader& file, TagFields wanted, StoredText stored) {
  if (file.Size() < kTrailerLength) return {};
  const std::string_view trailer = file.View(file.Size() - kTrailerLength, kTrailerLength);
  if (trailer.size() < kTrailerLength) return {};
  Id3v1Info info;
  info.title = DecodeStoredField(trailer.substr(3, 30), stored);
  info.artist = DecodeStoredField(trailer.substr(33, 30), stored);
  if (wanted == TagFields::kTitleAndArtist) return info;
  info.album = DecodeStoredField(trailer.substr(63, 30), stored);
  info.year = Year(trailer.substr(93, 4));
  info.comment = DecodeStoredField(trailer.substr(97, 30), stored);
  info.genre = static_cast<std::uint8_t>(trailer[127]);
  if (CharacterCount(DecodeStoredField(trailer.substr(97, 30), StoredText::kAnsi)) <= kLongestVersion11Comment) {
    info.version11 = 1;
    info.track = static_cast<std::uint8_t>(trailer[126]);
  }
  return info;
}

Id3v1Info ReadId3v1(ByteSource& file) {
  BlockReader reader(file);
  return ReadId3v1(reader);
}

Id3v1Info ReadId3v1(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? ReadId3v1(*file) : Id3v1Info{};
}

Id3v2Info ReadId3v2(BlockReader& file, TagFields wanted) {
  Id3v2Info info;
  ReadHeader(file, info);
  ExtendedHeader extended;
  if (info.majorVersion >= 3 && info.extendedHeader) extended = ReadExtendedHeader(file, info);
  // Read as three-letter frames, version 2.4's "TALB" would match "TAL", and bytes of its size would be read as text.
  if (info.majorVersion != kId3VersionWithoutFrames) ReadTexts(file, FindFrames(file, extended, info), wanted, info);
  return info;
}

Id3v2Info ReadId3v2(ByteSource& file) {
  BlockReader reader(file);
  return ReadId3v2(reader);
}

Id3v2Info ReadId3v2(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? ReadId3v2(*file) : Id3v2Info{};
}

}  // namespace quillon
