#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/ByteSource.h"
#include "media/TextLimit.h"

namespace quillon {

/// Random access to an opened file in blocks: views close to each other cost one read, and skipped parts are never
/// read. The two blocks used last are kept. Allocates memory only for a view larger than a block, so it can live on the
/// stack.
class BlockReader {
 public:
  /// The largest view: room for the two texts of a comment.
  static constexpr std::size_t kLongestView = 2 * kLongestText + 64;

  /// Large enough for the text frames of most tags. Measured against 1, 4 and 8 KiB: larger blocks only cost time to
  /// read what follows the frames.
  static constexpr std::size_t kBlockLength = 2048;

  explicit BlockReader(ByteSource& file) : file_(file), size_(file.Size()) {}

  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// Returns the `count` bytes at `offset`; fewer at the end of the file, where reading fails, and beyond kLongestView.
  /// Valid until the next call.
  [[nodiscard]] std::string_view View(std::uint64_t offset, std::uint64_t count);

 private:
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
  std::size_t latest_ = 0;  // the index in blocks_ of the block used last
  std::string large_;
};

}  // namespace quillon
