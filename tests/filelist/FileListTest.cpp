#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "support/ByteOrder.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using test::ByteOrder;
using test::CheckedRows;
using test::EventLog;
using test::ListRecorder;
using test::Locations;
using test::RowFor;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

void AddFiles(FileList& list, const Texts& names) {
  for (const std::string& name : names) list.Add(RowFor("/f/" + name, kLin));
}

TEST(FileItem, ShowsItsColumnsInTheOrderOfTheList) {
  FileItem row;
  row.renameName = "新しい名前";
  row.title = "題";
  row.artist = "人";
  row.type = "MP3";
  row.size = 1234567;
  row.location = "/f/a.mp3";
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"リネーム名", "新しい名前"}, {"タイトル", "題"},  {"著作権/アーティスト", "人"}, {"種類", "MP3"},
      {"サイズ", "1,234,567"},      {"場所", "/f/a.mp3"}};
  ASSERT_EQ(expected.size(), std::size_t{kColumnCount});
  for (int i = 0; i < kColumnCount; ++i) {
    const auto column = static_cast<Column>(i);
    const auto& [caption, text] = expected[static_cast<std::size_t>(i)];
    EXPECT_EQ(ColumnCaption(column), caption);
    EXPECT_EQ(ColumnText(RowOf(row, kLin), column), text) << caption;
  }
}

TEST(FileItem, HasNoTitleWhenItIsBlankOrThreeDashes) {
  const std::vector<std::pair<std::string, bool>> rows = {
      {"", true},      {"   ", true},   {"---", true}, {"  --- ", true},  {"--", false},
      {"----", false}, {"- --", false}, {"題", false}, {"\u3000", false}, {" 題 ", false}};
  for (const auto& [title, none] : rows) {
    EXPECT_EQ(HasNoTitle(title), none) << "[" << title << "]";
  }
}

TEST(FileListCounts, AreShownWithOneAndWithTwoSpaces) {
  FileList list(kLin);
  EXPECT_EQ(CheckCountText(list), "チェック数： 0");
  EXPECT_EQ(ItemCountText(list), "アイテム数：  0");
  AddFiles(list, {"a", "b", "c"});
  list.SetChecked(2, true);
  EXPECT_EQ(CheckCountText(list), "チェック数： 1");
  EXPECT_EQ(ItemCountText(list), "アイテム数：  3");
}

TEST(FileListQueries, GiveTheFirstRowFromTheTopOrZero) {
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c", "d"});
  EXPECT_EQ(list.SelectedIndex(), 0);
  EXPECT_EQ(list.FirstCheckedIndex(), 0);
  list.SetSelected(4, true);
  list.SetSelected(2, true);
  list.SetChecked(3, true);
  list.SetChecked(4, true);
  EXPECT_EQ(list.SelectedIndex(), 2);
  EXPECT_EQ(list.SelectedCount(), 2);
  EXPECT_EQ(list.FirstCheckedIndex(), 3);
  EXPECT_EQ(list.CheckedCount(), 2);
  list.SetSelected(2, false);
  list.SetChecked(3, false);
  EXPECT_EQ(list.SelectedIndex(), 4);
  EXPECT_EQ(list.FirstCheckedIndex(), 4);
}

TEST(FileListQueries, FollowARowThatARemovalMovesUp) {
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c"});
  list.SelectOnly(3);
  list.SetChecked(3, true);
  EXPECT_EQ(list.SelectedIndex(), 3);
  list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  EXPECT_EQ(list.SelectedIndex(), 2);
  EXPECT_EQ(list.FirstCheckedIndex(), 2);
  list.RemoveWhere([](int index, const FileRow&) { return index == 2; });
  EXPECT_EQ(list.SelectedIndex(), 0);
  EXPECT_EQ(list.FirstCheckedIndex(), 0);
}

TEST(FileListSelection, SelectOnlyLeavesNoOtherRowSelected) {
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c"});
  list.SetSelected(1, true);
  list.SetSelected(3, true);
  list.SelectOnly(2);
  EXPECT_EQ(SelectedRows(list), Indices({2}));
  list.SelectOnly(2);
  EXPECT_EQ(SelectedRows(list), Indices({2}));
  list.SelectNone();
  EXPECT_EQ(SelectedRows(list), Indices());
  EXPECT_EQ(list.SelectedIndex(), 0);
}

