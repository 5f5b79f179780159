#pragma once

#include <array>

#include "filelist/FileItem.h"

namespace quillon {

/// Distributes the width of a resized window over the columns of the list: rename name, title and location share what
/// it has more, in proportion to their widths, and give it back when the window gets narrower. All lengths are pixels.
class ColumnWidths {
 public:
  using Widths = std::array<int, kColumnCount>;

  /// `widths` are those of the window at its first size, and `usual` those of a window that nobody has resized.
  ColumnWidths(const Widths& widths, const Widths& usual) : start_(widths), usual_(usual), shown_(widths) {}

  /// Sets the room for all columns together in the window at its first size.
  void SetStartRoom(int room) { startRoom_ = room; }

  /// Call it with the widths on the screen. A column that has another width than the last one from here has been
  /// dragged: it keeps its width from now on.
  void Observe(const Widths& shown);

  /// The widths for this room. They leave as much of it unused as was unused at first, and never need more than they
  /// did at first. Columns that filled the room at first shrink to their usual widths in a narrower one.
  [[nodiscard]] Widths For(int room) const;

  /// The widths for the window's first size.
  [[nodiscard]] Widths AtStart() const { return For(startRoom_); }

  /// Tells that these widths are on the screen now.
  void SetShown(const Widths& shown) { shown_ = shown; }

 private:
  [[nodiscard]] int Unused() const;
  [[nodiscard]] Widths Smallest() const;

  Widths start_;  // of dragged columns: the last width
  Widths usual_;
  Widths shown_;
  std::array<bool, kColumnCount> dragged_{};
  int startNeed_ = Sum(start_);
  int startRoom_ = 0;

  [[nodiscard]] static int Sum(const Widths& widths);
};

}  // namespace quillon
