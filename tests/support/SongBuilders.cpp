#include "support/SongBuilders.h"

#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

constexpr std::uint32_t kRate = 44100;
constexpr std::uint32_t kSeconds = 3;

std::string Long(std::uint32_t number) {
  return LittleEndian(number, 4) + LittleEndian(0, 4);
}

std::string Utf16(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) bytes += LittleEndian(unit, 2);
  return bytes + LittleEndian(0, 2);
}

std::string StreamInfo() {
  // Rate, channels and sample size share their bytes with the upper bits of the number of samples.
  return BigEndian(4096, 2) + BigEndian(4096, 2) + BigEndian(0, 3) + BigEndian(0, 3) +
         BigEndian(kRate << 12u | 1u << 9u | 15u << 4u, 4) + BigEndian(kRate * kSeconds, 4) + std::string(16, '\0');
}

}  // namespace

std::string Utf8Text(std::string_view text) {
  return "\x03" + std::string(text);
}

std::string VorbisComment(const TagTexts& texts) {
  std::string bytes = LittleEndian(0, 4) + LittleEndian(static_cast<std::uint32_t>(texts.size()), 4);
  for (const auto& [key, text] : texts) {
    const std::string entry = key + "=" + text;
    bytes += LittleEndian(static_cast<std::uint32_t>(entry.size()), 4) + entry;
  }
  return bytes;
}

std::string FlacBlock(unsigned type, std::string_view data, bool last) {
  return Bytes({type | (last ? 0x80u : 0u)}) + BigEndian(static_cast<std::uint32_t>(data.size()), 3) +
         std::string(data);
}

std::string FlacStart() {
  return "fLaC" + FlacBlock(0, StreamInfo());
}

std::string FlacFile(const TagTexts& texts) {
  return FlacStart() + FlacBlock(4, VorbisComment(texts), true) + std::string(64, '\xFF');
}

std::string OggPage(unsigned number, const std::vector<std::string>& packets, std::uint32_t granule, bool last) {
  std::string sizes;
  std::string data;
  for (const std::string& packet : packets) {
    sizes += std::string(packet.size() / 255, '\xFF') + Bytes({static_cast<unsigned>(packet.size() % 255)});
    data += packet;
  }
  const unsigned flags = (number == 0 ? 2u : 0u) | (last ? 4u : 0u);
  return "OggS" + Bytes({0, flags}) + Long(granule) + LittleEndian(1, 4) + LittleEndian(number, 4) +
         LittleEndian(0, 4) + Bytes({static_cast<unsigned>(sizes.size())}) + sizes + data;
}

std::string OggVorbisFile(const TagTexts& texts) {
  const std::string head = "\x01vorbis" + LittleEndian(0, 4) + Bytes({2}) + LittleEndian(kRate, 4) + Long(0) +
                           LittleEndian(0, 4) + Bytes({0xB8, 1});
  return OggPage(0, {head}) + OggPage(1, {"\x03vorbis" + VorbisComment(texts) + "\x01", "\x05vorbis"}) +
         OggPage(2, {std::string(40, 'x')}, kRate * kSeconds, true);
}

std::string OggOpusFile(const TagTexts& texts) {
  constexpr std::uint32_t kOpusRate = 48000;
  const std::string head =
      "OpusHead" + Bytes({1, 2}) + LittleEndian(0, 2) + LittleEndian(kOpusRate, 4) + LittleEndian(0, 2) + Bytes({0});
  return OggPage(0, {head}) + OggPage(1, {"OpusTags" + VorbisComment(texts)}) +
         OggPage(2, {std::string(40, 'x')}, kOpusRate * kSeconds, true);
}

std::string OggSpeexFile(const TagTexts& texts) {
  const std::string head = Padded("Speex   1.2", 28) + LittleEndian(1, 4) + LittleEndian(80, 4) +
                           LittleEndian(kRate, 4) + LittleEndian(0, 4) + LittleEndian(4, 4) + LittleEndian(2, 4) +
                           std::string(28, '\0');
  return OggPage(0, {head}) + OggPage(1, {VorbisComment(texts)}) +
         OggPage(2, {std::string(40, 'x')}, kRate * kSeconds, true);
}

std::string OggFlacFile(const TagTexts& texts) {
  return OggPage(0, {"\x7F"
                     "FLAC" +
                     Bytes({1, 0}) + BigEndian(1, 2) + FlacStart()}) +
         OggPage(1, {FlacBlock(4, VorbisComment(texts), true)}) +
         OggPage(2, {std::string(40, 'x')}, kRate * kSeconds, true);
}

std::string Mp4Atom(std::string_view name, std::string_view data) {
  return BigEndian(static_cast<std::uint32_t>(data.size()) + 8, 4) + std::string(name) + std::string(data);
}

