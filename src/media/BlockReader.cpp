#include "media/BlockReader.h"

#include <algorithm>

namespace quillon {

std::string_view BlockReader::View(std::uint64_t offset, std::uint64_t count) {
  if (offset >= size_) return {};
  count = std::min(count, size_ - offset);
  if (count > kBlockLength) {
    large_ = file_.Read(offset, count);
    return large_;
  }
  if (offset < start_ || offset + count > start_ + length_) {
    start_ = offset;
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kBlockLength, size_ - offset));
    length_ = file_.ReadAt(offset, block_.data(), wanted);
  }
  const auto begin = static_cast<std::size_t>(offset - start_);
  return {block_.data() + begin, std::min(static_cast<std::size_t>(count), length_ - begin)};
}

}  // namespace quillon
