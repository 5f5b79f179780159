#include "media/basRIFFInfo.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/Ansi.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr std::size_t kChunkHeaderLength = 8;
// Far more than any file holds; a bound for files made of empty chunks.
constexpr int kMostChunks = 100000;
constexpr std::size_t kTypeLength = 4;  // the form of a RIFF, the type of a LIST

struct Chunk {
  std::uint64_t data = 0;  ///< offset
  std::uint64_t size = 0;  ///< as stored

  [[nodiscard]] std::uint64_t End() const { return data + size; }
  [[nodiscard]] std::uint64_t Next() const { return End() + size % 2; }
};

std::uint8_t ByteAt(std::string_view bytes, std::size_t i) {
  return static_cast<std::uint8_t>(bytes[i]);
}

std::uint64_t SizeField(std::string_view header) {
  return std::uint64_t{ByteAt(header, 4)} | std::uint64_t{ByteAt(header, 5)} << 8u |
         std::uint64_t{ByteAt(header, 6)} << 16u | std::uint64_t{ByteAt(header, 7)} << 24u;
}

/// Ids are printable; anything else is no RIFF data, such as the sound of a plain MP3 file.
bool IsChunkId(std::string_view id) {
  return std::all_of(id.begin(), id.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

/// The first chunk of this id (and, for a RIFF or LIST, this type) among those that begin at `from` and before `end`.
std::optional<Chunk> FindChunk(BlockReader& file, std::uint64_t from, std::uint64_t end, std::string_view id,
                               std::string_view type = {}) {
  end = std::min(end, file.Size());
  for (int looked = 0; looked < kMostChunks && from + kChunkHeaderLength <= end; ++looked) {
    const std::string_view header = file.View(from, kChunkHeaderLength + kTypeLength);
    if (header.size() < kChunkHeaderLength || !IsChunkId(header.substr(0, kTypeLength))) break;
    const Chunk chunk{from + kChunkHeaderLength, SizeField(header)};
    if (header.starts_with(id) && (type.empty() || header.substr(kChunkHeaderLength) == type)) return chunk;
    from = chunk.Next();
  }
  return std::nullopt;
}

/// Decodes bytes of 128 or more in pairs, from the left. That is what code page 932 does by itself, except where the
/// first of a pair stands for a character alone and the second could begin one: there the text is decoded in parts.
std::string PairsToUtf8(std::string_view bytes) {
  std::string text;
  std::size_t decoded = 0;
  for (std::size_t i = 0; i < bytes.size();) {
    if (ByteAt(bytes, i) < 0x80) {
      ++i;
      continue;
    }
    const bool splits =
        i + 1 < bytes.size() && !IsAnsiLeadByte(ByteAt(bytes, i)) && IsAnsiLeadByte(ByteAt(bytes, i + 1));
    i += 2;
    if (!splits) continue;
    text += AnsiToUtf8(bytes.substr(decoded, i - decoded));
    decoded = i;
  }
  return decoded == 0 ? AnsiToUtf8(bytes) : text + AnsiToUtf8(bytes.substr(decoded));
}

std::string ChunkText(BlockReader& file, const Chunk& chunk) {
  std::string_view bytes = file.View(chunk.data, chunk.size);
  if (bytes.ends_with('\0')) bytes.remove_suffix(1);
  return PairsToUtf8(bytes);
}

}  // namespace

RiffInfo ReadRiffInfo(BlockReader& file) {
  static constexpr std::array<std::pair<std::string_view, std::string RiffInfo::*>, 5> kTexts = {{
      {"INAM", &RiffInfo::name},
      {"IART", &RiffInfo::artist},
      {"IPRD", &RiffInfo::product},
      {"ICMT", &RiffInfo::comment},
      {"ICRD", &RiffInfo::creationDate},
  }};
  RiffInfo info;
  const auto riff = FindChunk(file, 0, file.Size(), "RIFF", "RMP3");
  if (!riff) return info;
  const auto list = FindChunk(file, riff->data + kTypeLength, riff->End(), "LIST", "INFO");
  if (!list) return info;
  std::uint64_t from = list->data + kTypeLength;
  for (const auto& [id, text] : kTexts) {
    const auto chunk = FindChunk(file, from, list->End(), id);
    if (!chunk) break;
    info.*text = ChunkText(file, *chunk);
    from = chunk->Next();
  }
  return info;
}

RiffInfo ReadRiffInfo(ByteSource& file) {
  BlockReader reader(file);
  return ReadRiffInfo(reader);
}

RiffInfo ReadRiffInfo(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? ReadRiffInfo(*file) : RiffInfo{};
}

}  // namespace quillon