TEST(FileListChecks, AllNoneAndInverted) {
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c"});
  list.CheckAll();
  EXPECT_EQ(CheckedRows(list), Indices({1, 2, 3}));
  EXPECT_EQ(list.CheckedCount(), 3);
  list.SetChecked(2, false);
  list.InvertChecks();
  EXPECT_EQ(CheckedRows(list), Indices({2}));
  EXPECT_EQ(list.FirstCheckedIndex(), 2);
  list.UncheckAll();
  EXPECT_EQ(CheckedRows(list), Indices());
  EXPECT_EQ(list.FirstCheckedIndex(), 0);
}

TEST(FileListDuplicates, IgnoreLetterCaseInWindowsPathsOnly) {
  struct Case {
    const char* name;
    PathStyle style;
    std::string listed;
    std::string asked;
    bool found;
  };
  const std::vector<Case> cases = {
      {"same", kWin, "C:\\曲\\a.mid", "C:\\曲\\a.mid", true},
      {"other case", kWin, "C:\\曲\\a.mid", "c:\\曲\\A.MID", true},
      {"other case beyond ASCII", kWin, "C:\\é\\ａ.mid", "C:\\É\\Ａ.mid", true},
      {"other file", kWin, "C:\\曲\\a.mid", "C:\\曲\\b.mid", false},
      {"longer", kWin, "C:\\曲\\a.mid", "C:\\曲\\a.midi", false},
      {"same on Linux", kLin, "/曲/a.mid", "/曲/a.mid", true},
      {"other case on Linux", kLin, "/曲/a.mid", "/曲/A.mid", false},
      {"folder", kLin, "/曲/a.mid", "/曲/", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    FileList list(c.style);
    list.Add(RowFor(c.listed, c.style));
    EXPECT_EQ(list.ContainsFile(c.asked), c.found);
    EXPECT_EQ(list.IndexOf(c.asked), c.found ? 1 : 0);
  }
}

TEST(FileListDuplicates, AFolderIsListedOnlyWhenARowLiesDirectlyInIt) {
  struct Case {
    const char* name;
    PathStyle style;
    std::string listed;
    std::string folder;
    bool found;
  };
  const std::vector<Case> cases = {
      {"its folder", kWin, "C:\\曲\\a.mid", "C:\\曲\\", true},
      {"its folder in another case", kWin, "C:\\Music\\a.mid", "c:\\MUSIC\\", true},
      {"sub folder of a loaded folder", kWin, "C:\\曲\\a.mid", "C:\\曲\\新\\", false},
      {"folder above", kWin, "C:\\曲\\新\\a.mid", "C:\\曲\\", false},
      {"folder with the same start", kWin, "C:\\曲2\\a.mid", "C:\\曲\\", false},
      {"its folder on Linux", kLin, "/m/a.mid", "/m/", true},
      {"another case on Linux", kLin, "/m/a.mid", "/M/", false},
      {"sub folder on Linux", kLin, "/m/a.mid", "/m/x/", false},
      {"folder above on Linux", kLin, "/m/x/a.mid", "/m/", false},
      {"root", kLin, "/a.mid", "/", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    FileList list(c.style);
    list.Add(RowFor(c.listed, c.style));
    EXPECT_EQ(list.ContainsFolder(c.folder), c.found);
  }
}

TEST(FileListDuplicates, AreForgottenWithTheLastRow) {
  FileList list(kWin);
  list.Add(RowFor("C:\\m\\a.mid", kWin));
  list.Add(RowFor("C:\\M\\b.mid", kWin));
  list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  EXPECT_FALSE(list.ContainsFile("C:\\m\\a.mid"));
  EXPECT_TRUE(list.ContainsFolder("C:\\m\\"));
  list.SetLocation(1, "D:\\m\\b.mid");
  EXPECT_FALSE(list.ContainsFolder("C:\\m\\"));
  EXPECT_TRUE(list.ContainsFolder("d:\\M\\"));
  list.Clear();
  EXPECT_FALSE(list.ContainsFile("D:\\m\\b.mid"));
  EXPECT_FALSE(list.ContainsFolder("D:\\m\\"));
}

TEST(FileListDuplicates, TwoRowsWithOneLocationStayDistinct) {
  FileList list(kLin);
  AddFiles(list, {"a", "b"});
  list.SetLocation(2, "/f/a");
  EXPECT_EQ(list.IndexOf("/f/a"), 1);
  EXPECT_FALSE(list.ContainsFile("/f/b"));
  list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  EXPECT_EQ(list.IndexOf("/f/a"), 1);
  list.SetLocation(1, "/f/c");
  EXPECT_FALSE(list.ContainsFile("/f/a"));
  EXPECT_TRUE(list.ContainsFile("/f/c"));
}

TEST(FileListReplace, KeepsTheSelectionAndTakesEverythingElse) {
  FileList list(kLin);
  AddFiles(list, {"a", "b"});
  list.SelectOnly(1);
  list.SetChecked(1, true);
  FileItem other = RowFor("/g/z.mid", kLin);
  other.selected = false;
  list.Replace(1, other);
  EXPECT_EQ(SelectedRows(list), Indices({1}));
  EXPECT_EQ(list.CheckedCount(), 0);
  EXPECT_EQ(Locations(list), Texts({"/g/z.mid", "/f/b"}));
  EXPECT_FALSE(list.ContainsFile("/f/a"));
  EXPECT_TRUE(list.ContainsFolder("/g/"));
  FileItem selected = RowFor("/g/y.mid", kLin);
  selected.selected = true;
  list.Replace(2, selected);
  EXPECT_EQ(SelectedRows(list), Indices({1}));
}

TEST(FileListSort, ReversesTheOrderOnEveryClickWhicheverColumnItNames) {
  FileList list(kLin);
  AddFiles(list, {"b.x", "a.z", "c.y"});
  list.Sort(Column::kLocation, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/c.y", "/f/b.x", "/f/a.z"})) << "the first click sorts descending";
  list.Sort(Column::kLocation, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/a.z", "/f/b.x", "/f/c.y"})) << "the same header again reverses";
  list.Sort(Column::kType, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/a.z", "/f/c.y", "/f/b.x"})) << "another header after that sorts descending";
  list.Sort(Column::kRenameName, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/a.z", "/f/b.x", "/f/c.y"}));
}

TEST(FileListSort, ComparesTheTextsOfEachColumn) {
  FileList list(kLin);
  const auto add = [&](const std::string& name, const char* title, const char* artist, std::uint64_t size) {
    FileItem row = RowFor("/f/" + name, kLin);
    row.title = title;
    row.artist = artist;
    row.size = size;
    list.Add(row);
  };
  add("1.c", "ん", "b", 20);
  add("2.a", "あ", "c", 100);
  add("3.b", "か", "a", 3);
  const auto order = [&](Column column) {
    list.Sort(column, ByteOrder());
    list.Sort(column, ByteOrder());
    std::string names;
    for (const std::string& location : Locations(list)) names += location[3];
    list.Sort(Column::kLocation, ByteOrder());
    list.Sort(Column::kLocation, ByteOrder());
    return names;
  };
  list.Sort(Column::kLocation, ByteOrder());
  EXPECT_EQ(order(Column::kTitle), "132") << "descending: the number of clicks is odd";
  EXPECT_EQ(order(Column::kArtist), "213");
  EXPECT_EQ(order(Column::kType), "132");
  EXPECT_EQ(order(Column::kSize), "312");
  EXPECT_EQ(order(Column::kRenameName), "321");
  EXPECT_EQ(order(Column::kLocation), "321");
}

TEST(FileListSort, SizesAreComparedAsTexts) {
  FileList list(kLin);
  for (const std::uint64_t size : {9u, 1000u, 20u}) {
    FileItem row = RowFor("/f/" + std::to_string(size), kLin);
    row.size = size;
    list.Add(row);
  }
  list.Sort(Column::kSize, ByteOrder());
  list.Sort(Column::kSize, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/1000", "/f/20", "/f/9"})) << "1,000 before 20 before 9";
}

TEST(FileListSort, IgnoresLetterCaseAndKeepsEqualTextsInTheirOrder) {
  FileList list(kLin);
  AddFiles(list, {"b.x", "B.x", "a.x", "A.x", "b.X"});
  list.Sort(Column::kType, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/b.x", "/f/B.x", "/f/a.x", "/f/A.x", "/f/b.X"}));
  list.Sort(Column::kRenameName, ByteOrder());
  EXPECT_EQ(Locations(list), Texts({"/f/a.x", "/f/A.x", "/f/b.x", "/f/B.x", "/f/b.X"}));
}

/// Shorter texts come first; texts of one length are equal.
class ByLength final : public Collation {
 public:
  [[nodiscard]] std::string KeyOf(std::string_view text) const override { return std::string(text.size(), 'x'); }
};

TEST(FileListSort, UsesTheGivenCollationInWhichDifferentTextsMayBeEqual) {
  FileList list(kLin);
  AddFiles(list, {"ccc", "bb", "aaa", "d", "aa"});
  list.Sort(Column::kLocation, ByLength());
  EXPECT_EQ(Locations(list), Texts({"/f/ccc", "/f/aaa", "/f/bb", "/f/aa", "/f/d"}));
  list.Sort(Column::kLocation, ByLength());
  EXPECT_EQ(Locations(list), Texts({"/f/d", "/f/bb", "/f/aa", "/f/ccc", "/f/aaa"}));
}

TEST(FileListSort, SortsManyTitlesOfWhichSomeAreEqual) {
  constexpr int kRows = 9000;
  FileList list(kLin);
  for (int i = 0; i < kRows; ++i) {
    FileItem row = RowFor("/f/" + std::to_string(i), kLin);
    row.title = std::to_string(i * 7919 % kRows / 3 + 10000);
    list.Add(row);
  }
  list.Sort(Column::kTitle, ByteOrder());
  list.Sort(Column::kTitle, ByteOrder());
  const Texts titles = test::FromEachRow(list, [](const FileRow& row) { return std::string(row.title); });
  EXPECT_TRUE(std::is_sorted(titles.begin(), titles.end()));
}

TEST(FileListSort, RowsAddedLaterGoToTheEnd) {
  FileList list(kLin);
  AddFiles(list, {"b", "c"});
  list.Sort(Column::kLocation, ByteOrder());
  AddFiles(list, {"d", "a"});
  EXPECT_EQ(Locations(list), Texts({"/f/c", "/f/b", "/f/d", "/f/a"}));
}

TEST(FileListSort, TakesChecksAndSelectionAlong) {
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c"});
  list.SelectOnly(1);
  list.SetChecked(2, true);
  EXPECT_EQ(list.FirstCheckedIndex(), 2);
  list.SetChecked(1, true);
  list.Sort(Column::kLocation, ByteOrder());
  EXPECT_EQ(list.SelectedIndex(), 3);
  EXPECT_EQ(CheckedRows(list), Indices({2, 3}));
  EXPECT_EQ(list.FirstCheckedIndex(), 2);
  EXPECT_EQ(list.IndexOf("/f/a"), 3);
}

/// Ends the work at the given question.
class EndingAt final : public Progress {
 public:
  explicit EndingAt(int question) : left_(question) {}
  bool Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) override {
    return Continue();
  }
  bool Continue() override { return --left_ > 0; }
  [[nodiscard]] int Left() const { return left_; }

 private:
  int left_;
};

TEST(FileListSort, AsksBetweenTheRowsAndChangesNothingWhenItIsEnded) {
  FileList list(kLin);
  for (int i = 0; i < 3000; ++i) list.Add(RowFor("/f/" + std::to_string(1000 + i), kLin));
  const Texts before = Locations(list);
  const std::uint64_t revision = list.Revision();
  for (int question = 1; question <= 9; ++question) {
    EndingAt ending(question);
    list.Sort(Column::kLocation, ByteOrder(), &ending);
    EXPECT_EQ(ending.Left(), 0);
    EXPECT_EQ(Locations(list), before);
  }
  EXPECT_EQ(list.Revision(), revision);
  list.Sort(Column::kLocation, ByteOrder());
  EXPECT_EQ(Locations(list), Texts(before.rbegin(), before.rend())) << "the first sort is still a descending one";
}

TEST(FileListIcons, RowsOfOneTypeShareAKey) {
  FileList list(kLin);
  const std::uint32_t midi = list.IconNumber("MIDI");
  const std::uint32_t mp3 = list.IconNumber("MP3");
  EXPECT_NE(midi, mp3);
  EXPECT_EQ(list.IconNumber("MIDI"), midi);
  EXPECT_EQ(FileList::IconKey(7), "ICONKEY7");
  list.Clear();
  EXPECT_EQ(list.IconNumber("MP3"), mp3) << "the image list outlives the rows";
}

struct ObservedList {
  EventLog log;
  ListRecorder recorder{log};
  FileList list{kLin};

  ObservedList() {
    AddFiles(list, {"a", "b", "c"});
    list.SetObserver(&recorder);
  }
};

TEST(FileListObserver, HearsOfEachChangeOnce) {
  struct Case {
    const char* name;
    std::function<void(FileList&)> change;
    Texts expected;
  };
  const std::vector<Case> cases = {
      {"rename name", [](FileList& list) { list.SetRenameName(2, "x"); }, {"row 2"}},
      {"location", [](FileList& list) { list.SetLocation(3, "/f/x"); }, {"row 3"}},
      {"check", [](FileList& list) { list.SetChecked(1, true); }, {"row 1"}},
      {"check as it was", [](FileList& list) { list.SetChecked(1, false); }, {}},
      {"selection", [](FileList& list) { list.SetSelected(2, true); }, {"row 2"}},
      {"selection as it was", [](FileList& list) { list.SetSelected(2, false); }, {}},
      {"selection of nothing where nothing is selected", [](FileList& list) { list.SelectNone(); }, {}},
      {"selection of all", [](FileList& list) { list.SelectAll(); }, {"marks"}},
      {"selection of several",
       [](FileList& list) {
         list.SelectRows({1, 3});
       },
       {"marks"}},
      {"replace", [](FileList& list) { list.Replace(2, RowFor("/f/z", kLin)); }, {"row 2"}},
      {"add", [](FileList& list) { AddFiles(list, {"d"}); }, {"rows"}},
      {"check all", [](FileList& list) { list.CheckAll(); }, {"marks"}},
      {"uncheck all", [](FileList& list) { list.UncheckAll(); }, {"marks"}},
      {"invert", [](FileList& list) { list.InvertChecks(); }, {"marks"}},
      {"sort", [](FileList& list) { list.Sort(Column::kTitle, ByteOrder()); }, {"rows"}},
      {"clear", [](FileList& list) { list.Clear(); }, {"rows"}},
      {"remove", [](FileList& list) { list.RemoveWhere([](int i, const FileRow&) { return i < 3; }); }, {"rows"}},
      {"remove none", [](FileList& list) { list.RemoveWhere([](int, const FileRow&) { return false; }); }, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ObservedList observed;
    c.change(observed.list);
    EXPECT_EQ(observed.log.Events(), c.expected);
  }
}

TEST(FileListObserver, HearsOfALongChangeOnceAtItsEnd) {
  ObservedList observed;
  FileList& list = observed.list;
  list.BeginChanges();
  list.SetChecked(1, true);
  list.BeginChanges();
  AddFiles(list, {"d", "e"});
  list.EndChanges();
  list.RemoveWhere([](int index, const FileRow&) { return index == 2; });
  EXPECT_EQ(observed.log.Events(), Texts());
  list.EndChanges();
  EXPECT_EQ(observed.log.Events(), Texts({"rows"}));
  list.SetChecked(2, true);
  EXPECT_EQ(observed.log.Events(), Texts({"rows", "row 2"}));
}

TEST(FileListObserver, SeesTheListAfterTheChange) {
  struct Looking final : FileListObserver {
    explicit Looking(FileList& observed) : list(observed) {}
    void RowChanged(int index) override { seen.push_back(list.Row(index).checked ? 1 : 0); }
    void RowsChanged() override { seen.push_back(-1); }
    void MarksChanged() override { seen.push_back(list.CheckedCount()); }
    FileList& list;
    Indices seen;
  };
  FileList list(kLin);
  AddFiles(list, {"a", "b", "c"});
  Looking looking(list);
  list.SetObserver(&looking);
  list.SetChecked(2, true);
  list.CheckAll();
  list.SetObserver(nullptr);
  list.UncheckAll();
  EXPECT_EQ(looking.seen, Indices({1, 3}));
}

}  // namespace
}  // namespace quillon
