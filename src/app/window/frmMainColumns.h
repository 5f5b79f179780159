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

  /// Takes the widths on the screen as the first ones. Call it when the system has rescaled the list for another
  /// screen.
  void StartAnew();

  /// Stores the widths: those on the screen if the window's size is stored, too (`withSize`), otherwise those that the
  /// columns had at the window's first size.
  void Keep(OptionValues::Window& stored, bool withSize);

 private:
  [[nodiscard]] ColumnWidths::Widths Usual() const;
  [[nodiscard]] int FirstWidth(Column column, std::int32_t twips) const;
  [[nodiscard]] ColumnWidths::Widths Shown() const;

  lvwFiles& list_;
  std::optional<ColumnWidths> widths_;
  int room_ = 0;  // for the columns on the screen
};

}  // namespace quillon
