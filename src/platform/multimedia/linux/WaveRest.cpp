#include "platform/multimedia/linux/WaveRest.h"

#include <string>
#include <string_view>

namespace quillon {
namespace {

constexpr std::uint64_t kHead = 8;   // a chunk's name and size
constexpr std::uint64_t kForm = 12;  // "RIFF", a size, "WAVE"
constexpr int kMostChunks = 1000;

std::uint64_t SizeIn(std::string_view head) {
  std::uint64_t size = 0;
  for (std::size_t i = 0; i < 4; ++i)
    size |= static_cast<std::uint64_t>(static_cast<unsigned char>(head[4 + i])) << (8 * i);
  return size;
}

}  // namespace

std::optional<std::uint64_t> WaveLengthWithoutRest(ByteSource& file) {
  const std::string form = file.Read(0, kForm);
  if (form.size() < kForm || !form.starts_with("RIFF") || !form.ends_with("WAVE")) return std::nullopt;
  std::uint64_t end = kForm;
  for (int chunk = 0; chunk < kMostChunks && file.Size() - end >= kHead; ++chunk) {
    const std::string head = file.Read(end, kHead);
    if (head.size() < kHead) return std::nullopt;
    const std::uint64_t size = SizeIn(head);
    const std::uint64_t next = end + kHead + size + size % 2;
    if (next > file.Size()) return std::nullopt;  // the chunk is truncated
    end = next;
  }
  const std::uint64_t rest = file.Size() - end;
  return rest > 0 && rest < kHead ? std::optional(end) : std::nullopt;
}

}  // namespace quillon
