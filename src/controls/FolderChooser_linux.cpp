#include <wx/dirdlg.h>

#include "controls/FolderChooser.h"
#include "controls/WxText.h"
#include "platform/desktop/AcceptLabel.h"

namespace quillon {

std::string ChooseFolder(wxWindow& parent, const std::string& prompt, const std::string& start,
                         const std::string& confirm) {
  wxDirDialog dialog(&parent, ToWx(prompt), ToWx(start), wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  if (!confirm.empty()) SetAcceptLabel(dialog.GetHandle(), confirm);
  return dialog.ShowModal() == wxID_OK ? PathFromWx(dialog.GetPath()) : std::string();
}

}  // namespace quillon
