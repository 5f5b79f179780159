#pragma once

#include <wx/textctrl.h>

#include <optional>

namespace quillon {

/// Whether the system's own text boxes of one line can undo.
[[nodiscard]] bool TextBoxesCanUndo();

/// A text box of one line that can undo on every system. Where the system's own cannot (GTK) this goes one step back,
/// and forth again, also with Ctrl+Z, as the system's own does on Windows; characters typed one after another are one
/// step. A text that the program sets is no step and cannot be undone.
class TextBox final : public wxTextCtrl {
 public:
  explicit TextBox(wxWindow* parent, wxWindowID id = wxID_ANY, long style = 0);

  bool CanUndo() const override;
  void Undo() override;

 protected:
  void DoSetValue(const wxString& value, int flags) override;

 private:
  void Changed();
  [[nodiscard]] bool ContinuesTyping(const wxString& now) const;
  void OnKeyDown(wxKeyEvent& event);

  // Kept only where the system's own text box cannot undo.
  bool native_;
  wxString text_;                  ///< as it is
  std::optional<wxString> other_;  ///< what Undo brings
  std::size_t typedUpTo_ = 0;      ///< where the character just typed ends; 0 when the last change was another one
};

}  // namespace quillon
