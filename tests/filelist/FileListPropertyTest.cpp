#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "filelist/FileList.h"
#include "support/ByteOrder.h"
#include "support/Rows.h"

namespace quillon {
namespace {

/// The list in its simplest form, without regard to speed.
struct PlainRow : FileItem {
  PlainRow(const FileItem& item, int given) : FileItem(item), id(given) {}
  int id = 0;  ///< also of the rows that have gone
};

struct PlainList {
  using Names = std::map<int, std::string>;  // by id

  std::vector<PlainRow> rows;
  bool descending = false;
  int ids = 0;
  std::vector<Names> undo;
  std::vector<Names> redo;

  [[nodiscard]] Names AllNames() const {
    Names names;
    for (const PlainRow& row : rows) names[row.id] = row.renameName;
    return names;
  }
  /// Keeps the names that have changed since as a step.
  void Keep(const Names& before) {
    Names step;
    for (const auto& [id, name] : AllNames()) {
      if (before.at(id) != name) step[id] = before.at(id);
    }
    if (step.empty()) return;
    undo.push_back(step);
    redo.clear();
  }
  void Exchange(std::vector<Names>& from, std::vector<Names>& to) {
    if (from.empty()) return;
    Names step = from.back();
    from.pop_back();
    for (PlainRow& row : rows) {
      if (const auto found = step.find(row.id); found != step.end()) std::swap(row.renameName, found->second);
    }
    to.push_back(step);
  }
  void Forget(int id) {
    for (std::vector<Names>* steps : {&undo, &redo}) {
      for (Names& step : *steps) step.erase(id);
      std::erase_if(*steps, [](const Names& step) { return step.empty(); });
    }
  }

