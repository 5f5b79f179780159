#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "base/ByteSource.h"

namespace quillon {
namespace {

/// Bytes in memory of which only the first `readable` can be read, as when a disk fails half-way.
class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(const std::string& bytes) : MemorySource(bytes, bytes.size()) {}
  MemorySource(std::string bytes, std::size_t readable) : bytes_(std::move(bytes)), readable_(readable) {}

  [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    largestCount_ = std::max(largestCount_, count);
    if (offset >= readable_) return 0;
    const std::size_t start = static_cast<std::size_t>(offset);
    const std::size_t available = std::min(count, readable_ - start);
    std::copy_n(bytes_.data() + start, available, into);
    return available;
  }

  [[nodiscard]] std::size_t LargestCount() const { return largestCount_; }

 private:
  std::string bytes_;
  std::size_t readable_;
  std::size_t largestCount_ = 0;
};

constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

TEST(ByteSourceRead, ReturnsTheRequestedBytes) {
  MemorySource source(std::string("ab\0de", 5));
  EXPECT_EQ(source.Read(0, 5), std::string("ab\0de", 5));
  EXPECT_EQ(source.Read(1, 2), std::string("b\0", 2));
  EXPECT_EQ(source.Read(4, 1), "e");
  EXPECT_EQ(source.Read(2, 0), "");
}

TEST(ByteSourceRead, GivesFewerAtTheEnd) {
  MemorySource source("abcde");
  EXPECT_EQ(source.Read(3, 10), "de");
  EXPECT_EQ(source.Read(5, 1), "");
  EXPECT_EQ(source.Read(6, 1), "");
  EXPECT_EQ(source.Read(kHuge, kHuge), "");
}

TEST(ByteSourceRead, NeverAllocatesMoreThanTheFileHolds) {
  MemorySource source("abcde");
  EXPECT_EQ(source.Read(1, kHuge), "bcde");
  EXPECT_EQ(source.LargestCount(), 4u);
}

/// Any number of zeros.
class Zeros final : public ByteSource {
 public:
  [[nodiscard]] std::uint64_t Size() const override { return kHuge; }
  std::size_t ReadAt(std::uint64_t /*offset*/, char* into, std::size_t count) override {
    std::fill_n(into, count, '\0');
    return count;
  }
};

TEST(ByteSourceRead, NeverAllocatesMoreThanItsLimit) {
  EXPECT_EQ(Zeros().Read(5, kHuge).size(), ByteSource::kLongestRead);
}

TEST(ByteSourceRead, ReturnsThePartReadBeforeAFailure) {
  MemorySource source("abcde", 2);
  EXPECT_EQ(source.Read(0, 5), "ab");
  EXPECT_EQ(source.Read(1, 4), "b");
  EXPECT_EQ(source.Read(3, 2), "");
}

TEST(ByteSourceRead, ReadsNothingFromAnEmptyFile) {
  MemorySource source("");
  EXPECT_EQ(source.Read(0, kHuge), "");
}

TEST(ByteSource, IsNotHiddenByDefault) {
  EXPECT_FALSE(MemorySource("").IsHiddenOrSystem());
}

}  // namespace
}  // namespace quillon
