#include "support/MediaBuilders.h"

#include <array>

namespace quillon::test {
namespace {

char Char(std::uint32_t value) {
  return static_cast<char>(static_cast<unsigned char>(value & 0xFFu));
}

/// Seven bits per byte; all bytes but the last have the top bit set.
std::string VariableLength(std::uint32_t number) {
  std::string bytes(1, Char(number & 0x7Fu));
  while ((number >>= 7u) != 0) bytes.insert(bytes.begin(), Char(0x80u | (number & 0x7Fu)));
  return bytes;
}

std::string SevenBits(std::uint32_t number) {
  return Bytes({number >> 21u & 0x7Fu, number >> 14u & 0x7Fu, number >> 7u & 0x7Fu, number & 0x7Fu});
}

std::string Id3FrameBytes(const Id3Frame& frame, unsigned major) {
  const std::uint32_t size = frame.size.value_or(static_cast<std::uint32_t>(frame.data.size()));
  if (major == 2) return frame.id + BigEndian(size, 3) + frame.data;
  return frame.id + (major == 4 ? SevenBits(size) : BigEndian(size, 4)) + Bytes({0, frame.secondFlags}) + frame.data;
}

std::string ExtendedHeader(const Id3v2Parts& parts) {
  std::string body = Bytes({parts.crc ? 0x80u : 0u, 0}) + SevenBits(static_cast<std::uint32_t>(parts.padding));
  if (parts.crc) body += SevenBits(*parts.crc);
  return SevenBits(static_cast<std::uint32_t>(body.size())) + body;
}

}  // namespace

std::string Bytes(std::initializer_list<unsigned> values) {
  std::string bytes;
  for (const unsigned value : values) bytes += Char(value);
  return bytes;
}

std::string BigEndian(std::uint32_t number, std::size_t byteCount) {
  std::string bytes = LittleEndian(number, byteCount);
  std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

std::string LittleEndian(std::uint32_t number, std::size_t byteCount) {
  std::string bytes;
  for (; byteCount > 0; --byteCount, number >>= 8u) bytes += Char(number);
  return bytes;
}

std::string Padded(std::string_view text, std::size_t length) {
  std::string bytes(text);
  bytes.resize(length, '\0');
  return bytes;
}

std::string MetaEvent(unsigned type, std::string_view data) {
  return Bytes({0xFF, type}) + VariableLength(static_cast<std::uint32_t>(data.size())) + std::string(data);
}

std::string TimedMetaEvent(unsigned type, std::string_view data) {
  return Bytes({0}) + MetaEvent(type, data);
}

std::string MidiNote(unsigned key, std::uint32_t ticks) {
  return Bytes({0, 0x90, key, 64}) + VariableLength(ticks) + Bytes({0x80, key, 64});
}

std::string MidiTrack(std::string_view events) {
  const std::string body = std::string(events) + Bytes({0, 0xFF, 0x2F, 0});
  return "MTrk" + BigEndian(static_cast<std::uint32_t>(body.size()), 4) + body;
}

std::string MidiHeader(unsigned format, unsigned trackCount, unsigned division) {
  return "MThd" + BigEndian(6, 4) + BigEndian(format, 2) + BigEndian(trackCount, 2) + BigEndian(division, 2);
}

std::string MidiFile(unsigned format, unsigned division, const std::vector<std::string>& tracks) {
  std::string file = MidiHeader(format, static_cast<unsigned>(tracks.size()), division);
  for (const std::string& track : tracks) file += track;
  return file;
}

std::string SimpleMidiFile(std::string_view title, std::string_view copyright, int quarterNotes) {
  constexpr unsigned kDivision = 480;  // without a tempo event a quarter note lasts half a second
  std::string events;
  if (!title.empty()) events += TimedMetaEvent(midi_event::kName, title);
  if (!copyright.empty()) events += TimedMetaEvent(midi_event::kCopyright, copyright);
  for (int i = 0; i < quarterNotes; ++i) events += MidiNote(60u + static_cast<unsigned>(i % 12), kDivision);
  return MidiFile(0, kDivision, {MidiTrack(events)});
}

std::string Mp3Audio(int frameCount) {
  constexpr std::size_t kFrameLength = 417;  // 144 * 128000 / 44100
  const std::string frame = Padded(Bytes({0xFF, 0xFB, 0x90, 0xC4}), kFrameLength);
  std::string audio;
  for (int i = 0; i < frameCount; ++i) audio += frame;
  return audio;
}

std::string Id3v1Trailer(const Id3v1Texts& texts) {
  std::string trailer = "TAG" + Padded(texts.title, 30) + Padded(texts.artist, 30) + Padded(texts.album, 30) +
                        Padded(texts.year, 4) + Padded(texts.comment, 30) + Bytes({texts.genre});
  if (texts.track) trailer.replace(125, 2, Bytes({0, *texts.track}));
  return trailer;
}

std::string AnsiText(std::string_view text) {
  return Bytes({0}) + std::string(text);
}

std::string Utf16Text(std::u16string_view text, bool littleEndian) {
  return Bytes({1}) + Utf16Units(text, littleEndian);
}

std::string Utf16Units(std::u16string_view text, bool littleEndian) {
  std::string bytes = littleEndian ? Bytes({0xFF, 0xFE}) : Bytes({0xFE, 0xFF});
  for (const char16_t unit : text) bytes += littleEndian ? LittleEndian(unit, 2) : BigEndian(unit, 2);
  return bytes;
}

std::string AnsiComment(std::string_view description, std::string_view comment) {
  return Bytes({0}) + "jpn" + std::string(description) + Bytes({0}) + std::string(comment);
}

std::string Utf16Comment(std::u16string_view description, std::u16string_view comment) {
  return Bytes({1}) + "jpn" + Utf16Units(description) + Bytes({0, 0}) + Utf16Units(comment);
}

std::string Id3v2Tag(const Id3v2Parts& parts) {
  constexpr unsigned kExtendedHeaderFlag = 0x40;
  std::string body = parts.extendedHeader ? ExtendedHeader(parts) : std::string();
  for (const Id3Frame& frame : parts.frames) body += Id3FrameBytes(frame, parts.major);
  body += std::string(parts.padding, '\0');
  const unsigned flags = parts.flags | (parts.extendedHeader ? kExtendedHeaderFlag : 0u);
  const std::uint32_t size = parts.tagSize.value_or(static_cast<std::uint32_t>(body.size()));
  return "ID3" + Bytes({parts.major, parts.revision, flags}) + SevenBits(size) + body;
}

std::string RiffChunk(std::string_view id, std::string_view data) {
  std::string chunk = std::string(id) + LittleEndian(static_cast<std::uint32_t>(data.size()), 4) + std::string(data);
  if (data.size() % 2 != 0) chunk += '\0';
  return chunk;
}

std::string RiffList(std::string_view id, std::string_view type, const std::vector<std::string>& chunks) {
  std::string data(type);
  for (const std::string& chunk : chunks) data += chunk;
  return RiffChunk(id, data);
}

std::string InfoList(const std::vector<std::pair<std::string, std::string>>& texts) {
  std::vector<std::string> chunks;
  chunks.reserve(texts.size());
  for (const auto& [id, text] : texts) chunks.push_back(RiffChunk(id, text + '\0'));
  return RiffList("LIST", "INFO", chunks);
}

std::string RmpFile(const std::vector<std::pair<std::string, std::string>>& texts, int frameCount) {
  return RiffList("RIFF", "RMP3", {InfoList(texts), RiffChunk("data", Mp3Audio(frameCount))});
}

std::string WaveFile(std::uint32_t milliseconds) {
  constexpr std::uint32_t kRate = 8000;
  const std::string format = LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(kRate, 4) + LittleEndian(kRate, 4) +
                             LittleEndian(1, 2) + LittleEndian(8, 2);
  const std::string samples(std::size_t{milliseconds} * kRate / 1000, Char(0x80));
  return RiffList("RIFF", "WAVE", {RiffChunk("fmt ", format), RiffChunk("data", samples)});
}

std::string AviFile() {
  constexpr std::size_t kMainHeaderLength = 56;
  const std::string header = RiffList("LIST", "hdrl", {RiffChunk("avih", std::string(kMainHeaderLength, '\0'))});
  return RiffList("RIFF", "AVI ", {header, RiffList("LIST", "movi", {})});
}

std::string MpegFile() {
  const std::string pack = Bytes({0, 0, 1, 0xBA, 0x21, 0, 1, 0, 1, 0x80, 0x1B, 0x91});
  const std::string system = Bytes({0, 0, 1, 0xBB, 0, 6, 0x80, 0x1B, 0x91, 0x04, 0xE1, 0xFF});
  return pack + system + Bytes({0, 0, 1, 0xB9});
}

std::string HtmlPage(std::string_view title, std::string_view body) {
  return "<html><head><title>" + std::string(title) + "</title></head>\r\n<body>" + std::string(body) +
         "</body></html>\r\n";
}

}  // namespace quillon::test
