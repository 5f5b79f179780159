#include <wx/imaglist.h>
#include <wx/listctrl.h>
#include <wx/settings.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "controls/WxText.h"
#include "filelist/window/lvwFilesBase.h"

namespace quillon {
namespace {

/// Provides the list view's cells. Rows are 1-based.
class CellSource {
 public:
  virtual ~CellSource() = default;
  enum class For { kEyes, kReading };
  [[nodiscard]] virtual wxString GetText(int index, Column column, For purpose) const = 0;
  /// True when this row's rename name is shown in bold.
  [[nodiscard]] virtual bool IsBold(int index) const = 0;
  [[nodiscard]] virtual int GetIcon(int index) = 0;
  [[nodiscard]] virtual bool GetCheck(int index) const = 0;
};

class RowView : public wxListCtrl {
 public:
  RowView(wxWindow& parent, CellSource& source)
      : wxListCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxLC_VIRTUAL | wxLC_EDIT_LABELS),
        source_(source) {
    MakeFonts();
    Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
      event.Skip();
      CallAfter([this] { MakeFonts(); });
    });
  }

  // Texts that are not painted or edited are asked for by assistive technology.
  wxString OnGetItemText(long row, long column) const override {
    return source_.GetText(static_cast<int>(row) + 1, static_cast<Column>(column),
                           seen_ ? CellSource::For::kEyes : CellSource::For::kReading);
  }
  // The control goes on with the font of the first column unless the others have one of their own.
  wxItemAttr* OnGetItemColumnAttr(long row, long column) const override {
    if (!source_.IsBold(static_cast<int>(row) + 1)) return nullptr;
    return column == 0 ? &bold_ : &plain_;
  }
  int OnGetItemColumnImage(long row, long column) const override {
    return column == 0 ? source_.GetIcon(static_cast<int>(row) + 1) : -1;
  }
  bool OnGetItemIsChecked(long row) const override { return source_.GetCheck(static_cast<int>(row) + 1); }

  /// Starts editing with the text that is seen.
  void StartEditing(long row) {
    seen_ = true;
    EditLabel(row);
    seen_ = false;
  }
  [[nodiscard]] bool IsStartingEdit() const { return seen_; }

 protected:
  WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM first, WXLPARAM second) override {
    constexpr WXUINT kPaint = 0x000F;
    if (message != kPaint) return wxListCtrl::MSWWindowProc(message, first, second);
    seen_ = true;
    const WXLRESULT result = wxListCtrl::MSWWindowProc(message, first, second);
    seen_ = false;
    return result;
  }

 private:
  // With a font of another encoding wxWidgets draws the row itself, without its check box.
  void MakeFonts() {
    wxFont font = GetFont();
    font.SetEncoding(wxFONTENCODING_SYSTEM);
    plain_.SetFont(font);
    bold_.SetFont(font.Bold());
  }

  CellSource& source_;
  mutable wxItemAttr bold_;
  mutable wxItemAttr plain_;
  bool seen_ = false;
};

class WindowsFileList : public lvwFilesBase, private CellSource {
 public:
  WindowsFileList(wxWindow& parent, FileList& list, Handlers handlers);
  ~WindowsFileList() override { Stop(); }
  WindowsFileList(const WindowsFileList&) = delete;
  WindowsFileList& operator=(const WindowsFileList&) = delete;

  wxWindow& Window() override { return *view_; }
  int ColumnWidth(Column column) const override { return view_->GetColumnWidth(static_cast<int>(column)); }
  void SetColumnWidth(Column column, int pixels) override { view_->SetColumnWidth(static_cast<int>(column), pixels); }
  int NeededWidth(Column column) const override;
  int RoomForColumns() const override;
  void ShowRow(int index) override;
  void EditLabel(int index) override;

 protected:
  bool ShowRows(const Changes& changes) override;
  std::vector<int> NativeSelection() const override;
  void SelectNative(const std::vector<int>& rows) override;
  void SelectNativeRow(int index, bool selected) override;
  void SyncSelection() override { TakeSelection(); }
  int FocusedRow() const override {
    return static_cast<int>(view_->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED)) + 1;
  }

 private:
  wxString GetText(int index, Column column, For purpose) const override {
    return purpose == For::kEyes ? CellText(index, column) : SpokenText(index, column);
  }
  bool IsBold(int index) const override { return IsPending(index); }
  int GetIcon(int index) override;
  bool GetCheck(int index) const override { return IsRow(index) && List().Row(index).checked; }

  void AddColumns();
  void NewIcons();
  void BindRows();
  void BindEditing();
  void BindSelection();
  void BindInput();
  [[nodiscard]] int RowAt(wxPoint place) const;
  void OnActivated(wxListEvent& event);
  void OnMenu(wxContextMenuEvent& event);
  void OnMotion(wxMouseEvent& event);
  void TakeSoon();

  RowView* view_;
  wxImageList* images_ = nullptr;  // owned by the view
  std::unordered_map<std::uint32_t, int> icons_;
  bool takingSoon_ = false;
};

