#include <wx/dataview.h>

#include <unordered_set>
#include <utility>

#include "controls/TextTable.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

class Model final : public wxDataViewVirtualListModel {
 public:
  using Cell = std::function<wxString(std::size_t row, std::size_t column)>;

  Model(std::size_t rows, Cell cell)
      : wxDataViewVirtualListModel(static_cast<unsigned>(rows)), cell_(std::move(cell)) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    asked_.insert(row);
    value = cell_(row, column);
  }
  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

  void SetCount(unsigned rows) {
    while (GetCount() < rows) RowAppended();
    for (unsigned last = GetCount(); last > rows; --last) {
      RowDeleted(last - 1);
      asked_.erase(last - 1);
    }
  }

  void RefreshAsked() {
    for (const unsigned row : std::exchange(asked_, {})) RowChanged(row);
  }

 private:
  Cell cell_;
  // The view asks again for a row only when told to; it has not asked for the others.
  mutable std::unordered_set<unsigned> asked_;
};

class GtkTextTable final : public TextTable {
 public:
  GtkTextTable(wxWindow& parent, const std::vector<Column>& columns, std::size_t rows, const CellText& text)
      : model_(new Model(rows, [text](std::size_t row, std::size_t column) { return Shown(text(row, column)); })),
        view_(new wxDataViewCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE)) {
    view_->AssociateModel(model_.get());
    unsigned number = 0;
    for (const Column& column : columns) {
      auto* renderer = new wxDataViewTextRenderer("string", wxDATAVIEW_CELL_INERT, wxALIGN_LEFT);
      renderer->EnableEllipsize(wxELLIPSIZE_END);
      view_->AppendColumn(new wxDataViewColumn(ToWx(column.caption), renderer, number++,
                                               column.width * view_->GetTextExtent(ToWx("あ")).x, wxALIGN_LEFT,
                                               wxDATAVIEW_COL_RESIZABLE));
    }
  }

  wxWindow& Window() override { return *view_; }
  void SetCount(std::size_t rows) override { model_->SetCount(static_cast<unsigned>(rows)); }
  void Refresh() override { model_->RefreshAsked(); }

 private:
  wxObjectDataPtr<Model> model_;
  wxDataViewCtrl* view_;
};

}  // namespace

std::unique_ptr<TextTable> TextTable::Make(wxWindow& parent, const std::vector<Column>& columns, std::size_t rows,
                                           const CellText& text) {
  return std::make_unique<GtkTextTable>(parent, columns, rows, text);
}

}  // namespace quillon
