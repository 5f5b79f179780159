// Shows one of the windows that are open only while a run lasts, or that need a certain folder, so that a picture can
// be taken of it: quillon-gallery wait|search|nothing. The last one appears at a key press.

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/uilocale.h>

#include <memory>
#include <string>

#include "controls/Pictures.h"
#include "controls/WxMessageBoxes.h"
#include "controls/WxText.h"
#include "filelist/LoadTexts.h"
#include "filelist/window/frmFolderRef.h"
#include "platform/Program.h"
#include "platform/desktop/DesktopStyle.h"
#include "rename/window/frmWait.h"

namespace quillon {

class GalleryApp final : public wxApp {
 public:
  bool OnInit() override {
    SetAppName("Quillon");
    SetAppDisplayName("Quillon");
    wxUILocale::UseDefault();
    ApplyDesktopStyle();
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Quillon");
    new wxPanel(frame);
    frame->SetIcons(ProgramIcons());
    frame->SetClientSize(frame->FromDIP(wxSize(600, 400)));
    frame->CentreOnScreen();
    frame->Show();
    const std::vector<std::string> arguments = ProgramArguments(0, nullptr);
    // The frame is shown first, because the windows open over it.
    if (arguments == std::vector<std::string>{"wait"}) {
      frame->CallAfter([this, frame] { ShowWait(*frame); });
    } else if (arguments == std::vector<std::string>{"search"}) {
      frame->CallAfter([this, frame] { ShowSearch(*frame); });
    } else if (arguments == std::vector<std::string>{"nothing"}) {
      frame->Bind(wxEVT_CHAR_HOOK, [frame](wxKeyEvent&) { AskAfterNothing(*frame); });
    } else {
      return false;
    }
    return true;
  }

 private:
  void ShowWait(wxWindow& parent) {
    wait_ = std::make_unique<frmWait>(&parent);
    wait_->Begin("リネーム名を編集中です...\r\nしばらくお待ちください", "  ファイル名を編集中...");
    wait_->Update(42, "42%", "赤とんぼ");
  }

  void ShowSearch(wxWindow& parent) {
    search_ = std::make_unique<LongSearch>(parent, [] {});
    search_->Begin("フォルダ内を検索しています...", "検索対象 : D:\\音楽\\");
    search_->ShowFolder("D:\\音楽\\日本の歌\\");
  }

  static void AskAfterNothing(wxWindow& parent) {
    FoundFiles found;
    found.otherFiles = 12;
    found.unsearchedFolders = 3;
    (void)WxMessageBoxes(&parent).AskQuestion(
        NothingFoundQuestion("D:\\音楽\\", "mid midi wav mp3 mpg mpeg avi", found));
  }

  std::unique_ptr<frmWait> wait_;
  std::unique_ptr<LongSearch> search_;
};

}  // namespace quillon

wxIMPLEMENT_APP(quillon::GalleryApp);