WindowsFileList::WindowsFileList(wxWindow& parent, FileList& list, Handlers handlers)
    : lvwFilesBase(list, std::move(handlers)), view_(new RowView(parent, *this)) {
  view_->EnableCheckBoxes();
  NewIcons();
  AddColumns();
  BindRows();
  BindEditing();
  BindSelection();
  BindInput();
  Start(*view_);
}

void WindowsFileList::AddColumns() {
  for (int i = 0; i < kColumnCount; ++i) {
    const auto column = static_cast<Column>(i);
    view_->InsertColumn(i, ToWx(ColumnCaption(column)),
                        column == Column::kSize ? wxLIST_FORMAT_RIGHT : wxLIST_FORMAT_LEFT,
                        view_->FromDIP(FirstWidth(column)));
  }
}

void WindowsFileList::NewIcons() {
  const int pixels = view_->FromDIP(kIconSize);
  icons_.clear();
  images_ = new wxImageList(pixels, pixels);
  view_->AssignImageList(images_, wxIMAGE_LIST_SMALL);
}

int WindowsFileList::GetIcon(int index) {
  if (!IsRow(index)) return -1;
  const auto [found, isNew] = icons_.try_emplace(List().Row(index).iconNumber, -1);
  if (isNew) {
    const wxBitmap icon = IconOf(index, view_->FromDIP(kIconSize));
    if (icon.IsOk()) found->second = images_->Add(icon);
  }
  return found->second;
}

void WindowsFileList::BindRows() {
  const auto toggle = [this](const wxListEvent& event) {
    const int index = static_cast<int>(event.GetIndex()) + 1;
    SetChecked(index, !GetCheck(index));
  };
  view_->Bind(wxEVT_LIST_ITEM_CHECKED, toggle);
  view_->Bind(wxEVT_LIST_ITEM_UNCHECKED, toggle);
  view_->Bind(wxEVT_LIST_ITEM_ACTIVATED, &WindowsFileList::OnActivated, this);
  view_->Bind(wxEVT_LIST_COL_CLICK, [this](const wxListEvent& event) { ClickHeader(event.GetColumn()); });
}

void WindowsFileList::OnActivated(wxListEvent& event) {
  const int index = static_cast<int>(event.GetIndex()) + 1;
  int part = 0;
  view_->HitTest(view_->ScreenToClient(wxGetMousePosition()), part);
  if ((part & wxLIST_HITTEST_ONITEMSTATEICON) != 0 && (part & wxLIST_HITTEST_ONITEMLABEL) == 0) {
    SetChecked(index, !GetCheck(index));  // a double click on the check box counts as two clicks
  } else {
    Activate(index);
  }
}

void WindowsFileList::BindEditing() {
  view_->Bind(wxEVT_LIST_BEGIN_LABEL_EDIT, [this](wxListEvent& event) {
    const int index = static_cast<int>(event.GetIndex()) + 1;
    if (InputEnabled() && IsRow(index) && view_->IsStartingEdit()) {
      BeginEdit(index);
      return;
    }
    event.Veto();
    view_->CallAfter([this, index] { EditLabel(index); });  // a click on the selected name
  });
  view_->Bind(wxEVT_LIST_END_LABEL_EDIT, [this](wxListEvent& event) {
    if (event.IsEditCancelled()) {
      CancelEdit();
    } else {
      EndEdit(event.GetLabel());
    }
    event.Veto();  // the `renamed` handler changes the row's name
  });
}

// Some native selection changes raise no event (a range does not), so the selection is read after every event that may
// have changed it.
void WindowsFileList::BindSelection() {
  const auto onList = [this](wxListEvent& event) {
    TakeSoon();
    event.Skip();
  };
  for (const auto& type : {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED, wxEVT_LIST_ITEM_FOCUSED}) {
    view_->Bind(type, onList);
  }
  const auto onMouse = [this](wxMouseEvent& event) {
    if (event.LeftDown()) TakeClick(RowAt(event.GetPosition()));
    if (InputEnabled()) TakeSoon();
    event.Skip(InputEnabled());
  };
  for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_MIDDLE_DOWN, wxEVT_RIGHT_DOWN,
                           wxEVT_RIGHT_DCLICK, wxEVT_RIGHT_UP}) {
    view_->Bind(type, onMouse);
  }
  view_->Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
    TakeSoon();
    event.Skip();
  });
}

