#include <wx/bmpbndl.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "controls/WxText.h"
#include "filelist/window/lvwFilesBase.h"
#include "filelist/window/lvwFilesGtk.h"
#include "platform/desktop/CellEditor.h"
#include "platform/desktop/RowPress.h"
#include "platform/desktop/TreeColumn.h"
#include "platform/desktop/TreeDrawing.h"

namespace quillon {
namespace {

/// From this number on, only those selected rows that come into view are selected in the view itself. It takes about
/// a microsecond for each selected row, when it is selected, when it is deselected and when anything is read.
constexpr std::size_t kManySelected = 1000;

class GtkFileList : public lvwFilesBase, private CellSource {
 public:
  GtkFileList(wxWindow& parent, FileList& list, Handlers handlers);
  ~GtkFileList() override { Stop(); }
  GtkFileList(const GtkFileList&) = delete;
  GtkFileList& operator=(const GtkFileList&) = delete;

  wxWindow& Window() override { return *view_; }
  int ColumnWidth(Column column) const override;
  void SetColumnWidth(Column column, int pixels) override;
  int NeededWidth(Column column) const override;
  int RoomForColumns() const override;
  void ShowRow(int index) override;
  void EditLabel(int index) override;

 protected:
  bool ShowRows(const Changes& changes) override;
  std::vector<int> NativeSelection() const override;
  void SelectNative(const std::vector<int>& rows) override;
  void SelectNativeRow(int index, bool selected) override;
  int FocusedRow() const override { return RowOf(view_->GetCurrentItem()); }

 private:
  void GetCell(wxVariant& value, int index, unsigned column) override;
  bool IsBold(int index) const override { return IsPending(index); }
  void CheckClicked(int index, bool checked) override { SetChecked(index, checked); }

  void AddColumns();
  void BindRows();
  void BindEditing();
  void BindInput();
  void BeginOrRefuse(wxDataViewEvent& event);
  void OnMotion(wxMouseEvent& event);
  void OnKeyDown(wxKeyEvent& event);
  void OnMenuKey(wxContextMenuEvent& event);
  bool AdaptCount();
  void SelectOneByOne(const std::vector<int>& rows);
  void SelectInView();
  void SelectWhole();
  void ResetRows(int count);
  const wxVariant& Icon(int index);

  [[nodiscard]] static int RowOf(const wxDataViewItem& item) {
    return static_cast<int>(wxPtrToUInt(item.GetID()));  // a virtual model's items are its rows from 1
  }
  [[nodiscard]] wxDataViewItem ItemOf(int index) const { return model_->GetItem(static_cast<unsigned>(index - 1)); }
  [[nodiscard]] wxDataViewColumn* ViewColumn(Column column) const {
    return view_->GetColumn(kFirstTextColumn + static_cast<unsigned>(column));
  }

