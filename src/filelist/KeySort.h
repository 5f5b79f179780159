#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "base/Progress.h"

namespace quillon {

/// Sorts many texts byte by byte, eight bytes at a time, so that most comparisons do not look at the texts themselves.
class KeySort {
 public:
  void Reserve(std::size_t count) { entries_.reserve(count); }

  /// Copies a key into the memory of this object.
  [[nodiscard]] std::string_view Keep(std::string_view key);
  /// Adds a key, which must stay where it is.
  void Add(std::string_view key);

  /// The 0-based numbers of the added keys in rising order, or in falling order. Equal keys stay as they were added.
  /// nullopt when `progress` has ended it.
  enum class Order { kRising, kFalling };
  [[nodiscard]] std::optional<std::vector<std::uint32_t>> Sorted(Order order, Progress& progress);

 private:
  struct Entry {
    std::uint64_t bytes = 0;  ///< those that are compared next
    const char* key = nullptr;
    std::uint32_t length = 0;
    std::uint32_t number = 0;
  };
  /// Entries whose keys are equal up to an offset.
  struct Range {
    std::size_t first = 0;
    std::size_t last = 0;
    std::size_t offset = 0;
  };

  [[nodiscard]] bool Load(const Range& range);
  void SortRange(const Range& range, Order order, std::vector<Range>& further);

  std::vector<Entry> entries_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;  ///< in the last block
  std::size_t freeBytes_ = 0;
};

}  // namespace quillon
