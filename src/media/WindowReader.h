#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/ByteSource.h"

namespace quillon {

/// Reads an opened file once, from beginning to end, one window at a time. Allocates no memory, so it can live on the
/// stack.
class WindowReader {
 public:
  /// The length in bytes of every window but the last.
  static constexpr std::size_t kLength = std::size_t{64} * 1024;

  /// Each window begins with the last `overlap` bytes of the one before, so that a match of up to `overlap` + 1 bytes
  /// lies entirely in one window.
  WindowReader(ByteSource& file, std::size_t overlap) : file_(file), size_(file.Size()), overlap_(overlap) {}

  /// Advances to the next window; false at the end of the file, or where reading fails.
  bool Next();

  [[nodiscard]] std::string_view Bytes() const { return {bytes_.data(), length_}; }
  /// The window's first offset in the file.
  [[nodiscard]] std::uint64_t Offset() const { return offset_; }
  /// The offset behind the window. After Next has returned false this is the file's size, unless reading failed.
  [[nodiscard]] std::uint64_t End() const { return offset_ + length_; }

 private:
  ByteSource& file_;
  std::uint64_t size_;
  std::size_t overlap_;
  std::uint64_t offset_ = 0;
  std::size_t length_ = 0;
  bool failed_ = false;
  std::array<char, kLength> bytes_;
};

}  // namespace quillon
