#include <wx/dirdlg.h>
#include <wx/modalhook.h>
#include <wx/utils.h>

#include <optional>

#include "controls/FolderChooser.h"
#include "controls/WxText.h"
#include "platform/desktop/FolderPicker.h"

namespace quillon {
namespace {

/// A folder dialog with another label on its button. The toolkit gives no access to its native dialog, so ShowModal
/// shows our own.
class FolderDialogWithWord final : public wxDirDialog {
 public:
  FolderDialogWithWord(wxWindow& parent, const std::string& prompt, const std::string& start, std::string confirm)
      : wxDirDialog(&parent, ToWx(prompt), ToWx(start), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST),
        confirm_(std::move(confirm)) {}

  int ShowModal() override {
    WX_HOOK_MODAL_DIALOG();
    const std::optional<std::string> chosen = Pick();
    if (!chosen) return wxDirDialog::ShowModal();
    SetPath(ToWx(*chosen));
    return chosen->empty() ? wxID_CANCEL : wxID_OK;
  }

 private:
  std::optional<std::string> Pick() {
    wxWindow* const owner = GetParentForModalDialog();
    const wxWindowDisabler others(this, owner);
    return PickFolder(owner != nullptr ? owner->GetHandle() : nullptr, FromWx(m_message), FromWx(m_path), confirm_);
  }

  std::string confirm_;
};

std::string Chosen(wxDirDialog& dialog) {
  return dialog.ShowModal() == wxID_OK ? PathFromWx(dialog.GetPath()) : std::string();
}

}  // namespace

std::string ChooseFolder(wxWindow& parent, const std::string& prompt, const std::string& start,
                         const std::string& confirm) {
  if (!confirm.empty()) {
    FolderDialogWithWord dialog(parent, prompt, start, confirm);
    return Chosen(dialog);
  }
  wxDirDialog dialog(&parent, ToWx(prompt), ToWx(start), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  return Chosen(dialog);
}

}  // namespace quillon
