#pragma once

#include <wx/app.h>

#include <deque>
#include <memory>
#include <string>

#include "base/Ports.h"

namespace quillon {

/// An application whose handlers may throw. What nobody has caught is caught where wx calls the program, so that it
/// never unwinds the frames of the system, is told in a box, and the program goes on. The box waits until the messages
/// are processed: one must not open while a window paints or the focus is on its way.
class GuardedApp : public wxApp {
 public:
  GuardedApp();
  GuardedApp(const GuardedApp&) = delete;
  GuardedApp& operator=(const GuardedApp&) = delete;
  ~GuardedApp() override;

  void CallEventHandler(wxEvtHandler* handler, wxEventFunctor& functor, wxEvent& event) const override;
  void ProcessPendingEvents() override;
  bool OnExceptionInMainLoop() override;

 private:
  friend class RunningCommand;
  class Errors;

  std::unique_ptr<Errors> errors_;
};

/// Names a command as long as it runs: the box about what it throws has this caption.
class RunningCommand {
 public:
  explicit RunningCommand(std::string caption);
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;
  ~RunningCommand();

 private:
  std::string around_;  // the command that has started this one
  int exceptions_;
};

}  // namespace quillon
