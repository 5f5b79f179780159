#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "filelist/FindRows.h"
#include "support/ByteOrder.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using Indices = std::vector<int>;

struct Fixture {
  FileList list{PathStyle::kLinux};
  FindRows rows{list};

  explicit Fixture(const std::vector<std::string>& names) {
    for (const std::string& name : names) list.Add(test::RowFor("/m/" + name + ".xyz", PathStyle::kLinux));
  }

  Indices Found(const std::string& text) {
    rows.SetText(text);
    return Found();
  }
  Indices Found() {
    Indices found;
    for (int index = 1; index <= list.Count(); ++index) {
      const int number = rows.NumberOf(index);
      if (number == 0) continue;
      found.push_back(index);
      EXPECT_EQ(number, static_cast<int>(found.size()));
    }
    EXPECT_EQ(rows.Count(), static_cast<int>(found.size()));
    return found;
  }
};

TEST(FindRows, LooksInEveryColumnAsItIsShown) {
  Fixture f({"a", "b"});
  FileItem row = f.list.Row(2).Item();
  row.renameName = "新しい名前";
  row.title = "夜想曲";
  row.artist = "Ｃｈｏｐｉｎ";
  row.type = GetMediaType("MID");
  row.size = 1234567;
  f.list.Replace(2, row);
  for (const char* const text : {"新しい", "想曲", "chopin", "midi", "1,234,567", "/M/B.XYZ"}) {
    EXPECT_EQ(f.Found(text), Indices({2})) << text;
  }
  EXPECT_EQ(f.Found("1234567"), Indices()) << "the size is shown with its commas";
}

TEST(FindRows, ATextDoesNotReachFromOneColumnIntoTheNext) {
  Fixture f({"a"});
  f.list.SetRenameName(1, "left");
  f.list.SetTexts(1, "right", "か");
  EXPECT_EQ(f.Found("leftright"), Indices());
  EXPECT_EQ(f.Found("left"), Indices({1}));
}

TEST(FindRows, TheEmptyTextIsInNoRow) {
  Fixture f({"a", "b"});
  EXPECT_EQ(f.Found(""), Indices());
  EXPECT_EQ(f.rows.From(1), 0);
  EXPECT_EQ(f.rows.Next(1), 0);
  EXPECT_EQ(f.rows.Previous(1), 0);
}

TEST(FindRows, GoesFromRowToRowAndOnFromTheOtherEnd) {
  Fixture f({"x1", "a", "x2", "b", "x3"});
  f.rows.SetText("X");
  EXPECT_EQ(f.rows.Count(), 5) << "it is in the extension, too";
  f.rows.SetText("/x");
  EXPECT_EQ(f.rows.Count(), 3);
  EXPECT_EQ(f.rows.From(1), 1);
  EXPECT_EQ(f.rows.From(2), 3);
  EXPECT_EQ(f.rows.Next(1), 3);
  EXPECT_EQ(f.rows.Next(5), 1);
  EXPECT_EQ(f.rows.Next(4), 5);
  EXPECT_EQ(f.rows.Previous(5), 3);
  EXPECT_EQ(f.rows.Previous(1), 5);
  EXPECT_EQ(f.rows.Previous(4), 3);
  EXPECT_EQ(f.rows.Next(0), 1) << "no row is selected";
  EXPECT_EQ(f.rows.Previous(0), 5);
}

TEST(FindRows, FollowsATextThatGrowsShrinksAndChanges) {
  Fixture f({"aa", "ab", "abc", "b"});
  EXPECT_EQ(f.Found("a"), Indices({1, 2, 3}));
  EXPECT_EQ(f.Found("ab"), Indices({2, 3}));
  EXPECT_EQ(f.Found("abc"), Indices({3}));
  EXPECT_EQ(f.Found("ab"), Indices({2, 3}));
  EXPECT_EQ(f.Found("/b"), Indices({4}));
  EXPECT_EQ(f.Found("/ab"), Indices({2, 3})) << "it has grown in the middle: these rows were not found before";
  EXPECT_EQ(f.Found(""), Indices());
  EXPECT_EQ(f.Found("c"), Indices({3}));
}

TEST(FindRows, FollowsEveryChangeOfTheRows) {
  Fixture f({"a1", "a2", "b1"});
  EXPECT_EQ(f.Found("/a"), Indices({1, 2}));
  f.list.Add(test::RowFor("/m/a3.mid", PathStyle::kLinux));
  EXPECT_EQ(f.Found(), Indices({1, 2, 4}));
  f.list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  EXPECT_EQ(f.Found(), Indices({1, 3}));
  f.list.Sort(Column::kLocation, test::ByteOrder());
  EXPECT_EQ(f.Found(), Indices({2, 3})) << "in descending order";
  f.list.Sort(Column::kLocation, test::ByteOrder());
  EXPECT_EQ(f.Found(), Indices({1, 2})) << "in rising order";
  f.list.Sort(Column::kLocation, test::ByteOrder());
  EXPECT_EQ(f.Found(), Indices({2, 3}));
  f.list.SetLocation(1, "/m/a9.mid");
  EXPECT_EQ(f.Found(), Indices({1, 2, 3}));
  f.list.SetRenameName(3, "/a new");
  f.list.SetLocation(3, "/m/c.mid");
  EXPECT_EQ(f.Found(), Indices({1, 2, 3}));
  f.list.SetRenameName(3, "new");
  EXPECT_EQ(f.Found(), Indices({1, 2}));
  f.list.SetTexts(3, "/a", "---");
  EXPECT_EQ(f.Found(), Indices({1, 2, 3}));
  f.list.Replace(3, test::RowFor("/m/d.mid", PathStyle::kLinux));
  EXPECT_EQ(f.Found(), Indices({1, 2}));
  f.list.Clear();
  EXPECT_EQ(f.Found(), Indices());
}

TEST(FindRows, FollowsEditsThatAreUndone) {
  Fixture f({"a1", "b1"});
  f.list.Edits().Begin(EditHistory::Merging::kNever);
  f.list.SetRenameName(2, "new");
  f.list.Edits().End();
  EXPECT_EQ(f.Found("new"), Indices({2}));
  (void)f.list.UndoEdits();
  EXPECT_EQ(f.Found(), Indices());
  (void)f.list.RedoEdits();
  EXPECT_EQ(f.Found(), Indices({2}));
}

TEST(FindRows, ChecksAndSelectionAreNoChangeOfTheRows) {
  Fixture f({"a1", "a2"});
  const std::uint64_t before = f.list.Revision();
  f.list.SetChecked(1, true);
  f.list.InvertChecks();
  f.list.SelectOnly(2);
  f.list.SelectNone();
  EXPECT_EQ(f.list.Revision(), before);
}

}  // namespace
}  // namespace quillon
