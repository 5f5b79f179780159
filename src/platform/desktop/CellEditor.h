#pragma once

#include <optional>
#include <string>

namespace quillon {

/// Follows the text box with which GTK edits a cell in place. GTK takes every way out of it but Enter for Esc; this
/// tells them apart. Only on systems with GTK.
class CellEditor {
 public:
  /// `renderer` is the cell's GtkCellRenderer, which must live as long.
  explicit CellEditor(void* renderer);
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;
  ~CellEditor();

  /// Of the edit that goes on or was the last one: what the box holds; nullopt once Esc was pressed.
  [[nodiscard]] std::optional<std::string> TypedText() const;

  /// What the signals of GTK change.
  struct State {
    std::string text;
    bool escaped = false;
  };

 private:
  void* renderer_;
  unsigned long handler_;
  State state_;
};

}  // namespace quillon