  wxObjectDataPtr<RowModel> model_;
  RowView* view_;
  wxDataViewTextRenderer* nameRenderer_ = nullptr;
  std::optional<CellEditor> editor_;  // of nameRenderer_
  std::unordered_map<std::uint32_t, wxVariant> icons_;
  // The rows that were painted or read aloud since they last changed. The others need no refresh, because the view has
  // not asked for their contents.
  std::unordered_set<int> asked_;
  bool seen_ = false;        // the cells that are asked for are drawn or edited, not read aloud
  bool onlyInView_ = false;  // many rows are selected, and the view knows of those only that were in sight
};

GtkFileList::GtkFileList(wxWindow& parent, FileList& list, Handlers handlers)
    : lvwFilesBase(list, std::move(handlers)), model_(new RowModel(*this)), view_(new RowView(parent)) {
  view_->AssociateModel(model_.get());
  AddColumns();
  BindRows();
  BindEditing();
  BindInput();
  Start(*view_);
}

void GtkFileList::AddColumns() {
  constexpr int kLeft = wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL;
  constexpr int kRight = wxALIGN_RIGHT | wxALIGN_CENTRE_VERTICAL;
  auto* check = new wxDataViewToggleRenderer("bool", wxDATAVIEW_CELL_ACTIVATABLE, wxALIGN_CENTRE);
  view_->AppendColumn(new wxDataViewColumn(wxString(), check, kCheckColumn, view_->FromDIP(30), wxALIGN_CENTRE, 0));
  auto* icon = new wxDataViewBitmapRenderer("wxBitmapBundle", wxDATAVIEW_CELL_INERT, wxALIGN_CENTRE);
  view_->AppendColumn(new wxDataViewColumn(wxString(), icon, kIconColumn, view_->FromDIP(28), wxALIGN_CENTRE, 0));
  for (int i = 0; i < kColumnCount; ++i) {
    const auto column = static_cast<Column>(i);
    const bool isName = column == Column::kRenameName;
    const bool isNumber = column == Column::kSize;
    // Only a renderer that was created editable can be edited. It is inert except while EditLabel uses it.
    auto* text = new wxDataViewTextRenderer("string", isName ? wxDATAVIEW_CELL_EDITABLE : wxDATAVIEW_CELL_INERT,
                                            isNumber ? kRight : kLeft);
    text->SetMode(wxDATAVIEW_CELL_INERT);
    text->EnableEllipsize(wxELLIPSIZE_END);
    if (isName) nameRenderer_ = text;
    view_->AppendColumn(new wxDataViewColumn(
        ToWx(ColumnCaption(column)), text, kFirstTextColumn + static_cast<unsigned>(i),
        view_->FromDIP(FirstWidth(column)), isNumber ? wxALIGN_RIGHT : wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE));
  }
}

void GtkFileList::BindRows() {
  view_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](const wxDataViewEvent& event) {
    if (IsShowing()) return;
    onlyInView_ = false;  // a new selection: what adds to the old one is preceded by SelectWhole
    if (event.GetItem().IsOk()) {
      TakeSelection({RowOf(event.GetItem())});  // the only selected row
    } else {
      TakeSelection();
    }
    AnnounceSoon();
  });
  view_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    const wxDataViewColumn* column = event.GetDataViewColumn();
    if (column != nullptr && column->GetModelColumn() == kCheckColumn) return;
    Activate(RowOf(event.GetItem()));
  });
  view_->Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, [this](wxDataViewEvent& event) {
    const wxDataViewColumn* column = event.GetDataViewColumn();
    if (column == nullptr) return;
    ClickHeader(static_cast<int>(column->GetModelColumn()) - static_cast<int>(kFirstTextColumn));
  });
  view_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](wxDataViewEvent& event) {
    if (!InputEnabled()) return;
    if (event.GetItem().IsOk()) view_->SetCurrentItem(event.GetItem());
    WantMenu(wxGetMousePosition());
  });
}

void GtkFileList::BindEditing() {
  editor_.emplace(nameRenderer_->GetGtkHandle());
  view_->Bind(wxEVT_DATAVIEW_ITEM_START_EDITING, &GtkFileList::BeginOrRefuse, this);
  view_->Bind(wxEVT_DATAVIEW_ITEM_EDITING_DONE, [this](wxDataViewEvent& event) {
    nameRenderer_->SetMode(wxDATAVIEW_CELL_INERT);
    const std::optional<std::string> left = event.IsEditCancelled() ? editor_->TypedText() : std::nullopt;
    if (left) {
      EndEdit(ToWx(*left));  // the edit was ended by a click elsewhere, which keeps the typed text
    } else if (event.IsEditCancelled()) {
      CancelEdit();
    } else {
      EndEdit(event.GetValue().GetString());
    }
    event.Veto();  // the `renamed` handler changes the row's name
  });
}

void GtkFileList::BeginOrRefuse(wxDataViewEvent& event) {
  if (InputEnabled()) {
    BeginEdit(RowOf(event.GetItem()));
  } else {
    event.Veto();
  }
}

void GtkFileList::BindInput() {
  view_->Bind(wxEVT_KEY_DOWN, &GtkFileList::OnKeyDown, this);
  view_->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) { event.Skip(!UseCharacter(event)); });
  view_->Bind(wxEVT_CONTEXT_MENU, &GtkFileList::OnMenuKey, this);
  const auto ignoreWhileBusy = [this](wxMouseEvent& event) { event.Skip(InputEnabled()); };
  for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_MIDDLE_DOWN, wxEVT_RIGHT_DOWN}) {
    view_->Bind(type, ignoreWhileBusy);
  }
  view_->Bind(wxEVT_MOTION, &GtkFileList::OnMotion, this);
  view_->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
    event.Skip();
    PointAt(0, Column::kRenameName, 0);
  });
  OnTreeDrawing(view_->GtkGetTreeView(), [this](bool drawing) {
    if (drawing) SelectInView();
    seen_ = drawing;
  });
  OnRowPress(view_->GtkGetTreeView(), [this](int index, bool toggles) {
    if (toggles && InputEnabled()) SelectWhole();
    TakeClick(index);
    AnnounceSoon();
  });
}

