#pragma once

#include <wx/textctrl.h>

#include <optional>

namespace quillon {

/// Whether the system's single-line text boxes can undo.
[[nodiscard]] bool TextBoxesCanUndo();

/// A single-line text box that can undo on every system. Where the system's text box cannot (GTK), Undo or Ctrl+Z
/// reverts the last step, and a second one restores it, as on Windows. Characters typed one after another are one step.
/// A text set by the program cannot be undone.
class TextBox final : public wxTextCtrl {
 public:
  explicit TextBox(wxWindow* parent, wxWindowID id = wxID_ANY, long style = 0);

  bool CanUndo() const override;
  void Undo() override;
  void Redo() override;

 protected:
  void DoSetValue(const wxString& value, int flags) override;

 private:
  void Changed();
  [[nodiscard]] bool ContinuesTyping(const wxString& now) const;
  void OnKeyDown(wxKeyEvent& event);

  bool native_;  ///< the system's own text box can undo
  bool undoing_ = false;
  bool undone_ = false;  ///< the last step was Undo: Redo reverts it

  // Kept only where the system's own text box cannot undo.
  wxString text_;                  ///< the current text
  std::optional<wxString> other_;  ///< the text that Undo restores
  std::size_t typedUpTo_ = 0;      ///< the index behind the character just typed; 0 when the last change was not typing
};

}  // namespace quillon
