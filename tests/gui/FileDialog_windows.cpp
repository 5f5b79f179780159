#include <windows.h>

#include <wx/filedlg.h>
#include <wx/timer.h>

#include "controls/WxText.h"
#include "gui/FileDialog.h"

namespace quillon::test {
namespace {

constexpr int kPause = 50;  // milliseconds

BOOL CALLBACK TakeIfDialog(HWND window, LPARAM found) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (wcscmp(name, L"#32770") != 0 || IsWindowVisible(window) == 0) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

/// Waits for the system's dialog to be ready for typing, writes the path into the box that has the focus and presses
/// its OK. Deletes itself then.
class Typist final : public wxTimer {
 public:
  explicit Typist(const std::string& path) : path_(ToWx(path).ToStdWstring()) { StartOnce(kPause); }

  void Notify() override {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeIfDialog, reinterpret_cast<LPARAM>(&dialog));
    HWND box = GetFocus();
    if (dialog == nullptr || box == nullptr || IsChild(dialog, box) == 0) {
      StartOnce(kPause);
      return;
    }
    SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path_.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    delete this;
  }

 private:
  std::wstring path_;
};

}  // namespace

// Windows' dialog only takes a choice on the screen, so it is shown and used.
int AnswerWithFile(wxFileDialog& /*dialog*/, const std::string& path) {
  new Typist(path);
  return wxID_NONE;
}

}  // namespace quillon::test
