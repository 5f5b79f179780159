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

/// Searches a file for chunks. All searches together stop after a fixed number of chunks.
class ChunkSearch {
 public:
  explicit ChunkSearch(BlockReader& file) : file_(file) {}

  /// Finds the first chunk of this id (and, for a RIFF or LIST, this type) among the chunks from `from` to `end`.
  std::optional<Chunk> Find(std::uint64_t from, std::uint64_t end, std::string_view id, std::string_view type = {}) {
    end = std::min(end, file_.Size());
    for (; looked_ < kMostRiffChunks && from + kChunkHeaderLength <= end; ++looked_) {
      const std::string_view header = file_.View(from, kChunkHeaderLength + kTypeLength);
      if (header.size() < kChunkHeaderLength) break;
      const Chunk chunk{from + kChunkHeaderLength, SizeField(header)};
      if (header.starts_with(id) && (type.empty() || header.substr(kChunkHeaderLength) == type)) return chunk;
      from = chunk.Next();
    }
    return std::nullopt;
  }

 private:
  BlockReader& file_;
  int looked_ = 0;
};

/// Decodes bytes of 128 or more in pairs, from the left. Code page 932 decodes the same way, except when a pair's first
/// byte is a character by itself and its second byte is a lead byte: here that second byte then counts as invalid.
std::string PairsToUtf8(std::string_view bytes) {
  constexpr std::string_view kNoCharacter = "\x81\x45";  // the bytes of U+30FB, which half a character is decoded to
  std::string apart(bytes.size() + bytes.size() / 2, '\0');
  char* into = apart.data();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    *into++ = bytes[i];
    if (ByteAt(bytes, i) < 0x80 || i + 1 == bytes.size()) continue;
    const bool splits = !IsAnsiLeadByte(ByteAt(bytes, i)) && IsAnsiLeadByte(ByteAt(bytes, i + 1));
    ++i;
    if (splits) {
      into = std::copy(kNoCharacter.begin(), kNoCharacter.end(), into);
    } else {
      *into++ = bytes[i];
    }
  }
  return AnsiToUtf8({apart.data(), static_cast<std::size_t>(into - apart.data())});
}

std::string ChunkText(BlockReader& file, const Chunk& chunk) {
  std::string_view bytes = file.View(chunk.data, std::min<std::uint64_t>(chunk.size, kLongestText + 1));
  if (bytes.ends_with('\0')) bytes.remove_suffix(1);
  return PairsToUtf8(CutToLongestText(bytes));
}

}  // namespace

RiffInfo ReadRiffInfo(BlockReader& file, TagFields wanted) {
  static constexpr std::array<std::pair<std::string_view, std::string RiffInfo::*>, 5> kTexts = {{
      {"INAM", &RiffInfo::name},
      {"IART", &RiffInfo::artist},
      {"IPRD", &RiffInfo::product},
      {"ICMT", &RiffInfo::comment},
      {"ICRD", &RiffInfo::creationDate},
  }};
  RiffInfo info;
  ChunkSearch search(file);
  const auto riff = search.Find(0, file.Size(), "RIFF", "RMP3");
  if (!riff) return info;
  const auto list = search.Find(riff->data + kTypeLength, riff->End(), "LIST", "INFO");
  if (!list) return info;
  std::uint64_t from = list->data + kTypeLength;
  for (const auto& [id, text] : kTexts) {
    if (wanted == TagFields::kTitleAndArtist && text == &RiffInfo::product) break;
    const auto chunk = search.Find(from, list->End(), id);
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
