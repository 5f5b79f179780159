#include <gtest/gtest.h>
#include <wx/filedlg.h>

#include "controls/WxText.h"
#include "gui/FileDialog.h"
#include "gui/Settle.h"

namespace quillon::test {

// GTK's dialog knows its choice without being shown, once it has read the folder.
int AnswerWithFile(wxFileDialog& dialog, const std::string& path) {
  dialog.SetPath(ToWx(path));
  EXPECT_TRUE(SettleUntil([&] {
    wxArrayString chosen;
    dialog.GetPaths(chosen);
    return PathsFromWx(chosen) == std::vector<std::string>{path};
  })) << "the dialog does not take the path";
  return wxID_OK;
}

}  // namespace quillon::test
