#include <wx/dnd.h>
#include <wx/image.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "base/Text.h"
#include "controls/WxText.h"
#include "filelist/window/lvwFilesBase.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

bool BreaksLine(wxUniChar character) {
  const wxUint32 code = character.GetValue();
  return (code >= '\t' && code <= '\r') || code == 0x85 || code == 0x2028 || code == 0x2029;
}

wxString OnOneLine(wxString text) {
  if (std::none_of(text.begin(), text.end(), [](wxUniChar c) { return BreaksLine(c); })) return text;
  std::replace_if(
      text.begin(), text.end(), [](wxUniChar c) { return BreaksLine(c); }, wxUniChar(' '));
  return text;
}

/// The numbers that only one of two ascending sequences contains.
std::vector<int> Difference(const std::vector<int>& left, const std::vector<int>& right) {
  std::vector<int> difference;
  std::set_symmetric_difference(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(difference));
  return difference;
}

}  // namespace

/// Accepts file names only. They are handled when the drag is over, because the program that they come from waits.
class lvwFilesBase::DropTarget : public wxFileDropTarget {
 public:
  explicit DropTarget(lvwFilesBase& owner) : owner_(owner) {}

  wxDragResult OnEnter(wxCoord x, wxCoord y, wxDragResult proposed) override {
    Tell(owner_.inputEnabled_);
    return OnDragOver(x, y, proposed);
  }

  wxDragResult OnDragOver(wxCoord, wxCoord, wxDragResult proposed) override {
    return owner_.inputEnabled_ ? proposed : wxDragNone;
  }

  void OnLeave() override { Tell(false); }

  bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& paths) override {
    Tell(false);
    if (!owner_.inputEnabled_ || !owner_.handlers_.dropped) return false;
    owner_.window_->CallAfter([&owner = owner_, paths] {
      if (owner.inputEnabled_) owner.handlers_.dropped(paths);
    });
    return true;
  }

 private:
  void Tell(bool over) const {
    if (owner_.handlers_.dragged) owner_.handlers_.dragged(over);
  }

  lvwFilesBase& owner_;
};

lvwFilesBase::lvwFilesBase(FileList& list, Handlers handlers) : list_(list), handlers_(std::move(handlers)) {}

int lvwFilesBase::FirstWidth(Column column) {
  static constexpr std::array<int, kColumnCount> kWidths = {240, 180, 140, 120, 90, 300};
  return kWidths.at(static_cast<std::size_t>(column));
}

int lvwFilesBase::CellTextWidth(const wxWindow& window, Column column) {
  if (column != Column::kType) return 0;
  int widest = 0;
  for (const char* type : {"MIDI", "MPEG", "WAVE", "HTML"}) widest = std::max(widest, window.GetTextExtent(type).x);
  return widest;
}

void lvwFilesBase::Start(wxWindow& window) {
  window_ = &window;
  window.SetName("lvwFiles");
  window.SetDropTarget(MakeDropTarget());
  RowsChanged();
}

wxDropTarget* lvwFilesBase::MakeDropTarget() {
  return new DropTarget(*this);
}

void lvwFilesBase::Stop() {
  if (window_) window_->Destroy();
}

void lvwFilesBase::RowChanged(int index) {
  if (taking_) return;
  if (!pending_.many && pending_.rows.size() < kFewRows) {
    pending_.rows.push_back(index);
  } else {
    pending_.many = true;
  }
  ShowSoon();
}

void lvwFilesBase::MarksChanged() {
  if (taking_) return;
  pending_.many = true;
  ShowSoon();
}

void lvwFilesBase::RowsChanged() {
  pending_.moved = true;
  ShowSoon();
}

void lvwFilesBase::ShowSoon() {
  if (scheduled_ || !window_) return;
  scheduled_ = true;
  window_->CallAfter([this] {
    scheduled_ = false;
    ShowPending();
  });
}

void lvwFilesBase::ShowPending() {
  if (!window_ || showing_) return;
  if (!pending_.moved && !pending_.many && pending_.rows.empty()) return;
  const Changes changes = std::exchange(pending_, {});
  showing_ = true;
  ShowSelection(ShowRows(changes), changes);
  showing_ = false;
}

