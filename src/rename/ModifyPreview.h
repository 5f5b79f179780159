#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "rename/ModifyName.h"
#include "rename/RegexReplace.h"
#include "settings/OptionValues.h"

namespace quillon {

/// What the modification rules would make of the rename names of several rows. It is worked out in slices, over all of
/// these rows; only the first ones are kept to be shown. Changes nothing. The list may only change between
/// the last Work and the next Restart.
class ModifyPreview {
 public:
  static constexpr std::size_t kMostShown = 200;

  struct Row {
    std::string oldName;
    std::string newName;  ///< empty when `note` says that it is not known
    std::string note;     ///< why the name stays as it is, or is not known
  };

  /// A row whose work takes longer than `rowTime` is left out; after several of them the work ends.
  ModifyPreview(const FileList& list, Rows rows, RegexEngine& regex,
                std::chrono::steady_clock::duration rowTime = std::chrono::milliseconds(100))
      : list_(list), rows_(rows), regex_(regex), rowTime_(rowTime) {}
  ModifyPreview(const ModifyPreview&) = delete;
  ModifyPreview& operator=(const ModifyPreview&) = delete;
  ~ModifyPreview() = default;

  /// Starts anew with these rules. Active ones without a text to find are left out: such rules are never run.
  void Restart(OptionValues::Modify rules, Repetition repetition);
  /// Works for about this long, on one row at least. False when nothing is left to do.
  bool Work(std::chrono::steady_clock::duration time);

  /// The rows to show: first those whose names change or have a note, then the others, both in the list's order. The
  /// others come when the work is done, so that until then rows are only added at the end.
  [[nodiscard]] std::size_t ShownCount() const;
  [[nodiscard]] const Row& Shown(std::size_t row) const;

  /// How many names change, or how far the work is.
  [[nodiscard]] std::string Summary() const;

  /// Says which rules make names longer with every repetition, as far as is known by now; empty when there is none.
  [[nodiscard]] std::string GrowthNote() const;

 private:
  [[nodiscard]] bool Working() const { return next_ <= list_.Count() && done_ < total_ && slow_ < kMostSlow; }
  void Try(std::string_view renameName);

  static constexpr std::size_t kMostSlow = 20;

  const FileList& list_;
  Rows rows_;
  RegexEngine& regex_;
  std::chrono::steady_clock::duration rowTime_;
  OptionValues::Modify rules_;
  std::size_t applications_ = 0;
  int next_ = 1;  ///< in the list
  std::size_t total_ = 0;
  std::size_t done_ = 0;
  std::size_t changed_ = 0;
  std::size_t leftAlone_ = 0;
  std::size_t slow_ = 0;
  std::array<bool, kReplaceRuleCount> growing_ = {};
  std::vector<Row> first_;  ///< at most kMostShown, like the others
  std::vector<Row> others_;
};

}  // namespace quillon
