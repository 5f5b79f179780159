#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/ByteSource.h"
#include "media/TextLimit.h"

namespace quillon {

/// Looks at places of an opened file, fetching a block at a time: neighbouring looks cost one read, and what is skipped
/// is never read. The two blocks looked at last are kept. Lives on the stack; asks for memory only for a look larger
/// than a block.
class BlockReader {
 public:
  /// No look is larger: room for the two texts of a comment.
  static constexpr std::size_t kLongestView = 2 * kLongestText + 64;

  explicit BlockReader(ByteSource& file) : file_(file), size_(file.Size()) {}

  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// The `count` bytes at `offset`, or fewer: where the file ends, where reading fails, and beyond kLongestView. Valid
  /// until the next call.
  [[nodiscard]] std::string_view View(std::uint64_t offset, std::uint64_t count);

 private:
  /// Holds the text frames of most tags. Measured against 1, 4 and 8 KiB: more only costs time for what follows them.
  static constexpr std::size_t kBlockLength = 2048;

  struct Block {
    std::uint64_t start = 0;
    std::size_t length = 0;
    std::array<char, kBlockLength> bytes;

    [[nodiscard]] bool Holds(std::uint64_t offset, std::size_t count) const {
      return offset >= start && offset + count <= start + length;
    }
  };

  ByteSource& file_;
  std::uint64_t size_;
  std::array<Block, 2> blocks_;
  std::size_t latest_ = 0;  // of blocks_, the one looked at last
  std::string large_;
};

}  // namespace quillon
