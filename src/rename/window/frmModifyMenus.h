#pragma once

#include <wx/menu.h>
#include <wx/textctrl.h>

#include <memory>

/// The menus of frmModify: a dialog has no menu bar, so they open below buttons.
namespace quillon {

inline constexpr int kMnuUndo = wxID_UNDO;
inline constexpr int kMnuCut = wxID_CUT;
inline constexpr int kMnuCopy = wxID_COPY;
inline constexpr int kMnuPaste = wxID_PASTE;
inline constexpr int kMnuDelete = wxID_DELETE;

/// `box` is null when no box is being edited; then no entry can be chosen.
[[nodiscard]] std::unique_ptr<wxMenu> MakeEditMenu(const wxTextCtrl* box);

/// Does the same to the box as the keyboard shortcut of the menu's entry.
void EditText(wxTextCtrl& box, int entry);

/// The syntax of regular expressions; its entries do nothing.
[[nodiscard]] std::unique_ptr<wxMenu> MakeHelpMenu();

}  // namespace quillon
