#pragma once

#include <wx/window.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillon {

/// A list of any length with columns of text, to look at and to read aloud. It asks for the texts when it shows them.
/// Like the list of files it is the system's virtual list view on Windows, and a tree view on GTK.
class TextTable {
 public:
  struct Column {
    const char* caption;
    int width;  ///< in Japanese characters
  };
  /// A cell's text; both numbers are 0-based.
  using CellText = std::function<std::string(std::size_t row, std::size_t column)>;

  /// The window is a child of `parent`, which deletes it; use the table only until then.
  [[nodiscard]] static std::unique_ptr<TextTable> Make(wxWindow& parent, const std::vector<Column>& columns,
                                                       std::size_t rows, const CellText& text);

  TextTable() = default;
  TextTable(const TextTable&) = delete;
  TextTable& operator=(const TextTable&) = delete;
  virtual ~TextTable() = default;

  [[nodiscard]] virtual wxWindow& Window() = 0;
  /// Sets the number of rows. Rows are added and removed at the end.
  virtual void SetCount(std::size_t rows) = 0;
  /// Asks again for the texts that are shown.
  virtual void Refresh() = 0;

 protected:
  /// The text on one line.
  [[nodiscard]] static wxString Shown(const std::string& text);
};

}  // namespace quillon
