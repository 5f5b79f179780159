#include <wx/app.h>
#include <wx/uilocale.h>

#include <memory>

#include "app/CommandLine.h"
#include "app/frmMain.h"
#include "app/settings/Settings.h"
#include "app/settings/SettingsFile.h"
#include "app/settings/basINIControl.h"
#include "controls/WxMessageBoxes.h"
#include "platform/Program.h"
#include "platform/desktop/DesktopStyle.h"
#include "platform/desktop/SingleInstance.h"

namespace quillon {
namespace {

Application::Paths ProgramPaths() {
  const std::string folder = ProgramFolder();
  const std::string name = ProgramBaseName();
  return {SettingsFilePath(folder, name), folder + name + ".chm"};
}

Result<OptionValues, SettingsError> ReadSettings(const std::string& path) {
  IniFile file(path);
  file.Load();
  return ReadOptionValues(file);
}

}  // namespace

/// The program: one instance for a user's session, its one main window.
class QuillonApp final : public wxApp {
 public:
  bool OnInit() override {
    SetAppName(kMainTitle);
    wxUILocale::UseDefault();
    instance_ = MakeSingleInstance(kMainTitle, kMainWindowClass);
    if (!instance_->IsFirst()) {
      instance_->BringFirstForward();
      return false;
    }
    ApplyDesktopStyle();
    const Application::Paths paths = ProgramPaths();
    Result<OptionValues, SettingsError> options = ReadSettings(paths.settings);
    if (!options) {
      WxMessageBoxes(nullptr).Show(InitialisationError());
      return false;
    }
    auto* window = new frmMain(*std::move(options), paths);  // deletes itself when it is closed
    SetTopWindow(window);
    instance_->OnRaise([window] { window->ComeForward(); });
    // Not before the message loop runs: the load lets messages through.
    window->CallAfter([window] { window->Start(CommandLinePaths(RawCommandLine(), ProgramArguments(0, nullptr))); });
    return true;
  }

  int OnExit() override {
    instance_.reset();
    return wxApp::OnExit();
  }

  // The standard options of wx are not ours: every argument is a path.
  void OnInitCmdLine(wxCmdLineParser& /*parser*/) override {}

 private:
  std::unique_ptr<SingleInstance> instance_;
};

}  // namespace quillon

wxIMPLEMENT_APP(quillon::QuillonApp);
