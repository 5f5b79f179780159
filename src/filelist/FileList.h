#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Progress.h"
#include "filelist/EditHistory.h"
#include "filelist/FileItem.h"
#include "filelist/RowStore.h"
#include "platform/Collation.h"
#include "platform/PathStyle.h"

namespace quillon {

/// Receives the list's changes. Indices are 1-based. Called after the change, once per changed row or once for all.
class FileListObserver {
 public:
  virtual ~FileListObserver() = default;
  virtual void RowChanged(int index) = 0;
  /// Rows were added, removed or reordered, or many changed.
  virtual void RowsChanged() = 0;
  /// The check marks or the selection of many rows changed; the rows and their order are the same.
  virtual void MarksChanged() = 0;
};

/// Which rows a command is for.
enum class Rows { kAll, kChecked };

/// The list of registered files, the one store that every command works on. Rows have 1-based indices; callers never
/// pass an index outside the list. Looking up a file or folder, the counts, and the first selected or checked row cost
/// the same in a list of any length, except for the first query for such a row after a change above it.
class FileList {
 public:
  explicit FileList(PathStyle style = SystemPathStyle());
  FileList(const FileList&) = delete;
  FileList& operator=(const FileList&) = delete;
  ~FileList() = default;

  /// At most one observer; null for none. It must outlive its registration.
  void SetObserver(FileListObserver* observer) { observer_ = observer; }

  [[nodiscard]] int Count() const { return static_cast<int>(order_.size()); }
  /// Another number after every change of the rows, their order or their texts; the same after changes of check marks
  /// and selection.
  [[nodiscard]] std::uint64_t Revision() const { return revision_; }
  [[nodiscard]] int CheckedCount() const { return rows_.CheckedCount(); }
  /// The number of rows that a command for `rows` works on, and whether this row is one of them.
  [[nodiscard]] int CountOf(Rows rows) const { return rows == Rows::kAll ? Count() : CheckedCount(); }
  [[nodiscard]] bool IsIn(Rows rows, int index) const { return rows == Rows::kAll || rows_.IsChecked(At(index)); }
  [[nodiscard]] int SelectedCount() const { return rows_.SelectedCount(); }
  /// The number of rows whose rename name is not their file's name.
  [[nodiscard]] int PendingCount() const { return rows_.PendingCount(); }
  /// The row, until the list changes.
  [[nodiscard]] FileRow Row(int index) const { return rows_.Row(At(index)); }

  /// The first selected row from the top, 0 when none is selected.
  [[nodiscard]] int SelectedIndex() const;
  /// Every selected row, from the top.
  [[nodiscard]] std::vector<int> SelectedRows() const;
  /// The first checked row from the top, 0 when none is checked.
  [[nodiscard]] int FirstCheckedIndex() const;
  /// The first pending row after this one, else from the top; 0 when none is pending.
  [[nodiscard]] int NextPending(int after) const;
  /// The first row from the top with this location, 0 when there is none.
  [[nodiscard]] int IndexOf(std::string_view location) const;

  [[nodiscard]] bool ContainsFile(std::string_view location) const { return rows_.ContainsFile(location); }
  /// True when a row lies directly in this folder (trailing separator included).
  [[nodiscard]] bool ContainsFolder(std::string_view folder) const { return rows_.ContainsFolder(folder); }

  /// Reserves memory for this many more rows, so that adding them does not reallocate repeatedly.
  void Reserve(std::size_t more);
  /// Appends a row. Refusing a location that is already there is the caller's decision.
  void Add(const FileItem& item);
  /// Replaces the row's data with another file's, or with the same file's read again; its selection stays.
  void Replace(int index, const FileItem& item);
  /// The observer is not notified between these calls; the last EndChanges notifies it once with RowsChanged.
  void BeginChanges() { ++quiet_; }
  void EndChanges();

  /// Recorded in Edits() while a step is open there.
  void SetRenameName(int index, std::string_view name);
  void SetLocation(int index, std::string_view location);
  void SetTexts(int index, std::string_view title, std::string_view artist);
  void SetChecked(int index, bool checked);
  void SetSelected(int index, bool selected);
  /// Selects this row and no other.
  void SelectOnly(int index);
  void SelectNone();
  void SelectAll();
  /// Selects these rows, in rising order, and no others.
  void SelectRows(const std::vector<int>& rows);

  void CheckAll();
  void UncheckAll();
  void InvertChecks();

  /// The steps of edits that can be taken back. Rows that are removed or replaced leave it.
  [[nodiscard]] EditHistory& Edits() { return edits_; }
  [[nodiscard]] const EditHistory& Edits() const { return edits_; }
  /// This row's edits can no longer be taken back, because they are on the disk.
  void ForgetEdits(int index) { edits_.Forget(At(index)); }
  /// Takes the last step of edits back, or does it again. Returns the changed rows in rising order.
  std::vector<int> UndoEdits() { return Restored(edits_.Undo()); }
  std::vector<int> RedoEdits() { return Restored(edits_.Redo()); }

  /// Removes every row for which `unwanted` holds.
  void RemoveWhere(const std::function<bool(int index, const FileRow& row)>& unwanted);
  void Clear();

  /// Sorts the rows once by the column's display texts in this order, ignoring letter case; equal texts keep their
  /// order. Rows added later go to the end. Every call reverses the direction, whichever column it names; the first one
  /// sorts in descending order. `progress`, which may be null, is asked between the rows; when it ends the sort,
  /// nothing has changed.
  void Sort(Column column, const Collation& order, Progress* progress = nullptr);

  /// The image list key ("ICONKEY" and a number) of a type's small icon: rows of one type share one image. The same
  /// type always has the same number.
  [[nodiscard]] std::uint32_t IconNumber(std::string_view type) { return rows_.TypeNumber(type); }
  [[nodiscard]] static std::string IconKey(std::uint32_t number);

 private:
  using Id = RowStore::Id;

  [[nodiscard]] Id At(int index) const { return order_[static_cast<std::size_t>(index - 1)]; }
  template <class Wanted>
  void SetAllChecked(const Wanted& wanted);
  [[nodiscard]] std::vector<int> Restored(const std::vector<Id>& changed);
  void RowTouched(int index) const;
  void RowsTouched();
  void MarksTouched() const;

  FileListObserver* observer_ = nullptr;
  int quiet_ = 0;
  std::uint64_t revision_ = 0;
  RowStore rows_;
  std::vector<Id> order_;
  EditHistory edits_{rows_};
  bool descending_ = false;
  // Found on demand, forgotten when the rows before them may have changed.
  mutable std::optional<int> firstSelected_;
  mutable std::optional<int> firstChecked_;
};

/// The counts as the status bar shows them.
[[nodiscard]] std::string CheckCountText(const FileList& list);
[[nodiscard]] std::string ItemCountText(const FileList& list);
[[nodiscard]] std::string PendingCountText(const FileList& list);

}  // namespace quillon
