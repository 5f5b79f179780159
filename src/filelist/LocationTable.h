#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillon {

/// Finds rows by the hashes of their locations. Several rows may have one location. An open table without a block of
/// memory per row: rows whose places are taken are in the next free ones.
class LocationTable {
 public:
  using Row = std::uint32_t;

  /// Call it before Insert.
  void ReserveOneMore() {
    if ((count_ + 1) * kFree > slots_.size() * kFull) Resize(2 * count_ + kFirst);
  }
  void Reserve(std::size_t rows) {
    if (rows * kFree > slots_.size() * kFull) Resize(rows);
  }
  void Insert(std::uint32_t hash, Row row) noexcept;
  /// The row must be there with this hash.
  void Erase(std::uint32_t hash, Row row) noexcept;
  void Clear() noexcept;

  /// Calls `found` with each row that has this hash until it returns true. Returns whether it did.
  template <class Found>
  bool AnyOf(std::uint32_t hash, const Found& found) const {
    if (slots_.empty()) return false;
    for (std::size_t i = Home(hash); slots_[i].row != kNone; i = Next(i)) {
      if (slots_[i].hash == hash && found(slots_[i].row)) return true;
    }
    return false;
  }

 private:
  static constexpr Row kNone = ~Row{0};
  static constexpr std::size_t kFull = 3;  // of kFree slots
  static constexpr std::size_t kFree = 4;
  static constexpr std::size_t kFirst = 12;

  struct Slot {
    std::uint32_t hash = 0;
    Row row = kNone;
  };

  [[nodiscard]] std::size_t Home(std::uint32_t hash) const {
    return static_cast<std::size_t>(std::uint64_t{hash} * slots_.size() >> 32u);
  }
  [[nodiscard]] std::size_t Next(std::size_t slot) const { return slot + 1 == slots_.size() ? 0 : slot + 1; }
  void Resize(std::size_t rows);

  std::vector<Slot> slots_;
  std::size_t count_ = 0;
};

}  // namespace quillon
