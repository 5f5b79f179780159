#include "controls/GuardedApp.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/UnexpectedError.h"
#include "controls/WxMessageBoxes.h"
#include "controls/WxText.h"
#include "platform/desktop/DesktopStyle.h"

namespace quillon {
namespace {

constexpr std::size_t kMostWaiting = 3;

}  // namespace

/// The errors that were caught and are still to be shown, and the captions to show them under.
class GuardedApp::Errors {
 public:
  /// Call it in a catch block. An error is not queued again while its box waits or is open, because some handlers run
  /// many times a second.
  void Caught() noexcept {
    try {
      const Message message{TakeCaption(), UnexpectedErrorText(), MessageIcon::kStop};
      if (waiting_.size() >= kMostWaiting || std::find(waiting_.begin(), waiting_.end(), message) != waiting_.end()) {
        return;
      }
      waiting_.push_back(message);
      wxTheApp->CallAfter([this] { Tell(); });
    } catch (...) {  // NOLINT(bugprone-empty-catch): not enough memory to report it
    }
  }

  std::string running;  ///< the running command's caption
  std::string failed;   ///< the caption of the command that an exception is leaving

 private:
  std::string TakeCaption() {
    if (!failed.empty()) return std::exchange(failed, {});
    return running.empty() ? FromWx(wxTheApp->GetAppDisplayName()) : running;
  }

  void Tell() {
    if (std::exchange(telling_, true)) return;
    while (!waiting_.empty()) {
      try {
        WxMessageBoxes(wxTheApp->GetTopWindow()).Show(waiting_.front());
      } catch (...) {  // NOLINT(bugprone-empty-catch): another box would throw, too
      }
      waiting_.pop_front();
    }
    telling_ = false;
  }

  std::deque<Message> waiting_;  // the first one's box may be open
  bool telling_ = false;
};

GuardedApp::GuardedApp() : errors_(std::make_unique<Errors>()) {}

GuardedApp::~GuardedApp() = default;

void GuardedApp::CallEventHandler(wxEvtHandler* handler, wxEventFunctor& functor, wxEvent& event) const {
  try {
    wxApp::CallEventHandler(handler, functor, event);
  } catch (...) {
    errors_->Caught();
  }
}

// Events postponed by CallAfter are only guarded here. When one throws, it is dropped and the loop goes on with the
// next.
void GuardedApp::ProcessPendingEvents() {
  for (bool done = false; !done;) {
    try {
      wxApp::ProcessPendingEvents();
      done = true;
    } catch (...) {
      errors_->Caught();
    }
  }
}

bool GuardedApp::OnExceptionInMainLoop() {
  errors_->Caught();
  return true;
}

wxLayoutDirection GuardedApp::GetLayoutDirection() const {
  return ReadsRightToLeft() ? wxLayout_RightToLeft : wxLayout_LeftToRight;
}

RunningCommand::RunningCommand(std::string caption) : exceptions_(std::uncaught_exceptions()) {
  auto* const app = dynamic_cast<GuardedApp*>(wxTheApp);
  if (app == nullptr) return;
  app->errors_->failed.clear();
  around_ = std::exchange(app->errors_->running, std::move(caption));
}

RunningCommand::~RunningCommand() {
  auto* const app = dynamic_cast<GuardedApp*>(wxTheApp);
  if (app == nullptr) return;
  std::string caption = std::exchange(app->errors_->running, std::move(around_));
  if (std::uncaught_exceptions() > exceptions_) app->errors_->failed = std::move(caption);
}

}  // namespace quillon
