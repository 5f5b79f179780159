#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "base/ByteSource.h"

namespace quillon::test {

/// `bytes` repeated until there are at least `length` bytes.
inline std::string Repeated(const std::string& bytes, std::size_t length) {
  std::string repeated;
  while (repeated.size() < length) repeated += bytes;
  return repeated;
}

/// A file of any size that begins with `start` and continues with repetitions of `pattern`.
class PatternFile final : public ByteSource {
 public:
  PatternFile(std::uint64_t size, std::string start, const std::string& pattern)
      : size_(size), start_(std::move(start)), tile_(Repeated(pattern, std::max<std::size_t>(pattern.size(), 65536))) {}

  [[nodiscard]] std::uint64_t Size() const override { return size_; }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
    for (std::size_t done = 0; done < count;) {
      const std::uint64_t at = offset + done;
      const bool inStart = at < start_.size();
      const std::string& from = inStart ? start_ : tile_;
      const auto begin = static_cast<std::size_t>(inStart ? at : (at - start_.size()) % tile_.size());
      const std::size_t piece = std::min(count - done, from.size() - begin);
      std::memcpy(into + done, from.data() + begin, piece);
      done += piece;
    }
    bytesRead += count;
    return count;
  }

  std::uint64_t bytesRead = 0;

 private:
  std::uint64_t size_;
  std::string start_;
  std::string tile_;
};

}  // namespace quillon::test
