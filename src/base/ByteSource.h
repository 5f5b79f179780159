#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

/// The bytes of one opened file, readable at any place.
class ByteSource {
 public:
  ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;
  virtual ~ByteSource() = default;

  /// The file's length in bytes when it was opened.
  [[nodiscard]] virtual std::uint64_t Size() const = 0;

  /// True for files that carry the system's hidden or system attribute (never on Linux).
  [[nodiscard]] virtual bool IsHiddenOrSystem() const { return false; }

  /// Reads up to `count` bytes from `offset`; fewer at the end of the file or where reading fails. Returns how many.
  virtual std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) = 0;

  /// These bytes, if they are all in memory already; else nothing. Valid as long as the file is open.
  [[nodiscard]] virtual std::string_view InMemory(std::uint64_t /*offset*/, std::size_t /*count*/) const { return {}; }

  /// The largest number of bytes that Read returns.
  static constexpr std::uint64_t kLongestRead = std::uint64_t{32} << 20u;

  /// The same as a string. The caller must bound `count`; a size read from the file itself is no such bound. Never
  /// allocates more than the file's length or kLongestRead, whatever `count` is.
  [[nodiscard]] std::string Read(std::uint64_t offset, std::uint64_t count);
};

}  // namespace quillon
