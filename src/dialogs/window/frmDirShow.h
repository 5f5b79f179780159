#pragma once

#include <wx/event.h>
#include <wx/frame.h>
#include <wx/listbox.h>

#include <functional>
#include <string>
#include <vector>

#include "filelist/FileList.h"

namespace quillon {

/// The folders of the listed files; a double click opens one. It stays beside the main window until it is closed and
/// shows the list as it was when it was opened, or last read anew with mnuReload.
class frmDirShow final : public wxFrame {
 public:
  /// `open` opens a folder with the shell, owned by the given window. The list must outlive the window.
  frmDirShow(wxWindow* parent, const FileList& list,
             std::function<void(const std::string& folder, wxWindow& owner)> open);

  /// Reads the list anew; the selected folder stays selected, or the one in its place is.
  void Reload();

 private:
  void MakeMenus();
  void MakeList();
  void BindEvents();

  void OpenSelected();
  void OnCharHook(wxKeyEvent& event);

  const FileList& list_;
  std::function<void(const std::string& folder, wxWindow& owner)> open_;
  std::vector<std::string> folders_;  ///< as the file system has them: what is shown may have lost bytes

  wxListBox* lstDirShow_ = nullptr;  // a child, owned by the window
};

}  // namespace quillon