  [[nodiscard]] int First(const std::function<bool(const FileItem&)>& holds) const {
    const auto found = std::find_if(rows.begin(), rows.end(), holds);
    return found == rows.end() ? 0 : static_cast<int>(found - rows.begin()) + 1;
  }
  [[nodiscard]] int Count(const std::function<bool(const FileItem&)>& holds) const {
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), holds));
  }
  void Sort(Column column) {
    descending = !descending;
    std::stable_sort(rows.begin(), rows.end(), [&](const PlainRow& left, const PlainRow& right) {
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

/// Paths of one style: in some folders, at roots, without a folder, equal when letter case is ignored, with bytes that
/// are no text.
std::vector<std::string> PathsOf(PathStyle style) {
  std::vector<std::string> paths = {"a.mid", "A.mid", "nodot", ".mid", "m\xFF.mid"};
  const bool windows = style == PathStyle::kWindows;
  const std::vector<std::string> folders =
      windows ? std::vector<std::string>{"C:\\m\\",
                                         "C:\\M\\",
                                         "c:\\n\\",
                                         "C:\\",
                                         "C:",
                                         "\\\\server\\share\\é\\",
                                         "\\\\SERVER\\share\\É\\"}
              : std::vector<std::string>{"/m/", "/M/", "/n/", "/", "//server/share/é/", "/\xFF/"};
  for (const std::string& folder : folders) {
    for (const char* name : {"a.mid", "A.mid", "b.mp3", "曲.MP3", "曲", "é.x.mid", "É.X.mid", "\xFF.mid", "\xFE.mid"}) {
      paths.push_back(folder + name);
    }
  }
  return paths;
}

class Walk {
 public:
  Walk(unsigned seed, PathStyle style) : random_(seed), style_(style), list_(style), paths_(PathsOf(style)) {
    std::shuffle(paths_.begin(), paths_.end(), random_);
    paths_.resize(14);
  }

  void Step() {
    const int what = Below(30);
    if (plain_.rows.empty() || what < 6) {
      Add();
    } else if (what < 20) {
      ChangeRow(what, Below(list_.Count()) + 1);
    } else if (what < 24) {
      Edit(what);
    } else {
      ChangeMany(what);
    }
    list_.Edits().End();  // as after every event
  }

  void ExpectEqual() {
    ASSERT_EQ(list_.Count(), static_cast<int>(plain_.rows.size()));
    EXPECT_EQ(list_.CheckedCount(), plain_.Count(IsChecked));
    EXPECT_EQ(list_.SelectedCount(), plain_.Count(IsSelected));
    EXPECT_EQ(list_.PendingCount(), plain_.Count([&](const FileItem& row) { return IsPending(row); }));
    EXPECT_EQ(list_.Edits().CanUndo(), !plain_.undo.empty());
    EXPECT_EQ(list_.Edits().CanRedo(), !plain_.redo.empty());
    // Not checked after every step, so that a cached value has to stay right through several changes.
    if (Coin()) {
      EXPECT_EQ(list_.SelectedIndex(), plain_.First(IsSelected));
      EXPECT_EQ(list_.SelectedRows(), test::SelectedRows(list_));
    }
    if (Coin()) {
      EXPECT_EQ(list_.FirstCheckedIndex(), plain_.First(IsChecked));
    }
    EXPECT_EQ(list_.NextPending(0), plain_.First([&](const FileItem& row) { return IsPending(row); }));
    for (int index = 1; index <= list_.Count(); ++index) ExpectRow(index);
    for (const std::string& path : paths_) {
      const int first = plain_.First([&](const FileItem& row) { return Same(row.location, path); });
      EXPECT_EQ(list_.IndexOf(path), first) << path;
      EXPECT_EQ(list_.ContainsFile(path), first != 0) << path;
      const std::string_view folder = FolderPart(path, style_);
      const int inFolder =
          plain_.First([&](const FileItem& row) { return Same(FolderPart(row.location, style_), folder); });
      EXPECT_EQ(list_.ContainsFolder(folder), inFolder != 0) << folder;
    }
  }

 private:
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
  bool Coin() { return Below(2) == 1; }
  std::string AnyPath() { return paths_[static_cast<std::size_t>(Below(static_cast<int>(paths_.size())))]; }
  std::string AnyText() { return std::string(static_cast<std::size_t>(Below(40)), static_cast<char>('a' + Below(3))); }

  [[nodiscard]] bool Same(std::string_view left, std::string_view right) const {
    return PathIdentity(left, style_) == PathIdentity(right, style_);
  }
  [[nodiscard]] bool IsPending(const FileItem& row) const {
    return IsPendingName(row.renameName, FileName(row.location, style_));
  }

  std::string AnyNameFor(const std::string& location) {
    const std::string present(BaseName(location, style_));
    const std::vector<std::string> names = {present, present + " ", "", present.substr(0, 1), std::to_string(Below(9))};
    return names[static_cast<std::size_t>(Below(static_cast<int>(names.size())))];
  }

  FileItem AnyRow() {
    FileItem row = test::RowFor(AnyPath(), style_);
    if (Coin()) row.renameName = AnyNameFor(row.location);
    if (Coin()) row.title = AnyText();
    if (Coin()) row.artist = AnyText();
    row.size = static_cast<std::uint64_t>(Below(3000));
    row.checked = Coin();
    row.selected = Below(4) == 0;
    return row;
  }

  void Add() {
    const FileItem row = AnyRow();
    list_.Add(row);
    plain_.rows.emplace_back(row, ++plain_.ids);
  }

  void ChangeRow(int what, int index) {
    PlainRow& row = plain_.rows[static_cast<std::size_t>(index) - 1];
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
      row.renameName = AnyNameFor(row.location);
      list_.SetRenameName(index, row.renameName);
    } else if (what == 16) {
      row.title = AnyText();
      row.artist = AnyText();
      list_.SetTexts(index, row.title, row.artist);
    } else if (what == 17) {
      list_.ForgetEdits(index);
      plain_.Forget(row.id);
    } else {
      const bool selected = row.selected;
      plain_.Forget(row.id);
      static_cast<FileItem&>(row) = AnyRow();
      list_.Replace(index, row);
      row.selected = selected;
    }
  }

  void Edit(int what) {
    if (what == 20) {
      (void)list_.UndoEdits();
      return plain_.Exchange(plain_.undo, plain_.redo);
    }
    if (what == 21) {
      (void)list_.RedoEdits();
      return plain_.Exchange(plain_.redo, plain_.undo);
    }
    const PlainList::Names before = plain_.AllNames();
    list_.Edits().Begin(EditHistory::Merging::kNever);
    for (int i = Below(6); i > 0; --i) {
      const int index = Below(list_.Count()) + 1;
      PlainRow& row = plain_.rows[static_cast<std::size_t>(index) - 1];
      if (Coin()) {
        row.renameName = row.title;
        list_.SetRenameName(index, list_.Row(index).title);  // which lies in the row's own memory
      } else {
        row.renameName = AnyNameFor(row.location);
        list_.SetRenameName(index, row.renameName);
      }
    }
    list_.Edits().End();
    plain_.Keep(before);
  }

  void ChangeMany(int what) {
    std::vector<PlainRow>& rows = plain_.rows;
    switch (what) {
      case 24: return CheckMany();
      case 25: return SelectMany();
      case 26: return SortBoth();
      default:
        if (Below(8) != 0) return Remove();
        list_.Clear();
        rows.clear();
        plain_.undo.clear();
        plain_.redo.clear();
    }
  }

  void CheckMany() {
    const int how = Below(3);
    if (how == 0) list_.CheckAll();
    if (how == 1) list_.UncheckAll();
    if (how == 2) list_.InvertChecks();
    for (FileItem& row : plain_.rows) row.checked = how == 0 || (how == 2 && !row.checked);
  }

  void SelectMany() {
    const int how = Below(3);
    std::vector<int> selected;
    for (std::size_t i = 0; i < plain_.rows.size(); ++i) {
      FileItem& row = plain_.rows[i];
      row.selected = how == 0 || (how == 2 && Coin());
      if (row.selected) selected.push_back(static_cast<int>(i) + 1);
    }
    if (how == 0) list_.SelectAll();
    if (how == 1) list_.SelectNone();
    if (how == 2) list_.SelectRows(selected);
  }

  void Remove() {
    const int every = Below(4) + 1;
    const int rest = Below(every);
    list_.RemoveWhere([&](int index, const FileRow&) { return index % every == rest; });
    std::vector<PlainRow> kept;
    for (std::size_t i = 0; i < plain_.rows.size(); ++i) {
      if (static_cast<int>(i + 1) % every != rest) {
        kept.push_back(plain_.rows[i]);
      } else {
        plain_.Forget(plain_.rows[i].id);
      }
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
    EXPECT_EQ(row.folder, FolderPart(plain.location, style_));
    EXPECT_EQ(row.name, FileName(plain.location, style_));
    EXPECT_EQ(row.BaseName(), BaseName(plain.location, style_));
    EXPECT_EQ(row.NameWithoutExtension(), NameWithoutExtension(plain.location, style_));
    EXPECT_EQ(row.renameName, plain.renameName);
    EXPECT_EQ(row.title, plain.title);
    EXPECT_EQ(row.artist, plain.artist);
    EXPECT_EQ(row.type.Text(), plain.type.Text());
    EXPECT_EQ(row.iconNumber, list_.IconNumber(plain.type.Text()));
    EXPECT_EQ(row.size, plain.size);
    EXPECT_EQ(row.checked, plain.checked);
    EXPECT_EQ(row.selected, plain.selected);
    EXPECT_EQ(row.pending, IsPending(plain));
  }

  std::mt19937 random_;
  PathStyle style_;
  FileList list_;
  PlainList plain_;
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
