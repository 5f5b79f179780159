#include "filelist/KeySort.h"

#include <algorithm>
#include <utility>

#include "base/FirstBytes.h"

namespace quillon {
namespace {

constexpr std::size_t kBlock = std::size_t{256} << 10;
constexpr std::size_t kAtOnce = 8;

}  // namespace

std::string_view KeySort::Keep(std::string_view key) {
  if (key.size() > freeBytes_) {
    const std::size_t size = std::max(kBlock, key.size());
    blocks_.emplace_back(new char[size]);
    free_ = blocks_.back().get();
    freeBytes_ = size;
  }
  char* const start = std::exchange(free_, std::copy(key.begin(), key.end(), free_));
  freeBytes_ -= key.size();
  return {start, key.size()};
}

void KeySort::Add(std::string_view key) {
  entries_.push_back(
      {0, key.data(), static_cast<std::uint32_t>(key.size()), static_cast<std::uint32_t>(entries_.size())});
}

/// Returns false when these bytes are the same in all keys, and none of them ends here.
bool KeySort::Load(const Range& range) {
  bool differ = false;
  const std::uint64_t& first = entries_[range.first].bytes;
  for (std::size_t i = range.first; i < range.last; ++i) {
    Entry& entry = entries_[i];
    entry.bytes = FirstBytes({entry.key + range.offset, entry.length - range.offset});
    differ = differ || entry.bytes != first || entry.length <= range.offset + kAtOnce;
  }
  return differ;
}

void KeySort::SortRange(const Range& range, Order order, std::vector<Range>& further) {
  const std::size_t end = range.offset + kAtOnce;
  if (!Load(range)) {
    further.push_back({range.first, range.last, end});
    return;
  }
  const bool rising = order == Order::kRising;
  const auto less = [&](const Entry& left, const Entry& right) {
    if (left.bytes != right.bytes) return left.bytes < right.bytes;
    // Zeros that stand for the end come before those that belong to a key.
    const std::size_t leftEnd = std::min<std::size_t>(left.length, end + 1);
    const std::size_t rightEnd = std::min<std::size_t>(right.length, end + 1);
    if (leftEnd != rightEnd) return leftEnd < rightEnd;
    return rising ? left.number < right.number : right.number < left.number;
  };
  const auto at = [this](std::size_t i) { return entries_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::sort(at(range.first), at(range.last), less);
  for (std::size_t i = range.first; i < range.last;) {
    const std::size_t start = i++;
    if (entries_[start].length <= end) continue;
    while (i < range.last && entries_[i].bytes == entries_[start].bytes) ++i;
    if (i - start > 1) further.push_back({start, i, end});
  }
}

std::optional<std::vector<std::uint32_t>> KeySort::Sorted(Order order, Progress& progress) {
  constexpr std::size_t kBetween = 256;  // ranges between two questions
  std::size_t sorted = 0;
  std::vector<Range> ranges;
  if (entries_.size() > 1) ranges.push_back({0, entries_.size(), 0});
  while (!ranges.empty()) {
    if (sorted++ % kBetween == 0 && !progress.Continue()) return std::nullopt;
    const Range range = ranges.back();
    ranges.pop_back();
    SortRange(range, order, ranges);
  }
  std::vector<std::uint32_t> numbers;
  numbers.reserve(entries_.size());
  for (const Entry& entry : entries_) numbers.push_back(entry.number);
  if (order == Order::kFalling) std::reverse(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace quillon
