#pragma once

#include <optional>
#include <string>

namespace quillon {

/// Observes the text box in which GTK edits a cell. GTK reports every end of the editing but Enter as cancelled; this
/// class detects whether Esc was pressed. Only on systems with GTK.
class CellEditor {
 public:
  /// `renderer` is the cell's GtkCellRenderer and must outlive this object.
  explicit CellEditor(void* renderer);
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;
  ~CellEditor();

  /// The text of the current or last edit; nullopt after Esc was pressed.
  [[nodiscard]] std::optional<std::string> TypedText() const;

  /// Updated by GTK's signals.
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
