#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/ByteSource.h"

namespace quillon {

/// Looks at places of an opened file, fetching a block at a time: neighbouring looks cost one read, and what is skipped
/// is never read. Lives on the stack; asks for memory only for a look larger than a block.
class BlockReader {
 public:
  explicit BlockReader(ByteSource& file) : file_(file), size_(file.Size()) {}

  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// The `count` bytes at `offset`, or fewer where the file ends or reading fails. Valid until the next call.
  [[nodiscard]] std::string_view View(std::uint64_t offset, std::uint64_t count);

 private:
  /// Holds the text frames of most tags. Measured against 1, 4 and 8 KiB: more only costs time for what follows them.
  static constexpr std::size_t kBlockLength = 2048;

  ByteSource& file_;
  std::uint64_t size_;
  std::uint64_t start_ = 0;
  std::size_t length_ = 0;
  std::array<char, kBlockLength> block_;
  std::string large_;
};

}  // namespace quillon
