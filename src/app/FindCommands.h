#pragma once

#include <string>

#include "app/RenameEditing.h"
#include "app/Screen.h"
#include "filelist/FindRows.h"

namespace quillon {

/// The find line above the list: a box for the text that rows are searched for, and a text about what was found.
class FindLine {
 public:
  virtual ~FindLine() = default;
  /// Shows the line; its box has the focus then, with its text selected.
  virtual void OpenFindLine() = 0;
  /// Hides it; the list has the focus then.
  virtual void CloseFindLine() = 0;
  [[nodiscard]] virtual bool IsFindLineOpen() const = 0;
  virtual void ShowFound(const std::string& text) = 0;
};

/// Finds rows by a text in any of their columns, and selects and shows the row found. The focus stays where it is. In
/// auto-apply mode an emptied rename box keeps its row.
class FindCommands {
 public:
  FindCommands(const Session& session, RenameEditing& editing, FindLine& line, const Screen& screen);

  /// Opens the find line.
  void mnuFind();
  /// Go to another row found, also while the line is closed. They open the line as long as there is no text.
  void mnuFindNext();
  void mnuFindPrevious();

  /// The user has changed the text: goes to the first row found from the one that was selected when typing began.
  void TextChanged(const std::string& text);
  void Close();

  /// Shows the number of rows found anew while the line is open.
  void Refresh();

  /// Selects and shows this row.
  void GoTo(int index);

 private:
  enum class Direction { kNext, kPrevious };

  void GoOn(Direction direction);
  [[nodiscard]] std::string FoundText();

  Session session_;
  RenameEditing& editing_;
  FindLine& line_;
  Screen screen_;
  FindRows rows_;
  int start_ = 1;  // the row that was selected when typing began
  int typed_ = 0;  // the row that typing has led to
};

}  // namespace quillon
