#include <gtk/gtk.h>
#include <wx/dataview.h>

#include "controls/WxText.h"
#include "gui/MainWindow.h"

namespace quillon::test {
namespace {

constexpr unsigned kFirstTextColumn = 2;  // behind the check box and the icon

wxDataViewCtrl& View(lvwFiles& list) {
  return dynamic_cast<wxDataViewCtrl&>(list.Window());
}

wxDataViewVirtualListModel& Model(lvwFiles& list) {
  return dynamic_cast<wxDataViewVirtualListModel&>(*View(list).GetModel());
}

}  // namespace

wxRect NativeRowRect(lvwFiles& list, int index) {
  wxDataViewCtrl& view = View(list);
  const wxDataViewItem item = Model(list).GetItem(static_cast<unsigned>(index - 1));
  const wxRect rect = view.GetItemRect(item, view.GetColumn(kFirstTextColumn));
  return {view.ClientToScreen(rect.GetTopLeft()), rect.GetSize()};
}

std::string SpokenText(lvwFiles& list, int index, Column column) {
  wxVariant value;
  Model(list).GetValueByRow(value, static_cast<unsigned>(index - 1), kFirstTextColumn + static_cast<unsigned>(column));
  return FromWx(value.GetString());
}

bool IsBold(lvwFiles& list, int index) {
  wxDataViewItemAttr attributes;
  return Model(list).GetAttrByRow(static_cast<unsigned>(index - 1), kFirstTextColumn, attributes) &&
         attributes.GetBold();
}

int NativeCount(lvwFiles& list) {
  return static_cast<int>(Model(list).GetCount());
}

std::vector<int> NativeSelection(lvwFiles& list) {
  wxDataViewItemArray items;
  View(list).GetSelections(items);
  std::vector<int> rows;
  for (const wxDataViewItem& item : items) rows.push_back(static_cast<int>(Model(list).GetRow(item)) + 1);
  return rows;
}

bool NativeScrollsSideways(lvwFiles& list) {
  auto* const view = reinterpret_cast<GtkScrollable*>(View(list).GtkGetTreeView());
  GtkAdjustment* const range = gtk_scrollable_get_hadjustment(view);
  return gtk_adjustment_get_upper(range) > gtk_adjustment_get_page_size(range);
}

int NativeRowCount(wxWindow& table) {
  const auto& view = dynamic_cast<wxDataViewCtrl&>(table);
  return static_cast<int>(dynamic_cast<const wxDataViewVirtualListModel&>(*view.GetModel()).GetCount());
}

std::string NativeCell(wxWindow& table, int row, int column) {
  const auto& view = dynamic_cast<wxDataViewCtrl&>(table);
  wxVariant value;
  dynamic_cast<const wxDataViewVirtualListModel&>(*view.GetModel())
      .GetValueByRow(value, static_cast<unsigned>(row), static_cast<unsigned>(column));
  return FromWx(value.GetString());
}

}  // namespace quillon::test
