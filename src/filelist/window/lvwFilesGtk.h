#pragma once

#include <wx/dataview.h>

/// The parts of GTK's list: a tree view over a model that only knows the number of rows.
namespace quillon {

/// The view's columns: the check box, the icon, then the six of FileItem.h.
inline constexpr unsigned kCheckColumn = 0;
inline constexpr unsigned kIconColumn = 1;
inline constexpr unsigned kFirstTextColumn = 2;

/// Provides the cells of the tree view's model. Rows are 1-based.
class CellSource {
 public:
  virtual ~CellSource() = default;
  virtual void GetCell(wxVariant& value, int index, unsigned column) = 0;
  /// True when this row's rename name is shown in bold.
  [[nodiscard]] virtual bool IsBold(int index) const = 0;
  virtual void CheckClicked(int index, bool checked) = 0;
};

class RowModel : public wxDataViewVirtualListModel {
 public:
  explicit RowModel(CellSource& source) : source_(source) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    source_.GetCell(value, static_cast<int>(row) + 1, column);
  }

  bool GetAttrByRow(unsigned row, unsigned column, wxDataViewItemAttr& attributes) const override {
    const bool bold = column == kFirstTextColumn && source_.IsBold(static_cast<int>(row) + 1);
    if (bold) attributes.SetBold(true);
    return bold;
  }

  // The view only calls this after a click on the check box; an edited name is handled before.
  bool SetValueByRow(const wxVariant& value, unsigned row, unsigned column) override {
    if (column == kCheckColumn) source_.CheckClicked(static_cast<int>(row) + 1, value.GetBool());
    return false;
  }

 private:
  CellSource& source_;
};

/// A tree view that ends an edit before it is destroyed, because otherwise the editor would call a deleted renderer.
class RowView : public wxDataViewCtrl {
 public:
  explicit RowView(wxWindow& parent)
      : wxDataViewCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_MULTIPLE) {}
  ~RowView() override { StopEditing(); }
  RowView(const RowView&) = delete;
  RowView& operator=(const RowView&) = delete;

  /// Cancels a running edit: setting the cursor does that.
  void StopEditing() {
    const wxDataViewItem item = GetCurrentItem();
    if (item.IsOk()) SetCurrentItem(item);
  }
};

}  // namespace quillon
