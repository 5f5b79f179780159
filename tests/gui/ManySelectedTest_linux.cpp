#include <wx/dataview.h>

#include <algorithm>
#include <numeric>

#include "gui/MainWindow.h"
#include "gui/Settle.h"

namespace quillon::test {
namespace {

constexpr int kRows = 5000;
constexpr std::size_t kMostInView = 200;

/// GTK's list takes a microsecond for each selected row. Of very many it is only told of those in view.
class ManySelectedOnGtk : public MainWindowTest {
 protected:
  void OpenRows() {
    Open(Options());
    List().BeginChanges();
    for (int i = 0; i < kRows; ++i) {
      FileItem row;
      row.location = folder.At(std::to_string(i) + ".mid");
      List().Add(row);
    }
    List().EndChanges();
    Drain();
    ClickRow(1);
    EXPECT_EQ(SelectedRows(), std::vector{1});
  }

  void SelectAll() const {
    Key('A', wxMOD_CONTROL);
    Settle();
  }

  static std::vector<int> AllBut(int without) {
    std::vector<int> rows(kRows);
    std::iota(rows.begin(), rows.end(), 1);
    std::erase(rows, without);
    return rows;
  }

  [[nodiscard]] std::vector<int> InList() const { return NativeSelection(Frame().List()); }

  [[nodiscard]] bool IsSeen(int index) const {
    const std::vector<int> selected = InList();
    return std::binary_search(selected.begin(), selected.end(), index);
  }

  void ExpectSeen(int first, int last) const {
    for (int index = first; index <= last; ++index) {
      EXPECT_TRUE(Until([&] { return IsSeen(index); })) << index;
    }
    EXPECT_LT(InList().size(), kMostInView);
  }
};

TEST_F(ManySelectedOnGtk, RowsAreSelectedInTheListWhenTheyComeIntoView) {
  OpenRows();
  SelectAll();
  EXPECT_EQ(List().SelectedCount(), kRows);
  ExpectSeen(1, 5);
  Frame().List().ShowRow(kRows);
  Settle();
  ExpectSeen(kRows - 3, kRows);
  EXPECT_EQ(List().SelectedCount(), kRows);
}

TEST_F(ManySelectedOnGtk, AnArrowKeySelectsOneRow) {
  OpenRows();
  SelectAll();
  Key(WXK_DOWN);
  Settle();
  EXPECT_EQ(SelectedRows(), std::vector{2});
  EXPECT_EQ(InList(), std::vector{2});
}

TEST_F(ManySelectedOnGtk, AClickWithControlTakesOneRowFromAll) {
  OpenRows();
  SelectAll();
  wxUIActionSimulator hand;
  hand.KeyDown(WXK_CONTROL);
  ClickRow(3);
  hand.KeyUp(WXK_CONTROL);
  Settle();
  EXPECT_EQ(SelectedRows(), AllBut(3));
}

TEST_F(ManySelectedOnGtk, TheSelectionChosenByTheProgramReplacesIt) {
  OpenRows();
  SelectAll();
  List().SelectOnly(7);
  Settle();
  EXPECT_EQ(InList(), std::vector{7});
  List().SelectRows(AllBut(2));
  Settle();
  ExpectSeen(3, 5);
  EXPECT_FALSE(IsSeen(2));
}

}  // namespace
}  // namespace quillon::test
