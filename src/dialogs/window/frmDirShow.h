#pragma once

#include <wx/event.h>
#include <wx/frame.h>
#include <wx/listbox.h>

#include <functional>
#include <string>
#include <vector>

#include "filelist/FileList.h"

namespace quillon {

/// The folders of the listed files; a double click opens one. The window stays beside the main window until it is
/// closed. It shows the list as it was when the window was opened, or when mnuReload was last used.
class frmDirShow final : public wxFrame {
 public:
  /// `open` opens a folder with the shell, owned by the given window. The list must outlive the window.
  frmDirShow(wxWindow* parent, const FileList& list,
             std::function<void(const std::string& folder, wxWindow& owner)> open);

  /// Reads the list again. The selected folder stays selected; when it is gone, the folder now in its place is
  /// selected.
  void Reload();

 private:
  void MakeMenus();
  void MakeList();
  void BindEvents();

  void OpenSelected();
  void OnCharHook(wxKeyEvent& event);

  const FileList& list_;
  std::function<void(const std::string& folder, wxWindow& owner)> open_;
  std::vector<std::string> folders_;  ///< with the file system's bytes, some of which the shown texts may have lost

  wxListBox* lstDirShow_ = nullptr;  // a child, owned by the window
};

}  // namespace quillon
