#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/ByteSource.h"

namespace quillon {

/// Reads an opened file once, from its beginning to its end, a window at a time. Lives on the stack and asks for no
/// memory.
class WindowReader {
 public:
  /// Of every window but the last.
  static constexpr std::size_t kLength = std::size_t{64} * 1024;

  /// Each window begins with the last `overlap` bytes of the one before, so that what is searched for is whole in one.
  WindowReader(ByteSource& file, std::size_t overlap) : file_(file), size_(file.Size()), overlap_(overlap) {}

  /// Goes on to the next window; false at the end of the file, or where reading it fails.
  bool Next();

  [[nodiscard]] std::string_view Bytes() const { return {bytes_.data(), length_}; }
  /// Where in the file the window begins.
  [[nodiscard]] std::uint64_t Offset() const { return offset_; }
  /// Where it ends: once Next has given false, the file's size unless reading failed.
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
