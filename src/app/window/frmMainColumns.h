#pragma once

#include <optional>

#include "filelist/ColumnWidths.h"
#include "filelist/window/lvwFiles.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The widths of the main window's columns: from the settings to the list, with the window's size, and back.
class frmMainColumns {
 public:
  explicit frmMainColumns(lvwFiles& list) : list_(list) {}

  /// Shows the stored widths.
  void Show(const OptionValues::Window& stored);

  /// Call it when the list's size may have changed. The first size is the one that the program gave the window.
  void Follow(bool firstSize);

  /// Stores the widths that go with the window's size if that is stored, too, and else with its first size.
  void Keep(OptionValues::Window& stored, bool withSize);

 private:
  [[nodiscard]] int FirstWidth(Column column, std::int32_t twips) const;
  [[nodiscard]] ColumnWidths::Widths Shown() const;

  lvwFiles& list_;
  std::optional<ColumnWidths> widths_;
  int room_ = 0;  // for the columns on the screen
};

}  // namespace quillon
