#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "filelist/RowStore.h"

namespace quillon {

/// The steps by which rename names have changed, to take them back and to do them again. A row is known by its number
/// in the row store. At most 100 steps and 64 MiB are kept; the oldest ones go first, and a step that is larger alone
/// is not kept at all.
class EditHistory {
 public:
  using Row = RowStore::Id;
  static constexpr std::size_t kMostSteps = 100;
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  enum class Merging {
    kNever,
    kTyping,  ///< joins the step before, when that was typing into the same rows, too
  };

  explicit EditHistory(RowStore& rows) : rows_(rows) {}

  /// Between Begin and End, changes are recorded as one step. A step that changes nothing is not kept. End without
  /// Begin does nothing.
  void Begin(Merging merging);
  void End();
  /// Call it before the row's rename name changes. Without an open step nothing is recorded.
  void Record(Row row);
  /// This row's changes can no longer be taken back. Takes effect with Purge or the next End.
  void Forget(Row row);
  void Purge();
  void Clear();

  [[nodiscard]] bool CanUndo() const { return !undo_.empty(); }
  [[nodiscard]] bool CanRedo() const { return !redo_.empty(); }
  /// Exchanges the rows' names with those before the last step, or after it. Returns the rows; empty when there is no
  /// such step.
  std::vector<Row> Undo() { return Exchange(undo_, redo_); }
  std::vector<Row> Redo() { return Exchange(redo_, undo_); }

 private:
  /// The names that rows get when the step is taken back or done again, one behind the other in `names`.
  struct Step {
    struct Change {
      Row row = 0;
      std::uint32_t length = 0;
    };
    std::vector<Change> changes;
    std::string names;

    void Add(Row row, std::string_view name);
    /// Calls `use` with each row and its name.
    template <class Use>
    void ForEach(const Use& use) const;
    /// Removes the rows for which `unwanted` holds, called with the row and its name.
    template <class Unwanted>
    void EraseIf(const Unwanted& unwanted);
    [[nodiscard]] std::size_t Bytes() const { return sizeof(*this) + changes.size() * sizeof(Change) + names.size(); }
    [[nodiscard]] bool IsOfSameRows(const Step& other) const;
  };
  using Steps = std::deque<Step>;

  /// A set of rows.
  class RowSet {
   public:
    /// Returns false when the row is there already.
    bool Insert(Row row);
    void Erase(Row row);
    void Clear();
    [[nodiscard]] bool Contains(Row row) const { return row < has_.size() && has_[row]; }
    [[nodiscard]] bool Empty() const { return count_ == 0; }

   private:
    std::vector<bool> has_;
    std::size_t count_ = 0;
  };

  std::vector<Row> Exchange(Steps& from, Steps& to);
  void DropUnchanged(Step& step) const;
  void Trim();

  RowStore& rows_;
  Steps undo_;
  Steps redo_;
  Step open_;
  RowSet recorded_;  // in the open step
  RowSet forgotten_;
  Merging merging_ = Merging::kNever;
  bool isOpen_ = false;
  bool typing_ = false;  // the last step may be continued by typing
};

}  // namespace quillon
