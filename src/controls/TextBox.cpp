#include "controls/TextBox.h"

#include <algorithm>

#include "base/Finally.h"

namespace quillon {
namespace {

/// The index of the first character that differs.
std::size_t FirstDifference(const wxString& left, const wxString& right) {
  const auto [difference, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  return static_cast<std::size_t>(difference - left.begin());
}

}  // namespace

TextBox::TextBox(wxWindow* parent, wxWindowID id, long style)
    : wxTextCtrl(parent, id, "", wxDefaultPosition, wxDefaultSize, style), native_(TextBoxesCanUndo()) {
  Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    event.Skip();
    if (!undoing_) undone_ = false;
    if (!native_) Changed();
  });
  if (native_) return;
  Bind(wxEVT_KEY_DOWN, &TextBox::OnKeyDown, this);
}

bool TextBox::CanUndo() const {
  return native_ ? wxTextCtrl::CanUndo() : other_.has_value();
}

void TextBox::Undo() {
  undoing_ = true;
  const Finally done([this] { undoing_ = false; });
  const bool undone = undone_;
  const wxString before = GetValue();
  if (native_) {
    wxTextCtrl::Undo();
    undone_ = !undone && GetValue() != before;
  } else if (other_) {
    wxTextCtrl::DoSetValue(*other_, SetValue_SendEvent);
    SetInsertionPointEnd();
    text_ = GetValue();
    other_ = before;
    typedUpTo_ = 0;
    undone_ = !undone;
  }
}

void TextBox::Redo() {
  if (undone_) Undo();
}

void TextBox::DoSetValue(const wxString& value, int flags) {
  wxTextCtrl::DoSetValue(value, flags);
  text_ = GetValue();
  other_.reset();
  typedUpTo_ = 0;
  undone_ = false;
}

void TextBox::Changed() {
  const wxString now = GetValue();
  if (now == text_) return;
  if (!ContinuesTyping(now)) other_ = text_;
  typedUpTo_ = now.length() == text_.length() + 1 ? FirstDifference(text_, now) + 1 : 0;
  text_ = now;
}

bool TextBox::ContinuesTyping(const wxString& now) const {
  return typedUpTo_ != 0 && now.length() == text_.length() + 1 && FirstDifference(text_, now) == typedUpTo_;
}

void TextBox::OnKeyDown(wxKeyEvent& event) {
  if (event.GetKeyCode() == 'Z' && event.GetModifiers() == wxMOD_CONTROL) {
    Undo();
  } else if (event.GetKeyCode() == 'Y' && event.GetModifiers() == wxMOD_CONTROL) {
    Redo();
  } else {
    event.Skip();
  }
}

}  // namespace quillon
