#include "filelist/LocationTable.h"

#include <utility>

namespace quillon {

void LocationTable::Resize(std::size_t rows) {
  std::vector<Slot> old(rows * kFree / kFull + 1);
  old.swap(slots_);
  count_ = 0;
  for (const Slot& slot : old) {
    if (slot.row != kNone) Insert(slot.hash, slot.row);
  }
}

void LocationTable::Insert(std::uint32_t hash, Row row) noexcept {
  std::size_t i = Home(hash);
  while (slots_[i].row != kNone) i = Next(i);
  slots_[i] = {hash, row};
  ++count_;
}

// The rows behind the gap move up, unless that would take them before their home.
void LocationTable::Erase(std::uint32_t hash, Row row) noexcept {
  std::size_t gap = Home(hash);
  while (slots_[gap].row != row) gap = Next(gap);
  for (std::size_t i = Next(gap); slots_[i].row != kNone; i = Next(i)) {
    const std::size_t home = Home(slots_[i].hash);
    const bool staysBehind = gap <= i ? gap < home && home <= i : gap < home || home <= i;
    if (staysBehind) continue;
    slots_[gap] = slots_[i];
    gap = i;
  }
  slots_[gap] = {};
  --count_;
}

void LocationTable::Clear() noexcept {
  slots_.clear();
  count_ = 0;
}

}  // namespace quillon
