#pragma once

#include <wx/app.h>

#include <deque>
#include <memory>
#include <string>

#include "base/Ports.h"

namespace quillon {

/// An application whose handlers may throw. Uncaught exceptions are caught where wx calls the program, so that they
/// never unwind the system's stack frames. They are shown in a box, and the program goes on. The box is postponed to
/// the next message processing, because it must not open while a window is painting or the focus is changing.
class GuardedApp : public wxApp {
 public:
  GuardedApp();
  GuardedApp(const GuardedApp&) = delete;
  GuardedApp& operator=(const GuardedApp&) = delete;
  ~GuardedApp() override;

  void CallEventHandler(wxEvtHandler* handler, wxEventFunctor& functor, wxEvent& event) const override;
  void ProcessPendingEvents() override;
  bool OnExceptionInMainLoop() override;
  /// The toolkit's own looks the language up in a table of all languages, which it has to make first.
  [[nodiscard]] wxLayoutDirection GetLayoutDirection() const override;

 private:
  friend class RunningCommand;
  class Errors;

  std::unique_ptr<Errors> errors_;
};

/// Names the running command: a box about its exception has this caption.
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
