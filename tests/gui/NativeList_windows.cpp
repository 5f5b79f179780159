#include <gtest/gtest.h>
#include <wx/listctrl.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"

namespace quillon::test {
namespace {

wxListCtrl& View(lvwFiles& list) {
  return dynamic_cast<wxListCtrl&>(list.Window());
}

}  // namespace

wxRect NativeRowRect(lvwFiles& list, int index) {
  wxRect rect;
  View(list).GetItemRect(index - 1, rect, wxLIST_RECT_LABEL);
  return {View(list).ClientToScreen(rect.GetTopLeft()), rect.GetSize()};
}

std::string SpokenText(lvwFiles& list, int index, Column column) {
  return FromWx(View(list).GetItemText(index - 1, static_cast<int>(column)));
}

bool IsBold(lvwFiles& list, int index) {
  struct Access : wxListCtrl {
    using wxListCtrl::OnGetItemColumnAttr;
  };
  const wxItemAttr* attributes = (View(list).*&Access::OnGetItemColumnAttr)(index - 1, 0);
  if (attributes == nullptr || !attributes->HasFont()) return false;
  // With a font of another encoding wxWidgets would draw the row itself, without its check box.
  EXPECT_EQ(attributes->GetFont().GetEncoding(), wxFONTENCODING_SYSTEM);
  return attributes->GetFont().GetWeight() == wxFONTWEIGHT_BOLD;
}

int NativeCount(lvwFiles& list) {
  return View(list).GetItemCount();
}

std::vector<int> NativeSelection(lvwFiles& list) {
  std::vector<int> rows;
  long row = -1;
  while ((row = View(list).GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) != -1) {
    rows.push_back(static_cast<int>(row) + 1);
  }
  return rows;
}

bool NativeScrollsSideways(lvwFiles& list) {
  return View(list).HasScrollbar(wxHORIZONTAL);
}

int NativeRowCount(wxWindow& table) {
  return dynamic_cast<wxListCtrl&>(table).GetItemCount();
}

std::string NativeCell(wxWindow& table, int row, int column) {
  return FromWx(dynamic_cast<wxListCtrl&>(table).GetItemText(row, column));
}

}  // namespace quillon::test