void lvwFilesBase::ShowSelection(bool kept, const Changes& changes) {
  if (!kept) shown_ = NativeSelection();
  if (kept && !changes.moved && !changes.many &&
      std::none_of(changes.rows.begin(), changes.rows.end(), [this](int index) {
        return IsRow(index) && list_.Row(index).selected != std::binary_search(shown_.begin(), shown_.end(), index);
      })) {
    return;
  }
  std::vector<int> wanted = list_.SelectedRows();
  const std::vector<int> changed = Difference(shown_, wanted);
  if (changed.size() > kFewRows) {
    SelectNative(wanted);
  } else {
    for (const int index : changed) {
      if (IsRow(index)) SelectNativeRow(index, list_.Row(index).selected);
    }
  }
  shown_ = std::move(wanted);
}

void lvwFilesBase::TakeSelection(std::vector<int> native) {
  if (showing_ || native == shown_) return;
  shown_ = std::move(native);
  if (inputEnabled_ && !pending_.moved) {
    PutSelection(shown_);
    announcing_ = true;
  } else {
    // Input is disabled, or rows have moved since the user selected them: the FileList's selection stays.
    pending_.many = true;
    ShowSoon();
  }
}

void lvwFilesBase::PutSelection(const std::vector<int>& rows) {
  const std::vector<int> changed = Difference(list_.SelectedRows(), rows);
  taking_ = true;
  if (changed.size() > kFewRows && (rows.empty() || IsRow(rows.back()))) {
    list_.SelectRows(rows);
  } else {
    for (const int index : changed) {
      if (IsRow(index)) list_.SetSelected(index, !list_.Row(index).selected);
    }
  }
  taking_ = false;
}

void lvwFilesBase::TakeClick(int index) {
  if (inputEnabled_ && !pending_.moved && IsRow(index) && list_.Row(index).selected) announcing_ = true;
}

void lvwFilesBase::AnnounceSoon() {
  if (announcing_) window_->CallAfter([this] { Announce(); });
}

void lvwFilesBase::Announce() {
  if (!std::exchange(announcing_, false)) return;
  if (inputEnabled_ && handlers_.selectionChanged) handlers_.selectionChanged();
}

bool lvwFilesBase::UseKey(wxKeyEvent& event) {
  if (IsEditing()) return false;
  if (!inputEnabled_) return !event.AltDown();  // the window's own keys go on to it
  SyncSelection();
  Announce();
  const int key = event.GetKeyCode();
  if ((event.GetModifiers() & ~wxMOD_SHIFT) == 0 && key == WXK_SPACE) {
    const bool inText = typeAhead_.IsGoingOn(TypeAhead::Clock::now()) && TypeAheadBy(" ");
    if (!inText && event.GetModifiers() == wxMOD_NONE) ToggleChecks();
    return true;
  }
  if (event.GetModifiers() == wxMOD_NONE && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)) {
    Activate(FocusedRow());
    return true;
  }
  if (event.GetModifiers() == wxMOD_CONTROL && key == 'A') {
    SelectAll();
    return true;
  }
  return handlers_.keyPressed && handlers_.keyPressed(event);
}

