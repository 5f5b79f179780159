#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <unordered_set>
#include <vector>

namespace quillon {

struct FileItem;

/// The steps by which rename names have changed, to take them back and to do them again. A row is known by its address,
/// which it keeps while it is in the list. At most 100 steps and 64 MiB are kept; the oldest ones go first, and a step
/// that is larger alone is not kept at all.
class EditHistory {
 public:
  static constexpr std::size_t kMostSteps = 100;
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  /// The name that a row gets when its step is taken back or done again.
  struct Change {
    FileItem* row = nullptr;
    std::string name;
  };
  using Changes = std::vector<Change>;

  enum class Merging {
    kNever,
    kTyping,  ///< joins the step before, when that was typing into the same rows, too
  };

  /// Between Begin and End, changes are recorded as one step. A step that changes nothing is not kept. End without
  /// Begin does nothing.
  void Begin(Merging merging);
  void End();
  /// Call it before the row's rename name changes. Without an open step nothing is recorded.
  void Record(FileItem& row);
  /// This row's changes can no longer be taken back. Takes effect with Purge or the next End.
  void Forget(FileItem& row);
  void Purge();
  void Clear();

  [[nodiscard]] bool CanUndo() const { return !undo_.empty(); }
  [[nodiscard]] bool CanRedo() const { return !redo_.empty(); }
  /// Exchanges the rows' names with those before the last step, or after it. Returns the rows; empty when there is no
  /// such step.
  std::vector<FileItem*> Undo() { return Exchange(undo_, redo_); }
  std::vector<FileItem*> Redo() { return Exchange(redo_, undo_); }

 private:
  using Steps = std::deque<Changes>;

  std::vector<FileItem*> Exchange(Steps& from, Steps& to);
  static void DropUnchanged(Changes& changes);
  void Trim();

  Steps undo_;
  Steps redo_;
  Changes open_;
  std::unordered_set<const FileItem*> recorded_;  // in the open step
  std::unordered_set<const FileItem*> forgotten_;
  Merging merging_ = Merging::kNever;
  bool isOpen_ = false;
  bool typing_ = false;  // the last step may be continued by typing
};

}  // namespace quillon
