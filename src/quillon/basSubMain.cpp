#include <wx/app.h>
#include <wx/uilocale.h>
#include <wx/weakref.h>

#include <cstdlib>
#include <memory>
#include <optional>

#include "app/CommandLine.h"
#include "app/HelpFile.h"
#include "app/window/frmMain.h"
#include "base/UnexpectedError.h"
#include "controls/GuardedApp.h"
#include "controls/WxMessageBoxes.h"
#include "platform/Program.h"
#include "platform/desktop/DesktopStyle.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/Termination.h"
#include "settings/Settings.h"
#include "settings/SettingsFile.h"

namespace quillon {
namespace {

Application::Paths ProgramPaths() {
  const std::string folder = ProgramFolder();
  const std::string name = ProgramBaseName();
  return {SettingsFilePath(folder, name), HelpFilePath(folder, name)};
}

}  // namespace

/// The program: one instance per user session, with one main window.
class QuillonApp final : public GuardedApp {
 public:
  // Runs before the window system is started, because that removes the desktop's information about who started the
  // program.
  bool Initialize(int& count, wxChar** arguments) override {
    KeepToOwnAndSystemLibraries();
    request_ = ReadCommandLine(RawCommandLine(), ProgramArguments(0, nullptr), *MakeFileReads());
    if (request_.kind != CommandLineRequest::Kind::kOpen && Write(request_)) std::exit(ExitStatusOf(request_));
    BeginReadingFonts();
    instance_ = MakeSingleInstance(kMainTitle, kMainWindowClass);
    return GuardedApp::Initialize(count, arguments);
  }

  bool OnInit() override {
    SetAppName(kMainTitle);
    try {
      Begin();
    } catch (...) {
      Fail({kMainTitle, UnexpectedErrorText(), MessageIcon::kStop});
    }
    return true;
  }

  int OnRun() override { return exitStatus_ ? *exitStatus_ : GuardedApp::OnRun(); }

  int OnExit() override {
    instance_.reset();
    return GuardedApp::OnExit();
  }

 private:
  // Writes an answer to standard output, or a complaint about a mistake to standard error. Returns false when it cannot
  // be written, as for programs with windows on Windows.
  static bool Write(const CommandLineRequest& request) {
    const bool mistake = request.kind == CommandLineRequest::Kind::kWrongUsage;
    const std::string answer = AnswerTo(request);
    return (mistake ? WriteStandardError(answer) : WriteStandardOutput(answer)) == StreamResult::kWritten;
  }

  void Begin() {
    if (request_.kind != CommandLineRequest::Kind::kOpen) {
      exitStatus_ = ExitStatusOf(request_);
      WxMessageBoxes(nullptr).Show(BoxFor(request_));
      return;
    }
    if (!instance_->IsFirst()) {
      instance_->BringFirstForward();
      exitStatus_ = EXIT_SUCCESS;
      return;
    }
    wxUILocale::UseDefault();
    ApplyDesktopStyle();
    try {
      if (!LoadWindow(ProgramPaths())) Fail(InitialisationError());
    } catch (...) {  // whatever keeps the window from being made
      Fail(InitialisationError());
    }
  }

  void Fail(const Message& message) {
    exitStatus_ = EXIT_FAILURE;
    WxMessageBoxes(nullptr).Show(message);
  }

  // Returns false for settings that cannot be read.
  bool LoadWindow(const Application::Paths& paths) {
    std::optional<OptionValues> options = LoadOptionValues(paths.settings);
    if (!options) return false;
    auto* window = new frmMain(*std::move(options), paths);  // deletes itself when it is closed
    SetTopWindow(window);
    instance_->OnRaise([window] { window->ComeForward(); });
    termination_ = CatchTermination([shown = wxWeakRef<frmMain>(window)] {
      if (shown) shown->CloseUnanswered();
    });
    // Postponed until the message loop runs, because the load processes messages.
    window->CallAfter([window, paths = request_.paths] { window->Start(paths); });
    return true;
  }

  CommandLineRequest request_;
  std::unique_ptr<SingleInstance> instance_;
  std::unique_ptr<Termination> termination_;
  std::optional<int> exitStatus_;  // set when there is nothing to run
};

}  // namespace quillon

wxIMPLEMENT_APP(quillon::QuillonApp);
