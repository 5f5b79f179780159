#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "filelist/FileList.h"

namespace quillon {

/// Finds the rows that show a text in any column; see base/FoldedText.h for what counts as equal. Rows are looked
/// through when a question is asked after the text or the rows have changed. A text that has only grown is looked for
/// in the rows found before.
class FindRows {
 public:
  explicit FindRows(const FileList& list) : list_(list) {}

  /// The empty text is in no row.
  void SetText(const std::string& text);
  [[nodiscard]] const std::string& Text() const { return text_; }

  [[nodiscard]] int Count();
  /// The 1-based number of this row among those found; 0 for another row.
  [[nodiscard]] int NumberOf(int index);
  /// The first row found that is not above this one, then from the top; 0 when none was found.
  [[nodiscard]] int From(int index);
  /// The same for the row found next below or above this one.
  [[nodiscard]] int Next(int index) { return From(index + 1); }
  [[nodiscard]] int Previous(int index);

 private:
  void Update();
  [[nodiscard]] bool Shows(int index);

  const FileList& list_;
  std::string text_;
  std::string folded_;
  std::string searched_;  // the folded text whose rows are `found_`
  std::vector<int> found_;
  std::uint64_t revision_ = 0;  // of the list when it was looked through
  std::string row_;             // the folded texts of one row, kept for its memory
};

}  // namespace quillon