bool lvwFilesBase::UseCharacter(const wxKeyEvent& event) {
  const wxChar character = event.GetUnicodeKey();
  const bool typed = character > WXK_SPACE && character != WXK_DELETE && (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
  if (!typed || IsEditing()) return false;
  if (inputEnabled_) (void)TypeAheadBy(wxString(character));
  return true;
}

// True when a row begins with what was typed so far.
bool lvwFilesBase::TypeAheadBy(const wxString& character) {
  const int index = typeAhead_.Type(list_, FromWx(character), FocusedRow(), TypeAhead::Clock::now());
  if (index != 0 && handlers_.typed) handlers_.typed(index);
  return index != 0;
}

void lvwFilesBase::SelectAll() {
  ShowPending();
  std::vector<int> rows(static_cast<std::size_t>(list_.Count()));
  int index = 0;
  for (int& row : rows) row = ++index;
  if (rows == shown_) return;
  PutSelection(rows);
  showing_ = true;
  SelectNative(rows);
  showing_ = false;
  shown_ = std::move(rows);
  announcing_ = true;
  Announce();
}

void lvwFilesBase::ToggleChecks() {
  const int focused = FocusedRow();
  if (!IsRow(focused)) return;
  const bool checked = !list_.Row(focused).checked;
  if (!list_.Row(focused).selected) {
    list_.SetChecked(focused, checked);
    return;
  }
  for (const int index : list_.SelectedRows()) list_.SetChecked(index, checked);
}

void lvwFilesBase::SetChecked(int index, bool checked) {
  if (inputEnabled_ && IsRow(index)) list_.SetChecked(index, checked);
}

void lvwFilesBase::Activate(int index) {
  if (!inputEnabled_) return;
  SyncSelection();
  Announce();
  if (IsRow(index) && handlers_.activated) handlers_.activated(index);
}

void lvwFilesBase::ClickHeader(int column) const {
  if (!inputEnabled_ || column < 0 || column >= kColumnCount) return;
  if (handlers_.headerClicked) handlers_.headerClicked(static_cast<Column>(column));
}

void lvwFilesBase::WantMenu(wxPoint screen) {
  if (!inputEnabled_) return;
  SyncSelection();
  TakeClick(list_.SelectedIndex());  // the menu is for that row, however it was opened
  Announce();
  if (handlers_.menuWanted) handlers_.menuWanted(screen);
}

void lvwFilesBase::EndEdit(const wxString& text) {
  const int index = std::exchange(editedRow_, 0);
  if (!inputEnabled_ || !IsRow(index) || !handlers_.renamed) return;
  // An unchanged text keeps the row's name, including characters that a cell cannot show.
  const bool same = text == CellText(index, Column::kRenameName);
  const std::string name = same ? std::string(list_.Row(index).renameName) : FromWx(text);
  window_->CallAfter([this, index, name] {
    if (inputEnabled_ && IsRow(index)) handlers_.renamed(index, name);
  });
}

wxString lvwFilesBase::CellText(int index, Column column) const {
  return IsRow(index) ? OnOneLine(ToWx(ColumnText(list_.Row(index), column))) : wxString();
}

wxString lvwFilesBase::SpokenText(int index, Column column) const {
  const bool marked = column == Column::kRenameName && IsPending(index);
  return marked ? CellText(index, column) + ToWx(kPendingSpoken) : CellText(index, column);
}

void lvwFilesBase::PointAt(int index, Column column, int pixels) {
  const wxString tip = IsRow(index) ? TipOf(index, column, pixels) : wxString();
  if (tip == tip_) return;
  tip_ = tip;
  window_->UnsetToolTip();  // a tip that is only changed stays where it is
  if (!tip.empty()) window_->SetToolTip(tip);
}

namespace {

/// A tool tip of a whole screen helps nobody.
std::string Shortened(std::string_view text) {
  constexpr std::size_t kLongestTip = 300;  // characters
  const std::string_view first = FirstCharacters(text, kLongestTip);
  return first.size() == text.size() ? std::string(text) : std::string(first) + "…";
}

}  // namespace

wxString lvwFilesBase::TipOf(int index, Column column, int pixels) const {
  constexpr int kAround = 10;  // DIP: the space around a cell's text
  const FileRow row = list_.Row(index);
  const wxString text = CellText(index, column);
  const bool bold = row.pending && column == Column::kRenameName;
  const wxFont font = bold ? window_->GetFont().Bold() : window_->GetFont();
  wxCoord width = 0;
  wxCoord height = 0;
  window_->GetTextExtent(text, &width, &height, nullptr, nullptr, &font);
  const bool isCut = width + window_->FromDIP(kAround) > pixels;
  const wxString cut = isCut ? ToWx(Shortened(FromWx(text))) : wxString();
  if (!row.pending) return cut;
  const wxString change = OnOneLine(ToWx(Shortened(row.NameWithoutExtension()) + " → " + Shortened(row.renameName)));
  return cut.empty() || bold ? change : cut + "\n" + change;
}

wxBitmap lvwFilesBase::IconOf(int index, int pixels) const {
  if (!IsRow(index) || !handlers_.iconOf) return {};
  const wxBitmap icon = handlers_.iconOf(list_.Row(index), pixels);
  if (!icon.IsOk() || icon.GetSize() == wxSize(pixels, pixels)) return icon;
  return wxBitmap(icon.ConvertToImage().Scale(pixels, pixels, wxIMAGE_QUALITY_BILINEAR));
}

}  // namespace quillon
