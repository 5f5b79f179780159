#include "media/BlockReader.h"

#include <algorithm>

namespace quillon {

std::string_view BlockReader::View(std::uint64_t offset, std::uint64_t count) {
  if (offset >= size_ || count == 0) return {};
  const auto wanted = static_cast<std::size_t>(std::min({count, size_ - offset, std::uint64_t{kLongestView}}));
  // Another thread may have read them: what is not looked at then stays in that processor's cache.
  if (const std::string_view held = file_.InMemory(offset, wanted); !held.empty()) return held;
  if (wanted > kBlockLength) {
    large_.resize(wanted);
    return {large_.data(), file_.ReadAt(offset, large_.data(), wanted)};
  }
  if (!blocks_[latest_].Holds(offset, wanted)) latest_ = 1 - latest_;
  Block& block = blocks_[latest_];
  if (!block.Holds(offset, wanted)) {
    block.start = offset;
    const auto whole = static_cast<std::size_t>(std::min<std::uint64_t>(kBlockLength, size_ - offset));
    block.length = file_.ReadAt(offset, block.bytes.data(), whole);
  }
  const auto begin = static_cast<std::size_t>(offset - block.start);
  return {block.bytes.data() + begin, std::min(wanted, block.length - begin)};
}

}  // namespace quillon