std::string M4aFile(const TagTexts& texts) {
  std::string items;
  for (const auto& [key, text] : texts) {
    const bool isNumber = key == "trkn";
    const std::string data =
        isNumber ? BigEndian(0, 2) + BigEndian(static_cast<std::uint32_t>(std::stoi(text)), 2) + BigEndian(0, 4) : text;
    items += Mp4Atom(key, Mp4Atom("data", BigEndian(isNumber ? 0 : 1, 4) + BigEndian(0, 4) + data));
  }
  const std::string handler = Mp4Atom("hdlr", std::string(8, '\0') + "soun" + std::string(13, '\0'));
  const std::string media =
      Mp4Atom("mdhd", std::string(12, '\0') + BigEndian(1000, 4) + BigEndian(1000 * kSeconds, 4) + BigEndian(0, 4));
  const std::string track = Mp4Atom("trak", Mp4Atom("mdia", media + handler));
  const std::string meta = Mp4Atom("meta", BigEndian(0, 4) + handler + Mp4Atom("ilst", items));
  return Mp4Atom("ftyp", "M4A " + BigEndian(0, 4)) + Mp4Atom("moov", track + Mp4Atom("udta", meta)) +
         Mp4Atom("mdat", std::string(64, 'x'));
}

std::string ApeTag(const TagTexts& texts) {
  std::string items;
  for (const auto& [key, text] : texts) {
    items += LittleEndian(static_cast<std::uint32_t>(text.size()), 4) + LittleEndian(0, 4) + key + '\0' + text;
  }
  return items + "APETAGEX" + LittleEndian(2000, 4) + LittleEndian(static_cast<std::uint32_t>(items.size()) + 32, 4) +
         LittleEndian(static_cast<std::uint32_t>(texts.size()), 4) + LittleEndian(0, 4) + Long(0);
}

std::string AiffChunk(std::string_view id, std::string_view data) {
  return std::string(id) + BigEndian(static_cast<std::uint32_t>(data.size()), 4) + std::string(data) +
         std::string(data.size() % 2, '\0');
}

std::string AiffFile(const std::vector<std::string>& chunks, std::string_view type) {
  // 44100 as an extended number.
  const std::string rate = Bytes({0x40, 0x0E, 0xAC, 0x44, 0, 0, 0, 0, 0, 0});
  std::string data =
      std::string(type) + AiffChunk("COMM", BigEndian(2, 2) + BigEndian(kRate * kSeconds, 4) + BigEndian(16, 2) + rate);
  for (const std::string& chunk : chunks) data += chunk;
  return AiffChunk("FORM", data);
}

std::string AsfObject(std::string_view guid, std::string_view data) {
  return std::string(guid) + Long(static_cast<std::uint32_t>(data.size()) + 24) + std::string(data);
}

std::string AsfHeader(std::uint32_t count, const std::vector<std::string>& objects) {
  std::string data = LittleEndian(count, 4) + Bytes({1, 2});
  for (const std::string& object : objects) data += object;
  return AsfObject(
      Bytes({0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C}), data);
}

std::string WmaFile(std::u16string_view title, std::u16string_view artist,
                    const std::vector<std::pair<std::u16string, std::u16string>>& attributes) {
  const auto length = [](const std::string& bytes) {
    return LittleEndian(static_cast<std::uint32_t>(bytes.size()), 2);
  };
  const std::string titleBytes = Utf16(title);
  const std::string artistBytes = Utf16(artist);
  const std::string content =
      AsfObject(Bytes({0x33, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C}),
                length(titleBytes) + length(artistBytes) + std::string(6, '\0') + titleBytes + artistBytes);
  std::string further = LittleEndian(static_cast<std::uint32_t>(attributes.size()), 2);
  for (const auto& [name, text] : attributes) {
    further += length(Utf16(name)) + Utf16(name) + LittleEndian(0, 2) + length(Utf16(text)) + Utf16(text);
  }
  const std::string extended = AsfObject(
      Bytes({0x40, 0xA4, 0xD0, 0xD2, 0x07, 0xE3, 0xD2, 0x11, 0x97, 0xF0, 0x00, 0xA0, 0xC9, 0x5E, 0xA8, 0x50}), further);
  const std::string properties =
      AsfObject(Bytes({0xA1, 0xDC, 0xAB, 0x8C, 0x47, 0xA9, 0xCF, 0x11, 0x8E, 0xE4, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}),
                std::string(40, '\0') + Long(kSeconds * 10'000'000) + std::string(32, '\0'));
  const std::string stream =
      AsfObject(Bytes({0x91, 0x07, 0xDC, 0xB7, 0xB7, 0xA9, 0xCF, 0x11, 0x8E, 0xE6, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}),
                std::string(72, '\0'));
  return AsfHeader(4, {properties, stream, content, extended});
}

std::string ModFile(std::string_view title) {
  return Padded(title, 1080) + "M.K." + std::string(1024, '\0');
}

std::string S3mFile(std::string_view title, unsigned samples) {
  return Padded(title, 28) + Bytes({0x1A, 0x10, 0, 0}) + LittleEndian(0, 2) + LittleEndian(samples, 2) +
         std::string(8, '\0') + "SCRM" + std::string(16, '\0') + std::string(160, '\xFF');
}

std::string ItFile(std::string_view title, unsigned instruments, unsigned samples) {
  return "IMPM" + Padded(title, 26) + LittleEndian(0, 2) + LittleEndian(0, 2) + LittleEndian(instruments, 2) +
         LittleEndian(samples, 2) + std::string(186, '\0');
}

std::string XmFile(std::string_view title, unsigned patterns, unsigned instruments) {
  return "Extended Module: " + Padded(title, 20) + "\x1A" + Padded("tracker", 20) + LittleEndian(0x104, 2) +
         LittleEndian(276, 4) + LittleEndian(0, 6) + LittleEndian(patterns, 2) + LittleEndian(instruments, 2) +
         std::string(264, '\0');
}

}  // namespace quillon::test
