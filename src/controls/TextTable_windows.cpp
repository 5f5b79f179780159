#include <wx/listctrl.h>

#include <algorithm>
#include <utility>

#include "controls/TextTable.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

class View final : public wxListCtrl {
 public:
  using Cell = std::function<wxString(std::size_t row, std::size_t column)>;

  View(wxWindow& parent, Cell cell)
      : wxListCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL),
        cell_(std::move(cell)) {}

  wxString OnGetItemText(long row, long column) const override {
    return cell_(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
  }

 private:
  Cell cell_;
};

class WindowsTextTable final : public TextTable {
 public:
  WindowsTextTable(wxWindow& parent, const std::vector<Column>& columns, std::size_t rows, const CellText& text)
      : view_(new View(parent, [text](std::size_t row, std::size_t column) { return Shown(text(row, column)); })) {
    for (const Column& column : columns) {
      view_->AppendColumn(ToWx(column.caption), wxLIST_FORMAT_LEFT, column.width * view_->GetTextExtent(ToWx("あ")).x);
    }
    view_->SetItemCount(static_cast<long>(rows));
  }

  wxWindow& Window() override { return *view_; }
  void SetCount(std::size_t rows) override { view_->SetItemCount(static_cast<long>(rows)); }
  void Refresh() override {
    const long top = view_->GetTopItem();
    const long last = std::min(top + view_->GetCountPerPage(), static_cast<long>(view_->GetItemCount()) - 1);
    if (top <= last) view_->RefreshItems(top, last);
  }

 private:
  View* view_;
};

}  // namespace

std::unique_ptr<TextTable> TextTable::Make(wxWindow& parent, const std::vector<Column>& columns, std::size_t rows,
                                           const CellText& text) {
  return std::make_unique<WindowsTextTable>(parent, columns, rows, text);
}

}  // namespace quillon