void GtkFileList::OnMotion(wxMouseEvent& event) {
  event.Skip();
  wxDataViewItem item;
  wxDataViewColumn* column = nullptr;
  view_->HitTest(event.GetPosition(), item, column);
  const bool isText = item.IsOk() && column != nullptr && column->GetModelColumn() >= kFirstTextColumn;
  if (!isText) return PointAt(0, Column::kRenameName, 0);
  PointAt(RowOf(item), static_cast<Column>(column->GetModelColumn() - kFirstTextColumn), column->GetWidth());
}

// The tree view's own search box looks through every row's first column. Characters would open it; they are used before
// it gets them.
void GtkFileList::OnKeyDown(wxKeyEvent& event) {
  if (UseKey(event)) return;
  if (InputEnabled() && event.ControlDown() && event.GetKeyCode() != WXK_CONTROL) SelectWhole();
  event.Skip(IsEditing() || event.GetModifiers() != wxMOD_CONTROL || event.GetKeyCode() != 'F');
}

void GtkFileList::OnMenuKey(wxContextMenuEvent& event) {
  if (event.GetPosition() != wxDefaultPosition) {  // a click: the view sends its own event, with the row
    event.StopPropagation();
    event.Skip();
    return;
  }
  const wxDataViewItem item = view_->GetCurrentItem();
  const wxRect row = item.IsOk() ? view_->GetItemRect(item, ViewColumn(Column::kRenameName)) : wxRect();
  WantMenu(view_->ClientToScreen(row.IsEmpty() ? wxPoint() : row.GetBottomLeft()));
}

int GtkFileList::ColumnWidth(Column column) const {
  return SetWidthOfColumn(view_->GtkGetTreeView(), static_cast<int>(kFirstTextColumn) + static_cast<int>(column));
}

void GtkFileList::SetColumnWidth(Column column, int pixels) {
  ViewColumn(column)->SetWidth(pixels);
}

// GTK's themes write headings in bold.
int GtkFileList::NeededWidth(Column column) const {
  constexpr int kAround = 16;     // DIP
  constexpr int kAroundCell = 8;  // DIP
  wxCoord width = 0;
  wxCoord height = 0;
  const wxFont bold = view_->GetFont().Bold();
  view_->GetTextExtent(ViewColumn(column)->GetTitle(), &width, &height, nullptr, nullptr, &bold);
  const int cell = CellTextWidth(*view_, column);
  return std::max(width + view_->FromDIP(kAround), cell > 0 ? cell + view_->FromDIP(kAroundCell) : 0);
}

int GtkFileList::RoomForColumns() const {
  const int around = view_->GetWindowBorderSize().x + std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, view_), 0);
  return view_->GetSize().x - around - view_->GetColumn(kCheckColumn)->GetWidth() -
         view_->GetColumn(kIconColumn)->GetWidth();
}

void GtkFileList::ShowRow(int index) {
  ShowPending();
  if (!IsRow(index)) return;
  view_->SetCurrentItem(ItemOf(index));
  view_->EnsureVisible(ItemOf(index));
}

void GtkFileList::EditLabel(int index) {
  if (!InputEnabled() || IsEditing()) return;
  ShowPending();
  if (!IsRow(index)) return;
  nameRenderer_->SetMode(wxDATAVIEW_CELL_EDITABLE);
  seen_ = true;
  view_->EditItem(ItemOf(index), ViewColumn(Column::kRenameName));
  seen_ = false;
  if (!IsEditing()) nameRenderer_->SetMode(wxDATAVIEW_CELL_INERT);
}

bool GtkFileList::ShowRows(const Changes& changes) {
  const bool kept = AdaptCount();
  std::vector<int> changed = changes.rows;
  if (changes.moved || changes.many) {
    changed.assign(asked_.begin(), asked_.end());
    asked_.clear();
  }
  for (const int index : changed) {
    if (index <= static_cast<int>(model_->GetCount())) model_->RowChanged(static_cast<unsigned>(index - 1));
  }
  view_->Refresh();
  return kept;
}

