#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "support/ByteOrder.h"
#include "support/Rows.h"

namespace quillon {
namespace {

/// The list in its simplest form, without regard to speed.
struct PlainList {
  std::vector<FileItem> rows;
  bool descending = false;

  [[nodiscard]] int First(const std::function<bool(const FileItem&)>& holds) const {
    const auto found = std::find_if(rows.begin(), rows.end(), holds);
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
  }
  [[nodiscard]] int Count(const std::function<bool(const FileItem&)>& holds) const {
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), holds));
  }
  void Sort(Column column) {
    descending = !descending;
    std::stable_sort(rows.begin(), rows.end(), [&](const FileItem& left, const FileItem& right) {
      const std::string one = ToLower(ColumnText(RowOf(left), column));
      const std::string other = ToLower(ColumnText(RowOf(right), column));
      return descending ? other < one : one < other;
    });
  }
};

bool IsChecked(const FileItem& row) {
  return row.checked;
}
bool IsSelected(const FileItem& row) {
  return row.selected;
}

class Walk {
 public:
  Walk(unsigned seed, PathStyle style) : random_(seed), style_(style), list_(style) {
    const std::string separator(1, PathSeparator(style));
    for (const char* folder : {"m", "M", "n"}) {
      folders_.push_back((style == PathStyle::kWindows ? "C:\\" : "/") + std::string(folder) + separator);
      for (const char* name : {"a.mid", "A.mid", "b.mp3", "曲.MP3"}) paths_.push_back(folders_.back() + name);
    }
  }

  void Step() {
    const int rows = list_.Count();
    const int what = Below(24);
    if (rows == 0 || what < 5) return Add();
    const int index = Below(rows) + 1;
    if (what < 17) return ChangeRow(what, index);
    ChangeMany(what);
  }

  void ExpectEqual() {
    ASSERT_EQ(list_.Count(), static_cast<int>(plain_.rows.size()));
    EXPECT_EQ(list_.CheckedCount(), plain_.Count(IsChecked));
    EXPECT_EQ(list_.SelectedCount(), plain_.Count(IsSelected));
    // Not checked after every step, so that a cached value has to stay right through several changes.
    if (Coin()) {
      EXPECT_EQ(list_.SelectedIndex(), plain_.First(IsSelected));
    }
    if (Coin()) {
      EXPECT_EQ(list_.FirstCheckedIndex(), plain_.First(IsChecked));
    }
    for (int index = 1; index <= list_.Count(); ++index) ExpectRow(index);
    for (const std::string& path : paths_) {
      const int first = plain_.First([&](const FileItem& row) { return Same(row.location, path); });
      EXPECT_EQ(list_.IndexOf(path), first) << path;
      EXPECT_EQ(list_.ContainsFile(path), first != 0) << path;
    }
    for (const std::string& folder : folders_) {
      const int first =
          plain_.First([&](const FileItem& row) { return Same(FolderPart(row.location, style_), folder); });
      EXPECT_EQ(list_.ContainsFolder(folder), first != 0) << folder;
    }
  }

 private:
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
  bool Coin() { return Below(2) == 1; }
  std::string AnyPath() { return paths_[static_cast<std::size_t>(Below(static_cast<int>(paths_.size())))]; }

  [[nodiscard]] bool Same(std::string_view left, std::string_view right) const {
    return PathIdentity(left, style_) == PathIdentity(right, style_);
  }

  FileItem AnyRow() {
    FileItem row = test::RowFor(AnyPath(), style_);
    row.size = static_cast<std::uint64_t>(Below(3000));
    row.checked = Coin();
    row.selected = Below(4) == 0;
    return row;
  }

  void Add() {
    const FileItem row = AnyRow();
    list_.Add(row);
    plain_.rows.push_back(row);
  }

  void ChangeRow(int what, int index) {
    FileItem& row = plain_.rows[static_cast<std::size_t>(index) - 1];
    const bool yes = Coin();
    if (what < 8) {
      list_.SetChecked(index, yes);
      row.checked = yes;
    } else if (what < 11) {
      list_.SetSelected(index, yes);
      row.selected = yes;
    } else if (what < 13) {
      for (FileItem& each : plain_.rows) each.selected = false;
      row.selected = true;
      list_.SelectOnly(index);
    } else if (what < 15) {
      row.location = AnyPath();
      list_.SetLocation(index, row.location);
    } else if (what == 15) {
      row.renameName = std::to_string(Below(9));
      list_.SetRenameName(index, row.renameName);
    } else {
      const bool selected = row.selected;
      row = AnyRow();
      list_.Replace(index, row);
      row.selected = selected;
    }
  }

  void ChangeMany(int what) {
    std::vector<FileItem>& rows = plain_.rows;
    switch (what) {
      case 17:
        list_.CheckAll();
        for (FileItem& row : rows) row.checked = true;
        break;
      case 18:
        list_.UncheckAll();
        for (FileItem& row : rows) row.checked = false;
        break;
      case 19:
        list_.InvertChecks();
        for (FileItem& row : rows) row.checked = !row.checked;
        break;
      case 20:
        list_.SelectNone();
        for (FileItem& row : rows) row.selected = false;
        break;
      case 21: Remove(); break;
      case 22: SortBoth(); break;
      default:
        if (Below(6) != 0) return Remove();
        list_.Clear();
        rows.clear();
    }
  }

  void Remove() {
    const int every = Below(4) + 1;
    const int rest = Below(every);
    list_.RemoveWhere([&](int index, const FileRow&) { return index % every == rest; });
    std::vector<FileItem> kept;
    for (std::size_t i = 0; i < plain_.rows.size(); ++i) {
      if (static_cast<int>(i + 1) % every != rest) kept.push_back(plain_.rows[i]);
    }
    plain_.rows = kept;
  }

  void SortBoth() {
    const auto column = static_cast<Column>(Below(kColumnCount));
    list_.Sort(column, test::ByteOrder());
    plain_.Sort(column);
  }

  void ExpectRow(int index) {
    const FileRow row = list_.Row(index);
    const FileItem& plain = plain_.rows[static_cast<std::size_t>(index) - 1];
    EXPECT_EQ(row.Location(), plain.location);
    EXPECT_EQ(row.renameName, plain.renameName);
    EXPECT_EQ(row.size, plain.size);
    EXPECT_EQ(row.checked, plain.checked);
    EXPECT_EQ(row.selected, plain.selected);
  }

  std::mt19937 random_;
  PathStyle style_;
  FileList list_;
  PlainList plain_;
  std::vector<std::string> folders_;
  std::vector<std::string> paths_;
};

TEST(FileListProperty, AnyRunOfChangesGivesWhatThePlainListGives) {
  for (const PathStyle style : {PathStyle::kWindows, PathStyle::kLinux}) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << (style == PathStyle::kLinux ? ", Linux" : ", Windows"));
      Walk walk(seed, style);
      for (int step = 0; step < 150; ++step) {
        walk.Step();
        walk.ExpectEqual();
        if (HasFailure()) FAIL() << "at step " << step;
      }
    }
  }
}

}  // namespace
}  // namespace quillon