int WindowsFileList::RowAt(wxPoint place) const {
  int part = 0;
  return static_cast<int>(view_->HitTest(place, part)) + 1;
}

void WindowsFileList::TakeSoon() {
  if (takingSoon_ || IsShowing()) return;
  takingSoon_ = true;
  view_->CallAfter([this] {
    takingSoon_ = false;
    TakeSelection();
    Announce();
  });
}

void WindowsFileList::BindInput() {
  view_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (UseKey(event)) return;
    TakeSoon();
    event.Skip();
  });
  // Used here, a character does not get to the list view's own search.
  view_->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) { event.Skip(!UseCharacter(event)); });
  view_->Bind(wxEVT_CONTEXT_MENU, &WindowsFileList::OnMenu, this);
  view_->Bind(wxEVT_MOTION, &WindowsFileList::OnMotion, this);
  view_->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
    event.Skip();
    PointAt(0, Column::kRenameName, 0);
  });
  view_->Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    NewIcons();
    event.Skip();
  });
}

void WindowsFileList::OnMotion(wxMouseEvent& event) {
  event.Skip();
  int part = 0;
  long column = -1;
  const int index = static_cast<int>(view_->HitTest(event.GetPosition(), part, &column)) + 1;
  if (index == 0 || column < 0 || column >= kColumnCount) return PointAt(0, Column::kRenameName, 0);
  PointAt(index, static_cast<Column>(column), view_->GetColumnWidth(static_cast<int>(column)));
}

void WindowsFileList::OnMenu(wxContextMenuEvent& event) {
  if (event.GetPosition() != wxDefaultPosition) {
    WantMenu(event.GetPosition());
    return;
  }
  wxRect row;
  const int focused = FocusedRow();
  const bool known = focused >= 1 && view_->GetItemRect(focused - 1, row, wxLIST_RECT_LABEL);
  const bool visible = known && row.GetTop() >= 0 && row.GetBottom() < view_->GetClientSize().y;
  WantMenu(view_->ClientToScreen(visible ? row.GetBottomLeft() : wxPoint()));
}

int WindowsFileList::NeededWidth(Column column) const {
  constexpr int kAround = 12;  // DIP
  const int text = std::max(view_->GetTextExtent(ToWx(ColumnCaption(column))).x, CellTextWidth(*view_, column));
  return text + view_->FromDIP(kAround);
}

int WindowsFileList::RoomForColumns() const {
  return view_->GetSize().x - view_->GetWindowBorderSize().x - wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, view_);
}

void WindowsFileList::ShowRow(int index) {
  ShowPending();
  if (!IsRow(index)) return;
  view_->SetItemState(index - 1, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
  view_->EnsureVisible(index - 1);
}

void WindowsFileList::EditLabel(int index) {
  if (!InputEnabled() || IsEditing()) return;
  ShowRow(index);
  if (IsRow(index)) view_->StartEditing(index - 1);
}

bool WindowsFileList::ShowRows(const Changes& changes) {
  const bool kept = view_->GetItemCount() == List().Count();
  if (!kept) view_->SetItemCount(List().Count());
  if (kept && !changes.moved && !changes.many) {
    for (const int index : changes.rows) {
      if (IsRow(index)) view_->RefreshItem(index - 1);
    }
  } else {
    view_->Refresh();
  }
  return kept;
}

std::vector<int> WindowsFileList::NativeSelection() const {
  const int count = view_->GetSelectedItemCount();
  std::vector<int> rows;
  rows.reserve(static_cast<std::size_t>(count));
  if (count == view_->GetItemCount()) {  // without a question for each of very many rows
    for (int index = 1; index <= count; ++index) rows.push_back(index);
    return rows;
  }
  long row = -1;
  while ((row = view_->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) != -1) {
    rows.push_back(static_cast<int>(row) + 1);
  }
  return rows;
}

void WindowsFileList::SelectNative(const std::vector<int>& rows) {
  const wxWindowUpdateLocker noUpdates(view_);
  const bool all = static_cast<int>(rows.size()) == view_->GetItemCount();
  view_->SetItemState(-1, all ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);  // -1: every row
  if (all) return;
  for (const int index : rows) SelectNativeRow(index, true);
}

void WindowsFileList::SelectNativeRow(int index, bool selected) {
  view_->SetItemState(index - 1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

}  // namespace

std::unique_ptr<lvwFiles> lvwFiles::Make(wxWindow& parent, FileList& list, Handlers handlers) {
  return std::make_unique<WindowsFileList>(parent, list, std::move(handlers));
}

}  // namespace quillon
