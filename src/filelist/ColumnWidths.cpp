#include "filelist/ColumnWidths.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace quillon {
namespace {

constexpr int kHardlyAny = 2;  // pixels: rounding between twips and pixels may change a width by as much
constexpr std::array<Column, 3> kGrowing = {Column::kRenameName, Column::kTitle, Column::kLocation};

/// Adds `more` to the widths in proportion to the weights, exactly.
void Share(ColumnWidths::Widths& widths, int more, const ColumnWidths::Widths& weights) {
  const std::int64_t all = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});
  if (all <= 0) return;
  std::int64_t sum = 0;
  std::int64_t given = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    sum += weights[i];
    const std::int64_t due = more * sum / all;
    widths[i] += static_cast<int>(due - given);
    given = due;
  }
}

}  // namespace

int ColumnWidths::Sum(const Widths& widths) {
  return std::accumulate(widths.begin(), widths.end(), 0);
}

void ColumnWidths::Observe(const Widths& shown) {
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (shown[i] == shown_[i]) continue;
    start_[i] = shown[i];
    dragged_[i] = true;
  }
  shown_ = shown;
}

int ColumnWidths::Unused() const {
  return std::max(startRoom_ - startNeed_, 0);
}

ColumnWidths::Widths ColumnWidths::Smallest() const {
  Widths smallest = start_;
  if (startNeed_ > startRoom_ || Unused() > kHardlyAny) return smallest;
  for (const Column column : kGrowing) {
    const auto i = static_cast<std::size_t>(column);
    if (!dragged_[i]) smallest[i] = std::min(start_[i], usual_[i]);
  }
  return smallest;
}

ColumnWidths::Widths ColumnWidths::For(int room) const {
  Widths widths = start_;
  const int more = room - Unused() - Sum(start_);
  Widths weights{};
  if (more >= 0) {
    for (const Column column : kGrowing) {
      const auto i = static_cast<std::size_t>(column);
      if (!dragged_[i]) weights[i] = start_[i];
    }
    Share(widths, more, weights);
  } else {
    const Widths smallest = Smallest();
    for (std::size_t i = 0; i < weights.size(); ++i) weights[i] = start_[i] - smallest[i];
    Share(widths, std::max(more, -Sum(weights)), weights);
  }
  return widths;
}

}  // namespace quillon
