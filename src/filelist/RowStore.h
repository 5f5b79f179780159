#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "filelist/FileItem.h"
#include "filelist/FolderTable.h"
#include "filelist/LocationTable.h"
#include "platform/PathStyle.h"

namespace quillon {

/// The memory of the file list, in no order. A row is known by a number while it is there. It takes a record of 40
/// bytes and one block for its texts; folders and types are stored once. When memory runs out in a function, nothing
/// has changed.
class RowStore {
 public:
  using Id = std::uint32_t;

  explicit RowStore(PathStyle style) : folders_(style), style_(style) {}

  /// One more than the largest number of a row.
  [[nodiscard]] std::size_t Bound() const { return records_.size(); }

  void Reserve(std::size_t more);
  Id Add(const FileItem& item);
  /// The row's selection stays.
  void Replace(Id row, const FileItem& item);
  /// The number may be given to another row later.
  void Remove(Id row) noexcept;
  void Clear() noexcept;

  [[nodiscard]] FileRow Row(Id row) const;
  [[nodiscard]] std::string_view RenameName(Id row) const;
  [[nodiscard]] bool IsChecked(Id row) const { return records_[row].checked; }
  [[nodiscard]] bool IsSelected(Id row) const { return records_[row].selected; }
  [[nodiscard]] bool IsPending(Id row) const { return records_[row].pending; }
  [[nodiscard]] int CheckedCount() const { return checkedCount_; }
  [[nodiscard]] int SelectedCount() const { return selectedCount_; }
  [[nodiscard]] int PendingCount() const { return pendingCount_; }

  void SetRenameName(Id row, std::string_view name);
  void SetTexts(Id row, std::string_view title, std::string_view artist);
  void SetLocation(Id row, std::string_view location);
  void SetChecked(Id row, bool checked) noexcept;
  void SetSelected(Id row, bool selected) noexcept;

  /// The rows with this location.
  [[nodiscard]] std::vector<Id> RowsAt(std::string_view location) const;
  [[nodiscard]] bool ContainsFile(std::string_view location) const;
  [[nodiscard]] bool ContainsFolder(std::string_view folder) const { return folders_.Find(folder) != nullptr; }

  /// Counts from 1; the same type always has the same number.
  [[nodiscard]] std::uint32_t TypeNumber(const FileType& type);

 private:
  struct Texts {
    std::string_view name;
    std::string_view title;
    std::string_view artist;
    std::string_view renameName;
  };

  static constexpr std::uint32_t kTypeBits = 28;

  /// The block holds the name, the title, the artist and then the rename name, unless that is how the name begins.
  struct Record {
    std::unique_ptr<char[]> texts;
    std::uint64_t size = 0;
    std::uint32_t folder = 0;  ///< without a row: the next such record
    std::uint32_t nameLength = 0;
    std::uint32_t titleLength = 0;
    std::uint32_t artistLength = 0;
    std::uint32_t renameNameLength = 0;
    std::uint32_t type : kTypeBits = 0;
    std::uint32_t beginsName : 1 = 0;
    std::uint32_t checked : 1 = 0;
    std::uint32_t selected : 1 = 0;
    std::uint32_t pending : 1 = 0;
  };

  [[nodiscard]] static Texts TextsOf(const Record& record);
  static void Write(Record& record, const Texts& texts);
  [[nodiscard]] Record Made(const FileItem& item);
  void PutTexts(Id row, const Texts& texts);
  void Enter(Id row, Record&& next) noexcept;
  Record Leave(Id row) noexcept;
  [[nodiscard]] std::uint32_t HashOf(FolderTable::Id identity, std::string_view name) const noexcept;
  [[nodiscard]] std::uint32_t HashOf(const Record& record) const noexcept;
  template <class Found>
  bool AnyAt(std::string_view location, const Found& found) const;

  static constexpr Id kNone = ~Id{0};

  FolderTable folders_;
  LocationTable locations_;
  std::vector<Record> records_;
  Id firstUnused_ = kNone;
  std::deque<FileType> types_;
  std::unordered_map<std::string_view, std::uint32_t> typeNumbers_;  // of the texts in types_
  PathStyle style_;
  int checkedCount_ = 0;
  int selectedCount_ = 0;
  int pendingCount_ = 0;
};

}  // namespace quillon
