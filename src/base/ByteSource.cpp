#include "base/ByteSource.h"

#include <algorithm>

namespace quillon {

std::string ByteSource::Read(std::uint64_t offset, std::uint64_t count) {
  const std::uint64_t size = Size();
  if (offset >= size) return {};
  std::string bytes(static_cast<std::size_t>(std::min({count, size - offset, kLongestRead})), '\0');
  bytes.resize(ReadAt(offset, bytes.data(), bytes.size()));
  return bytes;
}

}  // namespace quillon