/// Adds or removes a few rows at the end one by one. A reset loses the place in the list, and costs about a tenth of
/// such a step for every row that stays.
bool GtkFileList::AdaptCount() {
  const int count = List().Count();
  const int shown = static_cast<int>(model_->GetCount());
  if (count == shown) return true;
  if (count == 0 || std::abs(count - shown) > std::max(1000, shown / 10)) {
    ResetRows(count);
    return false;
  }
  for (int i = shown; i < count; ++i) model_->RowAppended();
  for (int i = shown; i > count; --i) model_->RowDeleted(static_cast<unsigned>(i - 1));
  return count > shown;
}

void GtkFileList::ResetRows(int count) {
  const int focused = RowOf(view_->GetCurrentItem());
  const int top = RowOf(view_->GetTopItem());
  asked_.clear();
  model_->Reset(static_cast<unsigned>(count));
  if (focused >= 1 && focused <= count) view_->SetCurrentItem(ItemOf(focused));
  if (top > 1 && top <= count) view_->EnsureVisible(ItemOf(top));
}

std::vector<int> GtkFileList::NativeSelection() const {
  wxDataViewItemArray items;
  view_->GetSelections(items);
  std::vector<int> rows;
  rows.reserve(items.size());
  for (const wxDataViewItem& item : items) rows.push_back(RowOf(item));
  return rows;
}

void GtkFileList::SelectNative(const std::vector<int>& rows) {
  onlyInView_ = rows.size() >= kManySelected;
  if (onlyInView_) {
    view_->Refresh();
  } else {
    SelectOneByOne(rows);
  }
}

void GtkFileList::SelectOneByOne(const std::vector<int>& rows) {
  if (rows.size() == model_->GetCount()) {
    view_->SelectAll();
    return;
  }
  wxDataViewItemArray items;
  items.reserve(rows.size());
  for (const int index : rows) items.push_back(ItemOf(index));
  view_->SetSelections(items);
}

// Called whenever the view draws itself.
void GtkFileList::SelectInView() {
  if (!onlyInView_) return;
  const auto [first, last] = RowsInView(view_->GtkGetTreeView());
  for (int index = first + 1; index <= last + 1 && IsRow(index); ++index) {
    const bool selected = List().Row(index).selected;
    if (view_->IsSelected(ItemOf(index)) != selected) SelectNativeRow(index, selected);
  }
}

// Call it before the user adds to the selection or takes from it.
void GtkFileList::SelectWhole() {
  if (!onlyInView_) return;
  ShowPending();
  onlyInView_ = false;
  SelectOneByOne(List().SelectedRows());
}

void GtkFileList::SelectNativeRow(int index, bool selected) {
  if (selected) {
    view_->Select(ItemOf(index));
  } else {
    view_->Unselect(ItemOf(index));
  }
}

void GtkFileList::GetCell(wxVariant& value, int index, unsigned column) {
  if (!IsRow(index)) return;
  asked_.insert(index);
  if (column == kCheckColumn) {
    value = List().Row(index).checked;
  } else if (column == kIconColumn) {
    value = Icon(index);
  } else {
    const auto text = static_cast<Column>(column - kFirstTextColumn);
    value = seen_ ? CellText(index, text) : SpokenText(index, text);
  }
}

const wxVariant& GtkFileList::Icon(int index) {
  const auto [found, isNew] = icons_.try_emplace(List().Row(index).iconNumber);
  if (!isNew) return found->second;
  const int size = view_->FromDIP(kIconSize);
  const int pixels = view_->ToPhys(size);
  wxVector<wxBitmap> bitmaps;
  const wxBitmap plain = IconOf(index, size);
  if (plain.IsOk()) bitmaps.push_back(plain);
  const wxBitmap sharp = pixels == size ? wxBitmap() : IconOf(index, pixels);
  if (sharp.IsOk()) bitmaps.push_back(sharp);
  found->second << wxBitmapBundle::FromBitmaps(bitmaps);
  return found->second;
}

}  // namespace

std::unique_ptr<lvwFiles> lvwFiles::Make(wxWindow& parent, FileList& list, Handlers handlers) {
  return std::make_unique<GtkFileList>(parent, list, std::move(handlers));
}

}  // namespace quillon
