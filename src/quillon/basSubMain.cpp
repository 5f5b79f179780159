#include <wx/app.h>
#include <wx/uilocale.h>

#include <cstdlib>
#include <memory>
#include <optional>

#include "app/CommandLine.h"
#include "app/HelpFile.h"
#include "app/frmMain.h"
#include "app/settings/Settings.h"
#include "app/settings/SettingsFile.h"
#include "app/settings/basINIControl.h"
#include "controls/WxMessageBoxes.h"
#include "platform/Program.h"
#include "platform/desktop/DesktopStyle.h"
#include "platform/desktop/NativeWindow.h"
#include "platform/desktop/SingleInstance.h"

namespace quillon {
namespace {

Application::Paths ProgramPaths() {
  const std::string folder = ProgramFolder();
  const std::string name = ProgramBaseName();
  return {SettingsFilePath(folder, name), HelpFilePath(folder, name)};
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
  // Before the window system is started, which takes away what a desktop passes on about who started the program.
  bool Initialize(int& count, wxChar** arguments) override {
    PreferNumberedWindows();  // a film's picture is drawn into one
    instance_ = MakeSingleInstance(kMainTitle, kMainWindowClass);
    return wxApp::Initialize(count, arguments);
  }

  bool OnInit() override {
    SetAppName(kMainTitle);
    if (!instance_->IsFirst()) {
      instance_->BringFirstForward();
      exitStatus_ = EXIT_SUCCESS;
      return true;
    }
    wxUILocale::UseDefault();
    ApplyDesktopStyle();
    const Application::Paths paths = ProgramPaths();
    Result<OptionValues, SettingsError> options = ReadSettings(paths.settings);
    if (!options) {
      WxMessageBoxes(nullptr).Show(InitialisationError());
      exitStatus_ = EXIT_FAILURE;
      return true;
    }
    auto* window = new frmMain(*std::move(options), paths);  // deletes itself when it is closed
    SetTopWindow(window);
    instance_->OnRaise([window] { window->ComeForward(); });
    // Not before the message loop runs: the load lets messages through.
    window->CallAfter([window] { window->Start(CommandLinePaths(RawCommandLine(), ProgramArguments(0, nullptr))); });
    return true;
  }

  int OnRun() override { return exitStatus_ ? *exitStatus_ : wxApp::OnRun(); }

  int OnExit() override {
    instance_.reset();
    return wxApp::OnExit();
  }

 private:
  std::unique_ptr<SingleInstance> instance_;
  std::optional<int> exitStatus_;  // there is nothing to run
};

}  // namespace quillon

wxIMPLEMENT_APP(quillon::QuillonApp);
